% wave2pfMat  Pitch-function matrix of a waveform: AMDF or ACF, frame by frame
%
%   PFMAT = wave2pfMat (WAVE, FRAMESIZE, OVERLAP, PFLEN, PFTYPE, PFMETHOD)
%
% Cuts WAVE into frames and computes the pitch function of each whole frame: a curve over the lag whose
% valleys (AMDF) or peaks (ACF) lie at the pitch period and its multiples.
%
% Inputs
%   WAVE       samples: a real array of class double, of any scale.  A row, a column or a matrix, which is
%              read column after column as one vector.
%   FRAMESIZE  samples per frame, at least 1.
%   OVERLAP    samples shared by consecutive frames, below FRAMESIZE; frames start every
%              FRAMESIZE - OVERLAP samples.  A negative overlap leaves gaps.
%   PFLEN      number of lags: 0 to PFLEN - 1 samples.  It should exceed the longest pitch period.
%   PFTYPE     0  AMDF, average magnitude difference function: sums of |x(j) - x(j+lag)|
%              1  ACF, autocorrelation function: sums of x(j) * x(j+lag) of the frame less its mean
%   PFMETHOD   the terms summed at each lag, n = FRAMESIZE:
%              1  all n - lag terms that fit in the frame, so that the curve tapers with the lag
%              2  the same, divided by n - lag
%              3  the first n - PFLEN terms at every lag
%              4  the first PFLEN terms at every lag; wants FRAMESIZE >= 2 * PFLEN - 1
%              Methods 3 and 4 reverse a frame whose second half deviates more from the frame's mean.
% Fractions of the five numbers are cut off.
%
% Output
%   PFMAT      PFLEN x frames, real double: column = frame, row k = lag of k - 1 samples.  There are
%              fix ((numel (WAVE) - OVERLAP) / (FRAMESIZE - OVERLAP)) whole frames; a WAVE too short for one
%              gives PFLEN x 0.
%
% Errors
%   Inputs of the wrong number, class, shape or range are errors.  An unknown PFTYPE also rewrites the error
%   log, /tmp/error.log.  An unknown PFMETHOD ends the whole process, the host included.
%
% Example
%   [wave, fs] = audioread ("speech8k.wav");
%   pfMat = wave2pfMat (wave, 256, 128, 128, 1, 1);
%   frameTime = ((0:columns (pfMat) - 1) * 128 + 128) / fs;
%   lag = (0:127) / fs;
%   imagesc (frameTime, lag * 1000, pfMat); axis xy
%   xlabel ("Time (s)"); ylabel ("Lag (ms)")
%
% References
%   M. J. Ross, H. L. Shaffer, A. Cohen, R. Freudberg, H. J. Manley: Average magnitude difference function
%     pitch extractor.  IEEE Trans. Acoustics, Speech, and Signal Processing 22(5), 353-362, 1974.
%   L. R. Rabiner: On the use of autocorrelation analysis for pitch detection.  IEEE Trans. Acoustics, Speech,
%     and Signal Processing 25(1), 24-33, 1977.
%
% See also: audioread, imagesc

function pfMat = wave2pfMat (wave, frameSize, overlap, pfLen, pfType, pfMethod)
  error ("wave2pfMat: the compiled module is not on the path");
end
