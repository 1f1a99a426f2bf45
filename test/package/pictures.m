% What the functions draw when nobody asks for an output is what they hand out.

1;

function axes = drawn (varargin)  % the axes of a picture from top to bottom, without colour bars
  clf
  fprintf (stderr, "%s\n", strjoin (varargin(cellfun (@ischar, varargin))));  % a failure stands below the name of its picture
  feval (varargin{:});
  assert (! exist ("ans", "var"));
  axes = flipud (findobj (gcf (), "type", "axes", "tag", ""));
end

function assertLine (axes, number, x, y)  % the line of that number, in the order of drawing
  lines = flipud (findobj (axes, "type", "line"));
  assert (get (lines(number), {"xdata", "ydata"}), {x(:)', y(:)'}, 1e-12);
end

function assertImage (axes, x, y, values)
  image = findobj (axes, "type", "image");
  assert (get (image, {"xdata", "ydata", "cdata"}), {x([1, end])(:)', y([1, end])(:)', values}, 1e-9);
  assert (get (get (image, "parent"), "ydir"), "normal");
end

function values = withGaps (values)
  values(values == 0) = NaN;
end

figure ("visible", "off");
fs = 8000;
wave = [zeros(1, 4000), note2wave([60, 64], [0.4, 0.4], fs), zeros(1, 4000)];
duration = numel (wave) / fs;

for curve = {"wave2volume", "wave2zcr", "wave2ashod"}
  axes = drawn (curve{1}, wave, fs);
  [values, time] = feval (curve{1}, wave, fs);
  assertLine (axes(2), 1, time, values);
end

axes = drawn ("endPoints", wave, fs, "twoThreshold");
[segments, values, threshold, time] = endPoints (wave, fs, "twoThreshold");
ends = (segments - 1) / fs;
height = 0.84 * [-1, 1];
assertLine (axes(1), 1, (0:numel (wave) - 1) / fs, wave);
assertLine (axes(2), 1, time, values);
for i = [1, 2]
  assertLine (axes(1), i + 1, ends([i, i]), height);
  assertLine (axes(2), i + 1, [0, duration], threshold([i, i]));
end

for unit = {"semitone", "hz"}
  axes = drawn ("wave2pitch", wave, fs, "unit", "Hz", "Unit", unit{1});  % the last of two counts
  [pitch, time, ~, pfMat] = wave2pitch (wave, fs, "unit", unit{1});
  lags = (0:rows (pfMat) - 1) * 1000 / fs;
  assertImage (axes(2), time, lags, pfMat ./ max (max (abs (pfMat)), realmin));
  assertLine (axes(2), 1, time, 1000 ./ wave2pitch (wave, fs, "unit", "Hz"));
  assertLine (axes(3), 1, time, withGaps (pitch));
  [f0, time] = wave2f0 (wave, fs);
  axes = drawn ("wave2f0", wave, fs, "unit", unit{1});
  assertLine (axes(2), 1, time, withGaps (f0 / 1000));
end
assertLine (drawn ("wave2f0", wave, fs)(2), 1, time, withGaps (f0 / 1000));

axes = drawn ("absSpectrogram", wave, fs);
[magnitude, frequency, time] = absSpectrogram (wave, fs);
dB = 20 * log10 (max (magnitude, realmin));
assertImage (axes, time, frequency / 1000, dB);
assert (caxis (axes), max (dB(:)) - [80, 0]);
[~, cut] = uvCut (wave, fs);
assertLine (drawn ("uvCut", wave, fs), 1, [cut, cut], [0, 4]);
pfMat = wave2pfMat (wave, 256, 0, 100, "acf", 1);
assertImage (drawn ("wave2pfMat", wave, 256, 0, 100, "acf", 1), 1:columns (pfMat), 0:99, pfMat);

sounds = {  % rate of what comes out, function and arguments
  1, {"waveFilter", 1, 1, wave}
  fs, {"waveEcho", wave, fs, 0.1, 0.5}
  4000, {"waveResample", wave, fs, 4000}
  4000, {"pitch2wave", [60, 62], 4, 4000}
  4000, {"note2wave", [60, 62], [1, 1], 4000}};
for sound = sounds'
  [rate, call] = sound{:};
  out = feval (call{:});
  assertLine (drawn (call{:}), 1, (0:numel (out) - 1) / rate, out);
end

pv = wave2pv (wave, fs);
assertLine (drawn ("wave2pv", wave, fs), 1, (0:numel (pv) - 1) * 0.032, withGaps (pv / 10));
assertLine (drawn ("note2pv", [60, 0], [0.1, 0.1], 0.05), 1, [0, 0.05, 0.1, 0.15], [60, 60, NaN, NaN]);
tune = [0, 0, 60, 61, 62, 63, 65];
call = {"findTune", [0, 57, 60], {[50, 70, 50, 70], tune}, "frameRate", 2, "resolution", 1, "lowerRatio", 2};
axes = drawn (call{:});
assertLine (axes(1), 2, [1, 2], [60, 63]);
assert (get (findobj (axes(2), "type", "text"), "string"), {"tune 1"; "tune 2"});
assert (get (findobj (axes(2), "type", "hggroup"), "ydata")(1) < 1);
drawn ("findTune", 0, {tune});
for silent = {"wave2pitch", "wave2f0", "absSpectrogram"}  % nothing to draw is drawn as well
  drawn (silent{1}, [0, 0], fs);
end
