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

%!test  # every field, those between that a file can have
%! names = fieldnames (ptParam (8000))(4:22);
%! values = [300, 10, 100, 11, 40, 70, 21, 6, 19, 2, 3, 4, 5, 7, 12, 13, 0.5, 8, 14];
%! file = [tempname() ".prm"];
%! fid = fopen (file, "w");
%! fprintf (fid, "%s=%g\n", [names, num2cell(values)']'{:});
%! fclose (fid);
%! param = ptParam (8000, 16, 1, file);
%! delete (file);
%! assert (cell2mat (struct2cell (param))', [8000, 16, 1, values, 20, 1280, 0, 0, 27, 0, 0, 1]);
%!assert (ptParam (8000, 8, "amdf").useClarityWeight, 0)
