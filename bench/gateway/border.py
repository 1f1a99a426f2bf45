"""What the border between Python and the library costs for a minute of speech at 16 kHz: the time of each call in
Python, that of the library alone, and the difference as a share of the latter.  Medians of calls that take turns, the
second of two each, as the first finds other data in the caches.  Arguments: the program libraryTimes, the
recording."""

import subprocess
import sys
import time

import numpy as np
import soundfile
import wavepitch

turns = 31
program, recording = sys.argv[1:]
wave, fs = soundfile.read(recording, dtype="int16")
wave = np.resize(wave, 60 * fs)
unit = wave / 32768
framing = {"frameSize": 512, "overlap": 256}
calls = {"wave2pitch-acf": {"pfType": "acf"}, "wave2pitch-amdf": {"pfType": "amdf"}, "wave2f0": {},
         "endPoints-volumeHod": {"method": "volumeHod"}, "wave2volume": framing, "absSpectrogram": framing}
library = subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, bufsize=1)


def inLibrary(name):
    library.stdin.write(f"{name}\n")
    return float(library.stdout.readline())


def inPython(name, samples):
    function = getattr(wavepitch, name.split("-")[0])
    start = time.perf_counter()
    function(samples, fs, nout=1, **calls[name])  # what the library computes alone
    return 1000 * (time.perf_counter() - start)


def second(time, *arguments):
    time(*arguments)
    return time(*arguments)


print(f"{'a minute at 16 kHz':20} {'library, ms':>12} {'float64, ms (border)':>24} {'int16, ms (border)':>24}")
for name in calls:
    times = [(second(inLibrary, name), second(inPython, name, unit), second(inPython, name, wave))
             for _ in range(turns)]
    alone, doubles, shorts = np.median(times, axis=0)
    print(f"{name:20} {alone:12.2f} {doubles:14.2f} ({100 * doubles / alone - 100:6.1f}%) "
          f"{shorts:14.2f} ({100 * shorts / alone - 100:6.1f}%)")
