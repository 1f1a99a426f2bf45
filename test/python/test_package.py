# The package in Python: the calls and the bad values that every host's tests read, and what is Python's own.
import json
import os
import pathlib
import re
import subprocess
import threading
import time
from _thread import interrupt_main
from concurrent.futures import ThreadPoolExecutor

import numpy as np
import pytest
import soundfile
import wavepitch
from matplotlib.figure import Figure

root = pathlib.Path(__file__).parents[2]
calls, bad = (json.loads((root / f"test/package/{name}.json").read_text()) for name in ("calls", "badCalls"))
byName = {call["name"]: call for call in calls}
kinds = {kind["name"]: kind for kind in bad["kinds"]}

recording = root / "examples/speech8k.wav"
wave = soundfile.read(recording)[0]
shorts = np.int16(wave * 32768)
forms = {"int16": shorts, "int32": shorts * np.int32(65536), "float32": np.float32(wave), "swapped": wave.astype(">f8"),
         "strided": np.repeat(wave, 2)[::2], "read-only column": np.broadcast_to(wave[:, None], (wave.size, 1)),
         "list": list(wave)}
named = {"wave": wave, "double": wave, "int16": shorts, "fs": 8000, "usualSize": 256, "usualOverlap": 128,
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
    outputs = vars(results).values() if hasattr(results, "__dict__") else [results]
    return [np.asarray(value, float).tobytes("A") for value in outputs if isinstance(value, (np.ndarray, float))]


def outcome(call):
    try:
        return bits(result(call))
    except (TypeError, ValueError) as refusal:
        return str(refusal)


def test_resultsHaveTheBitsOfTheLibrary(tmp_path):
    subprocess.run([os.environ["REFERENCE"], recording.name, tmp_path], check=True)
    for call in calls:
        got = b"".join(bits(result(call)))
        for number in call["reference"]:
            output = tmp_path / f"{call['name']}.{number}"
            assert output.read_bytes() in got, output


@pytest.mark.parametrize("form", forms)
def test_formOfSamplesChangesNoBit(form, monkeypatch):
    want = [bits(result(call)) for call in calls]
    monkeypatch.setitem(named, "wave", forms[form])
    for call, expected in zip(calls, want):
        assert bits(result(call)) == expected, call["name"]


def badValues(kind):
    return kinds[kind]["values"] + badValues(kinds[kind]["like"]) if kind else []


@pytest.mark.parametrize("row", bad["parameters"], ids=str)
def test_badValuesAreRefusedByName(row):
    call, parameter = byName[row["call"]], row["parameter"]
    for value in badValues(row["kind"]) + row["refused"]:
        message = outcome(withValue(call, parameter, value))
        assert re.match(f"{call['command']}: .*\\b{parameter.upper()}\\b", str(message)), value
    for value in row["accepted"]:
        assert isinstance(outcome(withValue(call, parameter, value)), list), value


@pytest.mark.parametrize("kind, text, call", [
    (ValueError, "^wave2f0: usage is", lambda: wavepitch.wave2f0(wave, 8000, nout=7)),
    (TypeError, "^wave2f0: WAVE must be", lambda: wavepitch.wave2f0(wave * 1j, 8000)),
    (ValueError, "^wave2f0: UNIT must be", lambda: wavepitch.wave2f0(wave, 8000, unit="\udcff")),
    (ValueError, "finite", lambda: wavepitch.wave2f0(np.ma.masked_equal(wave, 0), 8000)),
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
    assert wavepitch.findTune([60, 61], [[60, 61]]).details.name == ["tune 1"]
    assert wavepitch.setCover([[1, 2, 0], [3, 4, 5]]).chosen.tolist() == [2, 1]


def test_threadsComputeWhatOneDoes():
    mixed = [withValue(call, "WAVE", value) for call in calls for value in ("$wave", "$matrix")]
    with ThreadPoolExecutor(4) as threads:
        assert list(threads.map(outcome, mixed)) == list(map(outcome, mixed))


def test_anotherThreadInterruptsACall():
    threading.Timer(0.1, interrupt_main).start()
    start = time.monotonic()
    with pytest.raises(KeyboardInterrupt):
        wavepitch.wave2pfMat(wave, 20000, 19900, 20000, 1, 1)
    assert time.monotonic() < start + 1.1


def test_repeatedCallsLeaveNoMemory():
    pages = []
    for times in (100, 5000):
        for value in ["$wave", "$matrix"] * times:
            outcome(withValue(byName["waveEcho"], "WAVE", value))
        pages.append(int(pathlib.Path("/proc/self/statm").read_text().split()[1]))
    assert pages[1] < pages[0] + 5000


def test_picturesShowTheResults():
    for call in calls:
        if "draws" in getattr(wavepitch, call["command"]).__doc__:
            picture = wavepitch.plot(call["command"], *withNamed(call["inputs"]).values(), figure=Figure())
            assert picture.axes, call["name"]
    f0, times = wavepitch.wave2f0(wave, 8000, nout=2)
    curve = wavepitch.plot("wave2f0", wave, 8000, figure=Figure()).axes[1].lines[0].get_xydata().T
    assert np.array_equal(curve, [times, np.where(f0 > 0, f0 / 1000, np.nan)], equal_nan=True)
