"""Scores pitch trackers on examples/voices: accuracy.py PROGRAM [--table FILE]

PROGRAM is libraryTrackers as it was built. Without a file the page goes to the output.
"""

import argparse
import itertools
import os
import statistics
import tempfile
from concurrent.futures import ProcessPoolExecutor
from pathlib import Path

import numpy as np
import soundfile

import score
import table
import trackers
import voices
from conditions import conditions, heard

rates = (8000, 16000)


def folderOf(root, rate, condition):
    return root / f"{rate}-{condition}"


def prepare(root, rate, condition):
    """Writes all recordings as they are heard under a condition."""
    folder = folderOf(root, rate, condition)
    folder.mkdir()
    for name in voices.names():
        samples = heard(voices.load(name), condition, rate)
        soundfile.write(folder / f"{name}.wav", samples, rate, "PCM_16")


def run(tracker, root, rate, condition):
    """The measures of a tracker under a condition."""
    tracks, _ = tracker(folderOf(root, rate, condition))
    known = [voices.load(name) for name in voices.names()]
    truth = np.concatenate([voice.truth for voice in known])
    found = np.concatenate([score.onGrid(voice.times, tracks[voice.name]) for voice in known])
    return score.measures(truth, found)


def timeOf(tracker, root, rate):
    """Seconds for the clean recordings, the median of three runs with nothing beside them."""
    return statistics.median(tracker(folderOf(root, rate, "clean"))[1] for _ in range(3))


def compare(program):
    settings = list(itertools.product(rates, conditions))
    compared = trackers.present(program)
    jobs = [(tracker, rate, condition) for tracker in compared for rate, condition in settings]
    with tempfile.TemporaryDirectory() as name:
        root = Path(name)
        with ProcessPoolExecutor(os.cpu_count()) as pool:
            list(pool.map(prepare, itertools.repeat(root), *zip(*settings)))
            found = [pool.submit(run, tracker, root, rate, condition) for tracker, rate, condition in jobs]
            results = {(job[0].name, *job[1:]): future.result() for job, future in zip(jobs, found)}
        times = {(tracker.name, rate): timeOf(tracker, root, rate) for tracker in compared for rate in rates}
    sources = {tracker.name: tracker.source for tracker in compared}
    return table.page(results, times, sources, rates, conditions, voices.totals())


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description="Scores pitch trackers on examples/voices.")
    parser.add_argument("program", help="libraryTrackers as it was built")
    parser.add_argument("--table", type=Path, metavar="FILE", help="where to write the page")
    arguments = parser.parse_args()
    page = compare(arguments.program)
    if arguments.table:
        arguments.table.write_text(page)
    else:
        print(page, end="")
