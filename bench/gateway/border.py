"""What the borders of the hosts cost for a minute of speech at 16 kHz: the time of each call in a host as a share of
the library's own, less 1.  Calls take turns, the second of two each, as the first finds other data in the caches; and
the programs begin anew in each round, as one and the same call differs by a tenth from process to process, with where
its memory lies.  Medians of the rounds.

border.py LIBRARYTIMES HOST COMMAND [HOST COMMAND ...]"""

import shlex
import subprocess
import sys

import numpy as np

rounds, turns = 9, 5
operations = "wave2pitch-acf", "wave2pitch-amdf", "wave2f0", "endPoints-volumeHod", "wave2volume", "absSpectrogram"
classes = "double", "int16"


class Program:
    """Answers lines of an operation and a class of samples with milliseconds."""

    def __init__(self, command):
        self.process = subprocess.Popen(shlex.split(command), stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.communicate()

    def time(self, operation, samples):
        for _ in range(2):
            print(operation, samples, file=self.process.stdin, flush=True)
            answer = self.process.stdout.readline()
        return float(answer)


def roundOf(command):
    """Milliseconds of the library and of the host, medians of the turns: operations x (library, a class each)."""
    with Program(sys.argv[1]) as library, Program(command) as host:
        return [np.median([[library.time(operation, "double"), *(host.time(operation, each) for each in classes)]
                           for _ in range(turns)], axis=0) for operation in operations]


for name, command in zip(sys.argv[2::2], sys.argv[3::2]):
    times = np.array([roundOf(command) for _ in range(rounds)])
    borders = np.median(times[:, :, 1:] / times[:, :, :1], axis=0) - 1
    columns = "".join(f"{each + ', ms (border)':>24}" for each in classes)
    print(f"{f'a minute in {name}':22}{'library, ms':>12}{columns}")
    for operation, (alone, *hosts), shares in zip(operations, np.median(times, axis=0), borders):
        cells = "".join(f"{time:14.2f} ({100 * share:6.1f}%)" for time, share in zip(hosts, shares))
        print(f"{operation:22}{alone:12.2f}{cells}")
