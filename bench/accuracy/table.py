"""The results as a page of Markdown."""

columns = {
    "gross": "gross, %",
    "octave": "octave, %",
    "voicedToUnvoiced": "voiced to unvoiced, %",
    "unvoicedToVoiced": "unvoiced to voiced, %",
    "voicing": "voicing, %",
    "fine": "fine, cents",
}

opening = """# Accuracy

How far pitch trackers are from the truth: the library's, and others that Debian has. This page is written by

```sh
./dev accuracy --table docs/accuracy.md
```

**The voices** are the {count} recordings of [examples/voices](../examples/voices/README.md), {seconds:.0f} s of vocoded
speech: a vocoder took apart three real recordings and put them together again with contours of our own, which are the
truth. It counts soft voicing as voiced, and frames near a border of voicing are not scored: voicing errors compare
trackers here, and are no ground to tune a threshold on.

**The conditions** are made at 16 kHz and then resampled, so that both rates hear the same sound. The level of noise is
relative to the mean power of the recording where the truth is voiced, what lies below 4 kHz counting in both; noise is
seeded by the name of the recording. Brown noise falls by 6 dB an octave from 20 Hz on. The telephone is a band of 300
to 3400 Hz.

**The trackers** search 60 to 800 Hz every 10 ms where they can be told to (aubio cannot be told a range) and are at
their defaults otherwise; only aubio's frames are 64 ms, since its default of 2048 samples is meant for 44.1 kHz. A
track is brought to the frames of the truth by its own times: the nearest frame decides on voicing, and between two
voiced frames the logarithm of the frequency is interpolated. SPTK does not say which instants its frames stand for;
they are placed, to the millisecond, where the fine error on the clean voices is least.

**The measures**, over the frames of all recordings:

- gross: off by more than 20 %; of the frames that are voiced in the truth and in the track.
- octave: those among them that are within 20 % of half or double the truth.
- voiced to unvoiced, unvoiced to voiced: of the voiced, and of the unvoiced frames.
- voicing: the frames wrong in either way, of all frames.
- fine: the standard deviation, in cents, of the frames voiced in both and without gross error.

**Times real time** is the length of the recordings by the processor time taken on one core, clean, the median of three
runs with nothing beside them. For the library it is the time of the calls alone; for the others that of the whole
process, start and files included (praat: one process for all recordings; sptk, aubio: one for each recording).
"""


def row(cells):
    return "| " + " | ".join(cells) + " |"


def grid(head, rows):
    return "\n".join([row(head), row(["---"] + ["--:"] * (len(head) - 1)), *map(row, rows)]) + "\n"


def brief(result):
    return f"{result['gross']:.2f} / {result['fine']:.1f} / {result['voicing']:.1f}"


def full(result):
    return [f"{result[key]:.1f}" if key == "fine" else f"{result[key]:.2f}" for key in columns]


def page(results, times, sources, rates, conditions, totals):
    """results[tracker, rate, condition] holds the measures, times[tracker, rate] the seconds for all recordings,
    sources[tracker] what the tracker is part of, totals the number of recordings and their seconds."""
    count, seconds = totals
    parts = [opening.format(count=count, seconds=seconds)]
    for rate in rates:
        parts.append(f"## {rate // 1000} kHz: gross (%) / fine (cents) / voicing (%)\n")
        rows = []
        for name, source in sources.items():
            cells = [brief(results[name, rate, condition]) for condition in conditions]
            rows.append([f"{name} ({source})", *cells, f"{seconds / max(times[name, rate], 1e-9):.0f}"])
        parts.append(grid(["tracker", *conditions, "times real time"], rows))
    for rate in rates:
        for condition in conditions:
            parts.append(f"## {rate // 1000} kHz, {condition}\n")
            rows = [[name, *full(results[name, rate, condition])] for name in sources]
            parts.append(grid(["tracker", *columns.values()], rows))
    return "\n".join(parts)
