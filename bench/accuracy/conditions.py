"""What is done to a recording before it is tracked: noise, the band of a telephone, another rate.

Noise has its level from the mean power of the recording where the truth is voiced. Only what lies below 4 kHz counts,
in both, and conditions are made at the rate of the recording and then resampled: so all rates hear the same sound.
Noise is seeded by the name of the recording: every run hears the same.
"""

import zlib

import numpy as np
from scipy import signal

countedRate = 8000  # Hz: half of it bounds the band whose power counts


def seededNoise(voice):
    return np.random.default_rng(zlib.crc32(voice.name.encode())).standard_normal(len(voice.samples))


def counted(voice, samples):
    return signal.resample_poly(samples, countedRate, voice.rate)


def withNoise(voice, noise, decibels):
    """The recording with noise that much below its voice."""
    samples = counted(voice, voice.samples)
    step = voice.times[1] - voice.times[0]
    nearest = np.rint(np.arange(len(samples)) / countedRate / step).astype(int)
    voiced = voice.truth[np.minimum(nearest, len(voice.truth) - 1)] > 0
    ratio = np.mean(samples[voiced] ** 2) / np.mean(counted(voice, noise) ** 2)
    return voice.samples + noise * np.sqrt(ratio) * 10 ** (-decibels / 20)


def clean(voice):
    return voice.samples


def white20(voice):
    return withNoise(voice, seededNoise(voice), 20)


def white10(voice):
    return withNoise(voice, seededNoise(voice), 10)


def brown10(voice):
    """Noise whose power falls by 6 dB an octave from 20 Hz on and is level below."""
    spectrum = np.fft.rfft(seededNoise(voice))
    frequency = np.fft.rfftfreq(len(voice.samples), 1 / voice.rate)
    noise = np.fft.irfft(spectrum / np.maximum(frequency, 20), len(voice.samples))
    return withNoise(voice, noise, 10)


def telephone(voice):
    """300 to 3400 Hz by a filter of linear phase (+-16 ms, a Hamming window) without delay."""
    taps = signal.firwin(2 * round(0.016 * voice.rate) + 1, [300, 3400], pass_zero=False, fs=voice.rate)
    return signal.fftconvolve(voice.samples, taps, mode="same")


conditions = {
    "clean": clean,
    "white noise, 20 dB": white20,
    "white noise, 10 dB": white10,
    "brown noise, 10 dB": brown10,
    "telephone": telephone,
}


def heard(voice, condition, rate):
    """The samples of a recording under a condition at a rate, -1 to 1."""
    samples = signal.resample_poly(conditions[condition](voice), rate, voice.rate)
    return np.clip(samples, -1, 1 - 2**-15)
