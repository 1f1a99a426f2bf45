"""The recordings of examples/voices and their exact pitch."""

from dataclasses import dataclass
from pathlib import Path

import numpy as np
import soundfile

folder = Path(__file__).resolve().parents[2] / "examples" / "voices"


@dataclass(frozen=True)
class Voice:
    name: str
    samples: np.ndarray  # from -1 to 1
    rate: int
    times: np.ndarray  # seconds of the frames of the truth
    truth: np.ndarray  # Hz; 0 unvoiced, -1 not to be scored


def names():
    return sorted(path.stem for path in folder.glob("*.flac"))


def load(name):
    samples, rate = soundfile.read(folder / f"{name}.flac")
    times, truth = np.loadtxt(folder / f"{name}.f0", unpack=True)
    return Voice(name, samples, rate, times, truth)


def totals():
    """How many recordings there are, and how many seconds."""
    infos = [soundfile.info(folder / f"{name}.flac") for name in names()]
    return len(infos), sum(info.frames / info.samplerate for info in infos)
