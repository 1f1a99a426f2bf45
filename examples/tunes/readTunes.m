% readTunes  Melodies of a table, as findTune and note2wave take them
%
%   [NAMES, NOTES, PHRASES] = readTunes (FILE)
%
% Inputs
%   FILE       a table as tunes.tsv, the default, which README.md describes.
%
% Outputs
%   NAMES      1 x tunes cell array of texts.
%   NOTES      1 x tunes cell array; each an N x 2 matrix: semitones (69 is 440 Hz, 0 a rest) and seconds.
%   PHRASES    1 x tunes cell array; each a row: the notes that begin a phrase, from 1.

function [names, notes, phrases] = readTunes (file = fullfile (fileparts (mfilename ("fullpath")), "tunes.tsv"))
  lines = strsplit (strtrim (fileread (file)), "\n")(2:end);
  fields = cellfun (@(line) strsplit (line, "\t"), lines, "UniformOutput", false);
  names = cellfun (@(field) field{1}, fields, "UniformOutput", false);
  [notes, phrases] = cellfun (@(field) melody (field{5}, str2double (field{4})), fields, "UniformOutput", false);
end

% Notes and the beginnings of phrases; TEMPO in quarter notes a minute.
function [notes, phrases] = melody (text, tempo)
  words = strsplit (strtrim (text));
  isMark = strcmp (words, "|");
  phrases = (find (isMark) + 1) - (1:sum (isMark));
  parts = cellfun (@(word) strsplit (word, ":"), words(! isMark), "UniformOutput", false);
  notes = cellfun (@(part) [semitone(part{1}), 60 / tempo * str2double(part{2})], parts, "UniformOutput", false);
  notes = cell2mat (notes');
end

% C4, F#4, Bb3 or, for a rest, r.
function pitch = semitone (name)
  if (strcmp (name, "r"))
    pitch = 0;
    return
  end
  steps = [9, 11, 0, 2, 4, 5, 7];  % of A to G above C
  octave = str2double (name(end));
  pitch = 12 * (octave + 1) + steps(name(1) - "A" + 1) + sum (name == "#") - sum (name == "b");
end
