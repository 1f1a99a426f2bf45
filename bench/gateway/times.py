"""How long calls take in Python for a minute of speech at 16 kHz: libraryTimes' lines, of an operation and the class
of the samples, answered in its way, and its operations.  Argument: the recording."""

import sys
import time

import numpy as np
import soundfile
import wavepitch

short, fs = soundfile.read(sys.argv[1], dtype="int16")
short = np.resize(short, 60 * fs)
waves = {"int16": short, "double": short / 32768}
framing = {"frameSize": 512, "overlap": 256}
options = {"wave2pitch-acf": {"pfType": "acf"}, "wave2pitch-amdf": {"pfType": "amdf"}, "wave2f0": {},
           "endPoints-volumeHod": {"method": "volumeHod"}, "wave2volume": framing, "absSpectrogram": framing}

for line in sys.stdin:
    name, samples = line.split()
    function = getattr(wavepitch, name.split("-")[0])
    start = time.perf_counter()
    function(waves[samples], fs, nout=1, **options[name])  # what the library computes alone
    print(1000 * (time.perf_counter() - start), flush=True)
