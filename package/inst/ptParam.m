% ptParam  Parameters of pitch tracking
%
%   PARAM = ptParam (FS, NBITS, PFTYPE, PARAMFILE)
%
% Inputs
%   FS         sample rate in Hz, a positive whole number.
%   NBITS      bits per sample, 8 or 16; default 16.
%   PFTYPE     "acf" (1), the default, or "amdf" (0).
%   PARAMFILE  name of a file of lines FIELD=VALUE, which stand over the defaults and over the other inputs;
%              default none.
%
% Output
%   PARAM      struct of the fields that wave2pitch takes as options, the rate FS, and frameRate, the whole
%              frames per second; minIndex and maxIndex are 0 until a recording is tracked.
%
% Example
%   param = ptParam (16000, 16, "acf")
%
% See also: wave2pitch

function varargout = ptParam (varargin)
  varargout = cell (1, max (nargout, 1));
  [varargout{:}] = wavepitchLibrary ("ptParam", varargin{:});
end

%!test
%! param = ptParam (16000, 16, "amdf");
%! assert ([param.frameSize, param.overlap, param.pfLen, param.frameRate], [640, 480, 320, 100]);
%! assert ([param.pfWeight, param.indexDiffWeight, param.useClarityWeight], [12800, 700, 0]);
%! assert (param.clarityRatio, double (single (0.6)));
%!test  # a file over the defaults
%! file = [tempname() ".prm"];
%! fid = fopen (file, "w");
%! fputs (fid, "minPitch=40 % semitones\nframeSize = 320\n");
%! fclose (fid);
%! param = ptParam (8000, 16, 1, file);
%! [~, ~, ~, ~, used] = wave2pitch (zeros (1, 8000), 8000, "paramFile", file, "minPitch", 41);
%! delete (file);
%! assert ([param.minPitch, param.frameSize, param.pfLen], [40, 320, 128]);
%! assert ([used.minPitch, used.frameSize], [41, 320]);
%!error <ptParam: PFTYPE must be one of "amdf" \(0\), "acf" \(1\)> ptParam (8000, 16, "foo")
