"""The functions: the module's table and the package's help, in Python's form.  No function is known by name."""

import inspect
import logging
import operator
import os
import re
import threading
import types
import warnings

import numpy as np

from . import _wavepitch

_log = logging.getLogger("wavepitch")

class Result(tuple):
    """Outputs of a function, by position and by name."""

    def __new__(cls, names, values):
        self = super().__new__(cls, values)
        self.__dict__.update(zip(names, self))
        return self

    def __getnewargs__(self):
        return tuple(vars(self)), tuple(self)

    def __repr__(self):
        return "Result(" + ", ".join(f"{name}={value!r}" for name, value in vars(self).items()) + ")"


def _isCells(values):
    """Whether a list makes no matrix: of arrays, of texts, of lists that are uneven or too deep."""
    if any(isinstance(each, np.ndarray) for each in values):
        return True
    try:
        array = np.asarray(values)
    except ValueError:
        return True
    return array.ndim > 2 or array.dtype.kind in "OSU"


def _isOfLists(values):
    return any(isinstance(each, (list, tuple)) for each in values)


def _hostArray(value, isCells=False):
    """What the module takes: bytes of a text, an aligned array of native byte order, column after column, or a list;
    of lists always where cells are wanted."""
    if isinstance(value, (str, os.PathLike)):
        return os.fsdecode(value).encode("utf-8", "surrogateescape")
    if isinstance(value, (list, tuple)) and (_isCells(value) or isCells and _isOfLists(value)):
        return [_hostArray(each) for each in value]
    if np.ma.is_masked(value):
        value = value.astype(float).filled(np.nan)  # what is hidden is no number
    array = np.asarray(value)
    isLong = array.dtype.kind in "iu" and array.dtype.itemsize == 8
    return np.require(array, np.float64 if isLong else array.dtype.newbyteorder("="), ["F", "A"])


def _plain(value, dimensions):
    """The host's value, or those of a struct's fields, as a number or in one dimension."""
    if isinstance(value, dict):
        return types.SimpleNamespace(**{name: _plain(field, dimensions) for name, field in value.items()})
    if isinstance(value, list):
        return [_plain(cell, 1) for cell in value]
    if isinstance(value, str):
        return value
    return value.reshape(-1) if dimensions else value.item()


class Shape:
    """The shape of an output, as the help tells it: dimensions, of what kind it is, like which input."""

    def __init__(self, told, inputs):
        named = re.match(r"(\(.*?\)|\w+) x (\w+)", told)
        like = re.search(r"of the same size|row or (?:a )?column as (\w+)", told)
        self.dimensions = tuple(size.strip("()") for size in named.groups() if size != "1") if named else ()
        if self.dimensions[1:] == ("frames",):
            self.dimensions = self.dimensions[::-1]
        self.like = None
        if like and not named:
            self.like = next((name for name in inputs if name.upper() == like[1]), inputs[0])
        self.kind = next((kind for kind in ("struct", "text") if told.startswith(kind)), "numbers")
        if told.startswith("struct of K"):
            self.dimensions = ("K",)

    def isMatrix(self):
        return len(self.dimensions) == 2 and self.dimensions[0] == "frames"

    def __str__(self):
        if self.like:
            return f"like {self.like}"
        return "(" + ", ".join(self.dimensions) + ",)"[len(self.dimensions) != 1:] if self.dimensions else ""

    def of(self, value, given):
        """The host's value in this shape."""
        count = np.ndim(given[self.like]) if self.like else len(self.dimensions)
        if count < 2:
            return _plain(value, count)
        return value.T if self.isMatrix() else value


def _section(text, title):
    found = re.search(rf"^{title}\n(.*?)(?:\n\n|\Z)", text, re.M | re.S)
    return found[1] if found else ""


class Command:
    """A function of the package: how it is called, and what comes out."""

    def __init__(self, told):
        self.told = told
        self.name = told.name
        self.inputs = told.inputs
        outputs = dict(re.findall(r"^  ([A-Z]\w*)  +(.*)", _section(told.help, "Outputs?"), re.M))
        self.shapes = {name: Shape(outputs[name.upper()], told.inputs) for name in told.outputs}
        names = re.findall(r"^  (\w+(?:, \w+)*)(?:  +\S|$)", _section(told.help, "Options[^\n]*"), re.M)
        self.options = ", ".join(names).split(", ") if names else []
        self.cells = [name.lower() for name in re.findall(r"^  (\w+) +(?:a )?cell array", told.help, re.M)]
        matrices = [i for i, shape in enumerate(self.shapes.values()) if i > 0 and shape.isMatrix()]
        self.usual = matrices[0] if matrices else len(self.shapes)
        self.function = self._function()

    def arranged(self, values, named):
        """The inputs in their order, behind them names and values by turns."""
        given = list(values)
        while given and given[-1] is None:
            given.pop()
        named = {name: value for name, value in named.items() if value is not None}
        while len(given) < len(self.inputs) and self.inputs[len(given)] in named:
            given.append(named.pop(self.inputs[len(given)]))
        for name, value in named.items():
            if name in self.inputs[:len(given)]:
                raise TypeError(f"{self.name}() got multiple values for argument '{name}'")
            if not self.told.options and name not in self.inputs:
                raise TypeError(f"{self.name}() got an unexpected keyword argument '{name}'")
            if len(given) < len(self.inputs):
                raise TypeError(f"{self.name}: {self.inputs[len(given)]} is wanted before {name}")
        return given + [word for pair in named.items() for word in pair]

    def __call__(self, given, nout):
        nout = self.usual if nout is None else operator.index(nout)
        wanted = max(0, min(nout, len(self.shapes) + 1))  # one too many is the library's to refuse
        inMainThread = threading.current_thread() is threading.main_thread()  # which alone handles signals
        names = [*self.inputs, *(word for name in given[len(self.inputs)::2] for word in (None, name))]
        values = [_hostArray(value, str(name).lower() in self.cells) for name, value in zip(names, given)]
        values, told = _wavepitch.call(self.name, values, wanted, inMainThread)
        self._tell(told)
        inputs = dict(zip(self.inputs, given))
        values = [shape.of(value, inputs) for shape, value in zip(self.shapes.values(), values)]
        return Result(self.shapes, values) if len(self.shapes) > 1 else values[0]

    def _tell(self, text):
        """Warnings of the library, at the line that called the package, and whatever else it tells."""
        for line in filter(None, re.split(r"\n|(?=Warning: )", text)):  # some end without a new line
            if line.startswith("Warning: "):
                warnings.warn(f"{self.name}: {line[len('Warning: '):]}", stacklevel=4)
            else:
                _log.info("%s: %s", self.name, line)

    def _function(self):
        def function(*values, nout=self.usual, **named):
            return self(self.arranged(values, named), nout)

        function.__name__ = function.__qualname__ = self.name
        function.__module__ = __package__
        function.__signature__ = self.signature()
        function.__doc__ = self.document()
        return function

    def signature(self):
        parameters = [inspect.Parameter(name, inspect.Parameter.POSITIONAL_OR_KEYWORD,
                                        default=inspect.Parameter.empty if i < self.told.least else None)
                      for i, name in enumerate(self.inputs)]
        named = dict.fromkeys(self.options)
        if len(self.shapes) > 1:
            named["nout"] = self.usual
        parameters += [inspect.Parameter(name, inspect.Parameter.KEYWORD_ONLY, default=default)
                       for name, default in named.items()]
        if self.options:
            parameters.append(inspect.Parameter("options", inspect.Parameter.VAR_KEYWORD))
        return inspect.Signature(parameters)

    def document(self):
        """The help, with what it returns instead of Octave's call and example."""
        paragraphs = [text for text in self.told.help.split("\n\n") if not text.startswith("Example\n")]
        returned = ", ".join(f"{name} {shape}".rstrip() for name, shape in self.shapes.items())
        if self.usual < len(self.shapes):
            returned += f"; the first {self.usual} unless nout says how many"
        paragraphs[:2] = [self.told.summary, f"Returns {returned}."]
        drawing = f'wavepitch.plot("{self.name}", ...) draws'
        return re.sub(r"Without an\s+output, draws", drawing, "\n\n".join(paragraphs))


commands = {told.name: Command(told) for told in _wavepitch.functions()}
