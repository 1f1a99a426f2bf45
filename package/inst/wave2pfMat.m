% wave2pfMat  Pitch-function matrix of a recording: AMDF or ACF, frame by frame
%
%   PFMAT = wave2pfMat (WAVE, FRAMESIZE, OVERLAP, PFLEN, PFTYPE, PFMETHOD)
%
% The ACF is taken of each frame less its mean.  Methods 3 and 4 first reverse a frame whose second half is the
% livelier one.  Without an output, draws the matrix.
%
% Inputs
%   WAVE       row or column of samples of any scale; those of integer classes become -1 to 1.
%   FRAMESIZE  samples per frame, a positive whole number.
%   OVERLAP    samples shared by consecutive frames, 0 to FRAMESIZE - 1.
%   PFLEN      number of lags, 0 to PFLEN - 1 samples; a positive whole number.
%   PFTYPE     "amdf" (0), average magnitude difference, or "acf" (1), autocorrelation.
%   PFMETHOD   the terms summed at each lag: 1 all that fit in the frame; 2 the same, divided by their number;
%              3 the first FRAMESIZE - PFLEN; 4 the first PFLEN.
%
% Output
%   PFMAT      PFLEN x frames: column = frame, row k = lag of k - 1 samples.  Lags of FRAMESIZE and more have no
%              terms: 0, but NaN at lag FRAMESIZE with method 2.
%              At most 2^27 elements, or 1024 for each one of the inputs if that is more: beyond, the
%              call is refused.
%
% Example
%   pfMat = wave2pfMat (sin (1:1000), 256, 128, 100, "acf", 1);
%
% See also: wave2pitch

function varargout = wave2pfMat (varargin)
  draw = @(in, out) drawPfMat (out{1});
  varargout = resultOrPicture ("wave2pfMat", varargin, nargout, 1, draw);
end

%!assert (wave2pfMat ([1 2 3 4], 4, 0, 3, "amdf", 1), [0; 3; 4])
