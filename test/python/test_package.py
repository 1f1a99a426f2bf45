# The package in Python: the calls and the bad values that every host's tests read, and what is Python's own.
import json
import os
import pathlib
import re
import subprocess
import time
from concurrent.futures import ThreadPoolExecutor

import numpy as np
import pytest
import soundfile
import wavepitch
from matplotlib.figure import Figure

root = pathlib.Path(__file__).parents[2]
calls = json.loads((root / "test/package/calls.json").read_text())
bad = json.loads((root / "test/package/badCalls.json").read_text())
byName = {call["name"]: call for call in calls}
kinds = {kind["name"]: kind for kind in bad["kinds"]}

recording = root / "examples/speech8k.wav"
wave = soundfile.read(recording)[0]
shorts = soundfile.read(recording, dtype="int16")[0]
forms = {"int16": shorts, "int32": shorts * np.int32(65536), "float32": np.float32(wave), "swapped": wave.astype(">f8"),
         "strided": np.repeat(wave, 2)[::2], "read-only": np.broadcast_to(wave, wave.shape),
         "column": wave[:, None], "list": list(wave)}
named = {"wave": wave, "double": wave, "int16": wave, "fs": 8000, "usualSize": 256, "usualOverlap": 128,
         "belowUsualSize": 255, "aboveUsualSize": 257, "cell": [[1], [1, "x"]], "handle": print, "complex": 1j,
         "sparse": object(), "int64": np.float16(1), "cube": np.ones((2, 2, 2)), "uint16": np.uint16([1, 2]),
         "uint32": np.uint32([1]), "loud": [0, 1.1], "matrix": np.ones((2, 2)), "rows": np.array(["volume", "handse"]),
         "folder": root}


def withNamed(values):
    return {key: named[value[1:]] if str(value).startswith("$") else value for key, value in values.items()}


def withValue(call, parameter, value):
    part = "inputs" if parameter in call["inputs"] else "options"
    return call | {part: call[part] | {parameter: value}}


def result(call):
    inputs = withNamed(call["inputs"]).values()
    return getattr(wavepitch, call["command"])(*inputs, nout=call["outputs"], **withNamed(call["options"]))


def bits(results):  # numbers in the order of memory, which is the host's: column after column
    outputs = results if isinstance(results, tuple) else [results]
    return [np.asarray(value, float).tobytes("A") for value in outputs if isinstance(value, (np.ndarray, float))]


def outcome(call):
    try:
        return bits(result(call))
    except (TypeError, ValueError) as refusal:
        return str(refusal)


def word(value, folder):  # an argument as mexhost reads it
    if value is wave:
        return recording
    if isinstance(value, list):
        table = folder / f"{len(os.listdir(folder))}.csv"
        np.savetxt(table, np.atleast_2d(value), delimiter=",")
        return table
    return float(value) if isinstance(value, bool) else value


@pytest.mark.parametrize("call", [call for call in calls if call["command"] != "findTune"], ids=lambda c: c["name"])
def test_resultsHaveTheBitsOfMexhost(call, tmp_path):
    results = bits(result(call))
    values = [*withNamed(call["inputs"]).values(), *sum(withNamed(call["options"]).items(), ())]
    words = [call["command"], *(str(word(value, tmp_path)) for value in values), f"--out={call['outputs']}"]
    files = [tmp_path / f"output{i}" for i in range(len(results))]
    subprocess.run(os.environ["MEXHOST"].split() + words + [f"--csv={file}" for file in files], check=True)
    for file, got in zip(files, results):
        assert got == np.loadtxt(file, delimiter=",", ndmin=2).T.tobytes(), file


@pytest.mark.parametrize("form", forms)
def test_formOfSamplesChangesNoBit(form, monkeypatch):
    want = [bits(result(call)) for call in calls]
    monkeypatch.setitem(named, "wave", forms[form])
    for call, expected in zip(calls, want):
        assert bits(result(call)) == expected, call["name"]


def badValues(kind):
    return kinds[kind]["values"] + badValues(kinds[kind]["like"]) if kind else []


@pytest.mark.parametrize("row", bad["parameters"], ids=lambda row: f"{row['call']} {row['parameter']}")
def test_badValuesAreRefusedByName(row):
    call = byName[row["call"]]
    for value in badValues(row["kind"]) + row["refused"]:
        message = outcome(withValue(call, row["parameter"], value))
        assert re.match(f"{call['command']}: .*\\b{row['parameter'].upper()}\\b", str(message)), value
    for value in row["accepted"]:
        assert isinstance(outcome(withValue(call, row["parameter"], value)), list), value


@pytest.mark.parametrize("kind, text, call", [
    (ValueError, "^wave2f0: usage is", lambda: wavepitch.wave2f0(wave, 8000, nout=7)),
    (TypeError, "^wave2f0: WAVE must be", lambda: wavepitch.wave2f0(wave * 1j, 8000)),
    (TypeError, "nbits is wanted before volTh", lambda: wavepitch.isWaveSilence(wave, 8000, volTh=1))])
def test_refusalsAreExceptionsOfPython(kind, text, call):
    with pytest.raises(kind, match=text):
        call()


def test_consoleIsWarningsAndLog(tmp_path, caplog):
    caplog.set_level("INFO")
    file = tmp_path / "short.prm"
    file.write_text("frameSize=200")
    with pytest.warns(UserWarning, match="^ptParam: frameSize too small") as warned:
        wavepitch.ptParam(8000, 16, 0, file)
    assert warned[0].filename == __file__
    wavepitch.note2pv([60], [1], 0.5)
    assert caplog.messages == ["note2pv: noteCumulatedTime=1.000000"]


def test_stubsTellEveryParameter():
    stubs = pathlib.Path(wavepitch.__file__).with_suffix(".pyi").read_text()
    for row in bad["parameters"]:
        command = byName[row["call"]]["command"]
        assert re.search(rf"def {command}\(.*\b{row['parameter']}: ", stubs, re.IGNORECASE), row


def test_shapesAreThoseOfNumpy():
    found = wavepitch.wave2f0(wave, 8000, nout=6)
    frames = len(found.f0)
    assert [value.shape for value in found[2:]] == [(frames,), (len(found.segments), 2), (frames, 127), (127,)]
    assert len(wavepitch.wave2f0(wave, 8000)) == 4
    assert wavepitch.pitch2freq(69) == 440
    assert wavepitch.setCover([[1, 2, 0], [3, 4, 5]]).chosen.tolist() == [2, 1]


def test_threadsComputeWhatOneDoes():
    mixed = [withValue(call, "WAVE", value) for call in calls for value in ("$wave", "$matrix")]
    with ThreadPoolExecutor(4) as threads:
        assert list(threads.map(outcome, mixed)) == list(map(outcome, mixed))


def test_othersRunDuringACall():
    turns = 0
    with ThreadPoolExecutor() as threads:
        call = threads.submit(wavepitch.wave2f0, np.tile(wave, 200), 8000)
        while not call.done():
            time.sleep(0.001)
            turns += 1
    assert turns > 10


def pagesAfter(calls):
    for call in calls:
        outcome(call)
    return int(pathlib.Path("/proc/self/statm").read_text().split()[1])


def test_repeatedCallsLeaveNoMemory():
    both = [byName["waveEcho"], withValue(byName["waveEcho"], "WAVE", "$matrix")]
    before = pagesAfter(both * 100)
    assert pagesAfter(both * 5000) < before + 5000


def test_picturesShowTheResults():
    pictures = {call["name"]: wavepitch.plot(call["command"], *withNamed(call["inputs"]).values(), figure=Figure())
                for call in calls if "draws" in getattr(wavepitch, call["command"]).__doc__}
    assert all(picture.axes for picture in pictures.values())
    f0, times = wavepitch.wave2f0(wave, 8000, nout=2)
    curve = pictures["wave2f0"].axes[1].lines[0].get_xydata().T
    assert np.array_equal(curve, [times, np.where(f0 > 0, f0 / 1000, np.nan)], equal_nan=True)
