"""Loads a recording, tracks its pitch, tells about it and draws it.

    python3 examples/python/pitchOfRecording.py [RECORDING [PICTURE]]

Needs the packages soundfile and matplotlib beside wavepitch."""

# %% The recording: samples from -1 to 1, one channel
import pathlib
import sys

import matplotlib
import numpy as np
import soundfile
import wavepitch

matplotlib.use("Agg")
recording = sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[1] / "reading16k.wav"
picture = sys.argv[2] if len(sys.argv) > 2 else "pitchOfRecording.png"
wave, fs = soundfile.read(recording, always_2d=True)
wave = wave[:, 0]

# %% Its pitch, and where it is voiced
track = wavepitch.wave2f0(wave, fs, minF0=60, maxF0=400)
voiced = track.f0 > 0
print(f"{len(wave) / fs:.2f} s, {voiced.mean():.0%} of the frames voiced, in {len(track.segments)} segments")
print(f"median {np.median(track.f0[voiced]):.1f} Hz, "
      f"middle half {np.percentile(track.f0[voiced], 25):.1f} to {np.percentile(track.f0[voiced], 75):.1f} Hz")

# %% The longest voiced segment; samples count from 1
first, last = max(track.segments.astype(int), key=lambda segment: segment[1] - segment[0])
excerpt = wave[first - 1:last]
print(f"longest segment: {first / fs:.2f} s to {last / fs:.2f} s, "
      f"volume {wavepitch.wave2volume(excerpt, fs).volume.mean():.0f}")

# %% Any class of samples gives the same bits
same = wavepitch.wave2f0(np.int16(wave * 32768), fs, minF0=60, maxF0=400)
print("int16 gives the same bits:", np.array_equal(track.f0, same.f0))

# %% The picture
figure = wavepitch.plot("wave2f0", wave, fs, minF0=60, maxF0=400)
figure.set_size_inches(10, 6)
figure.axes[0].set_title("Fundamental frequency over the spectrogram")
figure.savefig(picture, bbox_inches="tight")
print(picture)
