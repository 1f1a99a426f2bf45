"""What the package draws of its functions' results, by matplotlib."""

import numpy as np

from ._functions import commands

_blue, _red, _green = "#2b5e8a", "#cc3326", "#1a9933"


def _call(name, *values, **named):
    return commands[name].function(*values, **named)


def _shown(values):
    """What axes can show of values that may be huge."""
    return np.clip(np.ravel(np.asarray(values, float)), -1e300, 1e300)


def _drawWave(axes, wave, fs):
    """The waveform over time in seconds; integer samples keep their own scale."""
    wave = _shown(wave)
    peak = np.nanmax(np.abs(wave), initial=np.finfo(float).eps)
    axes.plot(np.arange(wave.size) / fs, wave, color=_blue, linewidth=0.8)
    axes.set(xlim=(0, wave.size / fs), ylim=(-1.05 * peak, 1.05 * peak), ylabel="Amplitude")


def _drawMatrix(axes, x, y, matrix, **options):
    """The frames of a matrix, each around its x; without one, empty axes."""
    if matrix.size == 0:
        return None
    steps = [(values[-1] - values[0]) / (len(values) - 1) if len(values) > 1 else 1 for values in (x, y)]
    sides = [side for values, step in zip((x, y), steps) for side in (values[0] - step / 2, values[-1] + step / 2)]
    return axes.imshow(matrix.T, aspect="auto", origin="lower", interpolation="nearest", extent=sides, **options)


def _drawSpectrogram(axes, magnitude, frequency, time):
    """Magnitudes in dB, the loudest 80 of them."""
    dB = 20 * np.log10(np.clip(magnitude, np.finfo(float).tiny, np.finfo(float).max))
    top = max(dB.max(initial=-300), -300)
    axes.set(xlabel="Time (s)", ylabel="Frequency (kHz)")
    return _drawMatrix(axes, time, frequency / 1000, dB, vmin=top - 80, vmax=top)


def _drawLevels(axes, time, curve, label, threshold=np.empty(0)):
    axes.plot(time, _shown(curve), color=_blue, linewidth=1.2)
    for level in threshold[threshold < 1e300]:
        axes.axhline(level, color=_red, linestyle="--", linewidth=1.5)
    axes.set(xlabel="Time (s)", ylabel=label)


def _drawPitch(axes, time, pitch, unit):
    axes.plot(time, _withGaps(pitch), ".-", color=_red)
    axes.set(xlabel="Time (s)", ylabel=f"Pitch ({unit})")
    axes.grid(True)


def _withGaps(values):
    return np.where(values == 0, np.nan, values)


def _f0(figure, given, options, out):
    wave, fs = given["wave"], given["fs"]
    upper, lower = figure.subplots(2, sharex=True, height_ratios=(1, 2))
    _drawWave(upper, wave, fs)
    f0 = np.copy(out.f0)
    if options.get("unit", "Hz").lower() != "hz":
        f0 = np.where(f0 > 0, 440 * 2 ** ((f0 - 69) / 12), 0)
    frameSize = int(0.04 * fs + 0.5)
    step = max(int(0.005 * fs + 0.5), -(-np.size(wave) // 3000))  # no more columns than can be seen
    magnitude, frequency, time = _call("absSpectrogram", wave, fs, frameSize=frameSize,
                                       overlap=max(0, frameSize - step))
    rows = frequency <= max(1000, 3 * f0.max(initial=0))
    _drawSpectrogram(lower, magnitude[:, rows], frequency[rows], time)
    lower.plot(out.time, _withGaps(f0) / 1000, "r.-", markersize=4)
    lower.set(xlim=upper.get_xlim(), ylim=(0, frequency[rows][-1] / 1000))


def _pitch(figure, given, options, out):
    wave, fs = given["wave"], given["fs"]
    upper, middle, lower = figure.subplots(3, sharex=True)
    _drawWave(upper, wave, fs)
    lags = np.arange(out.pfMat.shape[1]) * 1000 / out.param.fs
    ownLargest = np.maximum(np.abs(out.pfMat).max(axis=1, keepdims=True, initial=0), np.finfo(float).tiny)
    _drawMatrix(middle, out.time, lags, out.pfMat / ownLargest)  # quiet frames show as much as loud ones
    inHz = options.get("unit", "semitone").lower() == "hz"
    frequency = out.pitch if inHz or out.pitch.size == 0 else _call("pitch2freq", out.pitch)
    middle.plot(out.time, 1000 / _withGaps(frequency), "w.", markersize=4)
    middle.set(ylim=lags[[0, -1]], ylabel="Lag (ms)")
    _drawPitch(lower, out.time, out.pitch, "Hz" if inHz else "semitones")
    lower.set_xlim(upper.get_xlim())


def _curve(label):
    def draw(figure, given, options, out):
        upper, lower = figure.subplots(2, sharex=True)
        _drawWave(upper, given["wave"], given["fs"])
        _drawLevels(lower, out[1], out[0], label)
        lower.set_xlim(upper.get_xlim())
    return draw


def _endPoints(figure, given, options, out):
    upper, lower = figure.subplots(2, sharex=True)
    _drawWave(upper, given["wave"], given["fs"])
    for first, last in (out.segments - 1) / given["fs"]:
        upper.axvline(first, color=_green, linewidth=1.5)
        upper.axvline(last, color=_red, linewidth=1.5)
    curve = np.where(out.curve < -1e9, np.nan, out.curve)  # frames of zeros have no decibels
    _drawLevels(lower, out.time, curve, "Detector's curve", out.threshold[out.threshold >= -1e9])
    lower.set_xlim(upper.get_xlim())


def _spectrogram(figure, given, options, out):
    axes = figure.subplots()
    image = _drawSpectrogram(axes, *out)
    if image:
        figure.colorbar(image, label="Magnitude (dB)")


def _uvCut(figure, given, options, out):
    _spectrogram(figure, given, options, _call("absSpectrogram", given["wave"], given["fs"]))
    figure.axes[0].axvline(out.time, color="w", linestyle="--", linewidth=2)


def _pfMat(figure, given, options, out):
    axes = figure.subplots()
    image = _drawMatrix(axes, 1 + np.arange(out.shape[0]), np.arange(out.shape[1]), out)
    axes.set(xlabel="Frame", ylabel="Lag (samples)")
    if image:
        figure.colorbar(image)


def _vector(scale, step):
    def draw(figure, given, options, out):
        _drawPitch(figure.subplots(), np.arange(out.size) * given.get(step, 0.032), out * scale, "semitones")
    return draw


def _sound(rate):
    def draw(figure, given, options, out):
        axes = figure.subplots()
        _drawWave(axes, out, given.get(rate, 1))
        axes.set_xlabel("Time (s)" if rate else "Time (samples)")
    return draw


def _tune(figure, given, options, out):
    """The query over the best tune, stretched and transposed, and the distances of the first ten."""
    if out.distance.size == 0:
        figure.text(0.5, 0.5, "no tune was found", ha="center")
        return
    upper, lower = figure.subplots(2)
    best = {name: values[0] for name, values in vars(out.details).items()}
    query = _withGaps(np.ravel(np.asarray(given["query"], float)))
    sounds = np.flatnonzero(~np.isnan(query))
    query = query[sounds[0]:sounds[-1] + 1] - best["transposition"]
    rate = options.get("framerate", 100)
    for values, step, look in ((best["contour"], 1, {"color": "0.6", "linewidth": 4, "drawstyle": "steps-post"}),
                               (query, best["ratio"], {"color": _red, "linewidth": 1.5})):
        upper.plot(best["position"] + np.arange(len(values)) * step / rate, values, **look)
    upper.set(title=best["name"], ylabel="Pitch (semitones)",
              xlabel=f"Time (s); query {-best['transposition']:+.1f} semitones, {best['ratio']:.2f} times as long")
    shown = min(10, out.distance.size)
    bars = lower.barh(np.arange(1, shown + 1), out.distance[:shown], 0.7, color="#b3cce6")
    lower.bar_label(bars, out.details.name[:shown], label_type="center")
    lower.set(xlabel="Distance", ylabel="Rank", yticks=np.arange(1, shown + 1))
    lower.invert_yaxis()
    figure.tight_layout()


_drawings = {"wave2f0": _f0, "wave2pitch": _pitch, "endPoints": _endPoints, "wave2volume": _curve("Volume"),
             "wave2zcr": _curve("Zero crossings"), "wave2ashod": _curve("ASHOD"), "absSpectrogram": _spectrogram,
             "uvCut": _uvCut, "wave2pfMat": _pfMat, "wave2pv": _vector(0.1, None), "note2pv": _vector(1, "timeStep"),
             "waveFilter": _sound(None), "waveEcho": _sound("fs"), "waveResample": _sound("newFs"),
             "pitch2wave": _sound("fs"), "note2wave": _sound("fs"), "findTune": _tune}


def plot(function, *values, figure=None, **named):
    """Calls a function of the package, or the one of that name, and draws what it finds: the picture that the
    package has of it, in matplotlib's current figure or in the one given.  Returns the figure.

        wavepitch.plot("wave2f0", wave, fs, minF0=75).savefig("f0.png")
    """
    name = getattr(function, "__name__", function)
    if name not in _drawings:
        raise ValueError(f"{name} has no picture; there are those of {', '.join(_drawings)}")
    command = commands[name]
    if figure is None:
        from matplotlib import pyplot
        figure = pyplot.gcf()
    words = command.arranged(values, named)
    pairs = words[len(command.inputs):]
    options = {name.lower(): value for name, value in zip(pairs[::2], pairs[1::2])}
    out = command(words, len(command.shapes))
    figure.clear()
    _drawings[name](figure, dict(zip(command.inputs, words)), options, out)
    return figure
