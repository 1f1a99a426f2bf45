"""How far the tracks of a tracker are from the truth."""

import numpy as np

grossRatio = 0.2
frameStep = 0.01  # seconds: a frame farther away than this says nothing about an instant


def onGrid(times, track):
    """A track at the times of the truth, Hz. The nearest frame decides on voicing; where the frames on both sides are
    voiced and within 20 % of each other, the frequency lies on the line between their logarithms, elsewhere it is that
    of the nearest. Beyond the frames of the track there is no pitch."""
    if len(track.times) < 2:
        return np.zeros_like(times)
    after = np.clip(np.searchsorted(track.times, times), 1, len(track.times) - 1)
    before = after - 1
    share = np.clip((times - track.times[before]) / (track.times[after] - track.times[before]), 0, 1)
    nearest = np.where(share < 0.5, before, after)
    low, high = track.hertz[before], track.hertz[after]
    between = (low > 0) & (high > 0) & (np.abs(high - low) < grossRatio * low)
    logLow, logHigh = (np.log(np.where(between, hertz, 1)) for hertz in (low, high))
    found = np.where(between, np.exp(logLow + share * (logHigh - logLow)), track.hertz[nearest])
    far = np.abs(times - track.times[nearest]) > frameStep
    return np.where(far, 0, found)


def percent(errors, among):
    return 100 * np.count_nonzero(errors & among) / max(1, np.count_nonzero(among))


def measures(truth, found):
    """The measures over the frames of all recordings; every share in %.

    gross             voiced in both, and off by more than 20 %; share of the frames voiced in both
    octave            those of them that are within 20 % of half or double the truth
    voicedToUnvoiced  share of the voiced frames called unvoiced
    unvoicedToVoiced  share of the unvoiced frames called voiced
    voicing           frames wrong in either way, share of all
    fine              standard deviation of the error in cents, over the frames voiced in both without gross error
    """
    scored = truth >= 0
    voiced = scored & (truth > 0)
    unvoiced = scored & (truth == 0)
    both = voiced & (found > 0)
    ratio = np.where(both, found, 1) / np.where(both, truth, 1)
    gross = np.abs(ratio - 1) > grossRatio
    octave = (np.abs(ratio / 2 - 1) < grossRatio) | (np.abs(ratio * 2 - 1) < grossRatio)
    fine = 1200 * np.log2(ratio[both & ~gross])
    wrong = (voiced & (found <= 0)) | (unvoiced & (found > 0))
    return {
        "gross": percent(gross, both),
        "octave": percent(octave, both),
        "voicedToUnvoiced": percent(found <= 0, voiced),
        "unvoicedToVoiced": percent(found > 0, unvoiced),
        "voicing": percent(wrong, scored),
        "fine": float(np.std(fine)) if len(fine) else float("nan"),
    }
