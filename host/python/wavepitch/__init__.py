"""Pitch, end points, spectra and synthesis of speech and melody, on NumPy arrays.

    import soundfile, wavepitch
    wave, fs = soundfile.read("speech.wav")
    result = wavepitch.wave2f0(wave, fs, minF0=75, unit="semitone")
    result.time, result.f0
    wavepitch.plot("wave2f0", wave, fs)

The functions are those of the package for GNU Octave, with the same names, options, messages and bits; help() of
each tells what it takes.  Their texts are the package's, in which NAME, VALUE pairs are keyword arguments here.

Values     float64 and float32 are the classes double and single; int8, uint8, int16, int32, uint16 and uint32 are
           taken as they are.  Numbers, lists and integers of 64 bits count as float64.  Arrays may be strided or
           read-only; one-dimensional ones that are contiguous, and matrices in Fortran order, are not copied.
           What a masked array hides is NaN.  A list of arrays, of texts or of lists that make no matrix is a cell
           array, a list of lists is one wherever the texts ask for it.  None stands for an argument that is left out.
Results    A function with several outputs returns a Result: a tuple whose elements have names.  It ends before the
           first large matrix; nout says how many outputs are wanted.
Shapes     What is 1 x n or n x 1 in the texts has one dimension, numbers and texts have none.  A matrix that has
           a column for each frame there has a row for each frame here: lags x frames is (frames, lags), the same
           memory.  All other matrices are indexed as in the texts.  Numbers of samples count from 1.
Errors     A value that is refused is a ValueError, one of a class that no function takes a TypeError, lack of
           memory a MemoryError.  Warnings of the library are UserWarnings, what it tells besides goes to the
           logger "wavepitch".  Ctrl-C ends a call.
Threads    Calls let other threads run; any number may run at once.  An array must not change while a call takes it.
"""

from ._functions import Result, commands as _commands
from ._pictures import plot

globals().update({name: command.function for name, command in _commands.items()})
__all__ = ["Result", "plot", *_commands]
