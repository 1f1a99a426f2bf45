"""The trackers that are compared: each takes recordings and gives a track for every one, and the time that it took.

All search 60 to 800 Hz in steps of 10 ms where they can be told to, and are at their defaults otherwise. Time is
processor time: that of the call alone for the library, that of the whole process for the others, reading and writing
files included.
"""

import resource
import shutil
import subprocess
from dataclasses import dataclass
from pathlib import Path

import numpy as np
import soundfile

lowest = 60  # Hz; libraryTrackers.cpp says the same
highest = 800
step = 0.01  # seconds


@dataclass(frozen=True)
class Track:
    times: np.ndarray  # seconds of the frames
    hertz: np.ndarray  # 0 where there is no pitch


def output(*command, **options):
    """What a program writes, and its processor time in seconds. Callers run one program at a time."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    written = subprocess.run(command, stdout=subprocess.PIPE, check=True, **options).stdout
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return written, after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime


def uniform(first, interval, hertz):
    return Track(first + interval * np.arange(len(hertz)), hertz)


class Library:
    """One of the library's own, by the program libraryTrackers."""

    def __init__(self, program, name):
        self.program, self.name, self.source = program, name, "wavepitch"

    def __call__(self, folder):
        paths = sorted(folder.glob("*.wav"))
        text, _ = output(self.program, self.name, *paths)
        tracks, time = {}, 0.0
        for path, block in zip(paths, text.decode().split("#")[1:]):
            head, _, body = block.partition("\n")
            time += float(head)
            rows = np.array(body.split(), float).reshape(-1, 2)
            tracks[path.stem] = Track(rows[:, 0], rows[:, 1])
        return tracks, time


class Praat:
    """P. Boersma's autocorrelation (1993); one process for all recordings of a folder."""

    name, source, program = "To Pitch (ac)", "praat", "praat"

    def __call__(self, folder):
        script = Path(__file__).with_name("pitch.praat")
        text, time = output("praat", "--run", script, folder, str(lowest), str(highest))
        tracks = {}
        lines = text.decode().splitlines()
        for head, values in zip(lines[::2], lines[1::2]):
            name, first, interval = head.rsplit(" ", 2)
            hertz = np.array(values.replace("--undefined--", "0").split(), float)
            tracks[Path(name).stem] = uniform(float(first), float(interval), hertz)
        return tracks, time


class Each:
    """A program that is run once for each recording."""

    def __call__(self, folder):
        tracks, total = {}, 0.0
        for path in sorted(folder.glob("*.wav")):
            tracks[path.stem], time = self.track(path)
            total += time
        return tracks, total


class Sptk(Each):
    """RAPT (D. Talkin, 1995) or SWIPE' (A. Camacho, J. Harris, 2008) of SPTK. It does not say which instants its frames
    stand for; the first is placed, to the millisecond, where the fine error on the clean voices is least."""

    source, program = "sptk", "sptk"

    def __init__(self, algorithm, name, first):
        self.algorithm, self.name, self.first = algorithm, name, first

    def track(self, path):
        samples, rate = soundfile.read(path, dtype="int16")
        home = subprocess.run(["sptk", "path"], stdout=subprocess.PIPE, check=True, text=True).stdout.strip()
        options = {"a": self.algorithm, "s": rate / 1000, "p": round(step * rate), "L": lowest, "H": highest, "o": 1}
        words = [word for key, value in options.items() for word in (f"-{key}", str(value))]
        written, time = output(f"{home}/pitch", *words, input=samples.astype("<f4").tobytes())
        return uniform(self.first, step, np.frombuffer(written, "<f4").astype(float)), time


class Aubio(Each):
    """aubio's default, yinfft (P. Brossier, 2006), in frames of 64 ms: its default of 2048 samples is meant for
    44.1 kHz. It searches no settable range."""

    name, source, program = "yinfft", "aubio", "aubiopitch"

    def track(self, path):
        rate = soundfile.info(path).samplerate
        size, hop = round(0.064 * rate), round(step * rate)
        text, time = output("aubiopitch", "-i", path, "-B", str(size), "-H", str(hop))
        hertz = np.array(text.split(), float).reshape(-1, 2)[:, 1]
        return uniform((hop - size / 2) / rate, step, hertz), time  # a frame ends with its hop


peers = [Praat(), Sptk(0, "RAPT", 0.005), Sptk(1, "SWIPE'", -0.002), Aubio()]


def present(program):
    """The library's trackers as the program names them, and the others that are installed."""
    own = subprocess.run([program], stdout=subprocess.PIPE, check=True, text=True).stdout.split()
    return [Library(program, name) for name in own] + [peer for peer in peers if shutil.which(peer.program)]
