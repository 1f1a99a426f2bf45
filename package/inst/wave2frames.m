% wave2frames  Frames of a recording as columns
%
%   [FRAMES, TIME] = wave2frames (WAVE, FS, NAME, VALUE, ...)
%
% Inputs
%   WAVE       row or column of finite numbers of any scale.
%   FS         sample rate in Hz, a positive whole number.
%
% Options, in any case
%   frameSize  samples per frame, at least 2; default 32 ms.
%   overlap    samples that consecutive frames share, 0 to frameSize - 1; default frameSize / 2, truncated.
%
% Outputs
%   FRAMES     frameSize x frames, double: column = frame; whole frames only.
%              At most 2^27 elements, or 1024 for each one of the inputs if that is more: beyond, the
%              call is refused.
%   TIME       1 x frames: centres of the frames in seconds.
%
% Example
%   frames = wave2frames (1:10, 8000, "frameSize", 4, "overlap", 2)
%
% See also: wave2volume, absSpectrogram

function varargout = wave2frames (varargin)
  varargout = cell (1, max (nargout, 1));
  [varargout{:}] = wavepitchLibrary ("wave2frames", varargin{:});
end

%!test
%! [frames, time] = wave2frames (1:7, 100, "frameSize", 3, "overlap", 1);
%! assert (frames, [1 3 5; 2 4 6; 3 5 7]);
%! assert (time, [0.015, 0.035, 0.055], eps);
