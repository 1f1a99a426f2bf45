"""What the border between Python and the library costs for a minute of speech at 16 kHz: the time of each call in
Python, that of the library alone, and the difference as a share of the latter.  Medians of rounds in which the two
take turns.  Arguments: the program libraryTimes, the recording."""

import subprocess
import sys
import time

import numpy as np
import soundfile
import wavepitch

rounds = 7
program, recording = sys.argv[1:]
wave, fs = soundfile.read(recording, dtype="int16")
wave = np.resize(wave, 60 * fs)
unit = wave / 32768
framing = {"frameSize": 512, "overlap": 256}
calls = {"wave2pitch-acf": (5, {"pfType": "acf"}), "wave2pitch-amdf": (9, {"pfType": "amdf"}), "wave2f0": (5, {}),
         "endPoints-volumeHod": (31, {"method": "volumeHod"}), "wave2volume": (31, framing),
         "absSpectrogram": (15, framing)}


def milliseconds(name, samples):
    times, options = calls[name]
    function = getattr(wavepitch, name.split("-")[0])
    taken = []
    for _ in range(times):
        start = time.perf_counter()
        function(samples, fs, nout=1, **options)  # what the library computes alone
        taken.append(1000 * (time.perf_counter() - start))
    return np.median(taken)


library, host = [], []
for _ in range(rounds):
    told = dict(line.split() for line in subprocess.check_output([program], text=True).splitlines())
    library.append([float(told[name]) for name in calls])
    host.append([[milliseconds(name, samples) for samples in (unit, wave)] for name in calls])
library, host = np.median(library, axis=0), np.median(host, axis=0)
print(f"{'a minute at 16 kHz':20} {'library, ms':>12} {'float64, ms (border)':>24} {'int16, ms (border)':>24}")
for name, alone, (doubles, shorts) in zip(calls, library, host):
    print(f"{name:20} {alone:12.2f} {doubles:14.2f} ({100 * doubles / alone - 100:6.1f}%) "
          f"{shorts:14.2f} ({100 * shorts / alone - 100:6.1f}%)")
