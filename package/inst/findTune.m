% findTune  Find the tune that somebody hums
%
%   [RANK, DISTANCE, DETAILS] = findTune (QUERY, TUNES, NAME, VALUE, ...)
%
% Compares a hummed phrase with the beginnings of the phrases of each tune, or with every place, whatever its
% key and its tempo: stretches or compresses it by a grid of ratios, shifts each version by the median (or the
% mean) of its differences from the tune, and takes the mean of what is left, as linearScaling does.  Silence
% at the ends of query and tunes is cut, any other is bridged by the pitch before it.  Without an output, draws
% the query over the best tune, and the distances of the first ten.
%
% Inputs
%   QUERY      row or column: semitones of each frame, 0 or NaN where there is no pitch, as wave2f0 with "unit"
%              "semitone" and wave2pitch give them.
%   TUNES      a cell array of tunes, each of them a row or column as QUERY, with the same frames, or an N x 2
%              matrix of N > 1 notes: semitones, 0 for a rest, and seconds.  Or the name of a file of tunes:
%              lines of five fields between tabs, which a line of their names may precede: name, origin, key,
%              tempo (quarter notes a minute) and notes; these are PITCH:BEATS between blanks, C4:1, F#4:0.5,
%              Bb3:2, r:1 for a rest, with "|" before the first note of each phrase.
%
% Options, in any case
%   frameRate  frames per second of QUERY and TUNES, 0.001 to 1000000; default 100, that of wave2f0.
%   names      cell array of texts, one for each tune; default "tune 1", "tune 2", ...
%   phrases    cell array with a vector for each tune: the notes, or the frames, that its phrases begin with,
%              from 1; default 1.  A file has names and phrases of its own.
%   anywhere   true: the query may begin at every frame; default false.
%   maxNum     tunes to rank at most; default 10.
%   lowerRatio, upperRatio  ends of the grid of ratios, above 0 and up to 1000; default 0.5 and 2.
%   resolution    ratios in the grid, 1 to 1000; default 61, which has 1 among them.
%   distanceType  1: mean absolute difference, the default; 2: mean squared difference.
%
% Outputs
%   RANK       1 x K: numbers of the tunes, the closest first; of equals that with the lowest number.  Tunes
%              without room for any version of the query are left out; a query without pitch finds none.
%   DISTANCE   1 x K: their distances, in semitones (or squares of them).
%   DETAILS    struct of K elements a field: "name"; "position" in seconds from the beginning of the tune;
%              "ratio" that the query was stretched by; "transposition", semitones that the query stands above
%              the tune; "contour", a cell with the stretch of the tune, without silence, that the query fits.
%
% Example
%   tunes = {[60 1; 62 1; 64 1; 60 1], [67 .5; 67 .5; 64 2; 65 .5; 65 .5; 62 2]};
%   hum = wave2f0 (note2wave ([59.2 59.1 56], [0.4 0.4 1.5], 8000), 8000, "unit", "semitone");
%   [rank, distance] = findTune (hum, tunes)
%
% See also: linearScaling, wave2f0, note2wave

function varargout = findTune (varargin)
  draw = @(in, out) drawTune (in{1}, rateOf (in(3:end)), out{2:3});
  varargout = resultOrPicture ("findTune", varargin, nargout, 3, draw);
end

function rate = rateOf (options)
  rate = 100;
  for i = find (strcmpi (options(1:2:end), "frameRate"))
    rate = double (options{2 * i});
  end
end

%!shared tunes, sung
%! tunes = {[60 1; 62 1; 64 1; 60 1; 0 0.5; 67 2], [67 .5; 67 .5; 64 2; 65 .5; 65 .5; 62 2; 60 1; 64 1; 67 1; 60 2]};
%! sung = @(notes, tempo, shift) repelem (notes(:,1)' + shift, round (100 * notes(:,2)' / tempo));
%!test  # a phrase finds its tune in every key and tempo
%! for tempo = [0.55, 1, 1.8]
%!   for shift = [-13, 0.25, 20]
%!     query = [0, 0, NaN, sung(tunes{2}(7:9,:), tempo, shift), 0];
%!     [~, distance, details] = findTune (query, tunes, "phrases", {1, [1, 7]}, "names", {"up", "down"});
%!     assert (distance(1) < 0.15 && distance(2) > 0.5, "tempo %g, shift %g", tempo, shift);
%!     assert ([details.position(1), details.transposition(1)], [6, shift], 1e-9);
%!     assert (details.ratio(1), tempo, 0.03);
%!     assert (details.name, {"down", "up"});
%!     assert (details.contour{1}([1, 150, 285]), [60, 64, 67]);
%!   end
%! end
%!test  # in the midst of a tune, without its phrases; contours as well as notes; rests are bridged
%! query = sung (tunes{1}(3:6,:), 1, 3);
%! query(query < 10) = NaN;
%! [rank, distance, details] = findTune (query, tunes, "anywhere", true, "maxNum", 1);
%! assert ({rank, distance, details.position, details.ratio, numel(details.contour{1})}, {1, 0, 2, 1, 450});
%! contours = cellfun (@(notes) [0, sung(notes, 1, 0)], tunes, "UniformOutput", false);
%! [rank, ~, details] = findTune (query, contours, "anywhere", true);
%! assert ({rank(1), details.position(1)}, {1, 2.01}, 1e-12);
%!test  # the first of equals; no room, no pitch, no tunes
%! assert (findTune (60 * ones (1, 50), {1:40, zeros(1, 60), 50 * ones(1, 60), 70 * ones(1, 60)}), [3, 4, 1]);
%! assert (findTune ([0, NaN], tunes), zeros (1, 0));
%! assert (findTune (60, {}), zeros (1, 0));
%! assert (findTune (60, {[60, 0]}, "phrases", {2}), zeros (1, 0));
%! assert (findTune (60, {[60, 0]}, "phrases", {2}, "anywhere", true), 1);
%!error <findTune: NAMES must be a cell array with a cell for each tune> findTune (60, {60}, "names", {})
%!error <findTune: TUNES\{2\} must be a real vector> findTune (60, {60, "x"})
%!error <findTune: room for 600000000 values is asked for, by the durations of TUNES> findTune (60, {[60 1e6; 62 1e6]})
