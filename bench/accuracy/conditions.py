"""What is done to a recording before it is tracked: noise, the band of a telephone, another rate.

Noise has its level from the mean power of the whole recording, pauses included, and is seeded by the name of the
recording: every run hears the same. Conditions are made at the rate of the recording; lower rates are resampled from
that, so that both rates hear the same sound.
"""

import zlib

import numpy as np
from scipy import signal


def seededNoise(voice):
    return np.random.default_rng(zlib.crc32(voice.name.encode())).standard_normal(len(voice.samples))


def atRatio(samples, noise, decibels):
    """Samples with noise that much below their own power."""
    ratio = np.sqrt(np.mean(samples**2) / np.mean(noise**2))
    return samples + noise * ratio * 10 ** (-decibels / 20)


def clean(voice):
    return voice.samples


def white20(voice):
    return atRatio(voice.samples, seededNoise(voice), 20)


def white10(voice):
    return atRatio(voice.samples, seededNoise(voice), 10)


def brown10(voice):
    """Brown noise, its power falling by 6 dB an octave; nothing below 20 Hz, where most of it would lie unheard."""
    spectrum = np.fft.rfft(seededNoise(voice))
    frequency = np.fft.rfftfreq(len(voice.samples), 1 / voice.rate)
    slope = np.where(frequency >= 20, 1 / np.maximum(frequency, 20), 0)
    return atRatio(voice.samples, np.fft.irfft(spectrum * slope, len(voice.samples)), 10)


def telephone(voice):
    """300 to 3400 Hz by a filter of linear phase (+-32 ms, transitions of about 50 Hz) without delay."""
    taps = signal.firwin(2 * round(0.032 * voice.rate) + 1, [300, 3400], pass_zero=False, fs=voice.rate)
    return signal.fftconvolve(voice.samples, taps, mode="same")


conditions = {
    "clean": clean,
    "white noise, 20 dB": white20,
    "white noise, 10 dB": white10,
    "brown noise, 10 dB": brown10,
    "telephone, 300 to 3400 Hz": telephone,
}


def heard(voice, condition, rate):
    """The samples of a recording under a condition at a rate, -1 to 1."""
    samples = signal.resample_poly(conditions[condition](voice), rate, voice.rate)
    return np.clip(samples, -1, 1 - 2**-15)
