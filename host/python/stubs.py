"""Writes the type stubs of the package, beside its files: stubs.py FOLDER-OF-THE-PACKAGE."""

import pathlib
import sys

package = pathlib.Path(sys.argv[1])
sys.path.insert(0, str(package.parent))
from wavepitch._functions import commands

beginning = '''from os import PathLike
from types import SimpleNamespace
from typing import Any, Callable, Union

from numpy import ndarray
from numpy.typing import ArrayLike

Value = Union[ArrayLike, str, PathLike[str], None]

class Result(tuple[Any, ...]): ...

def plot(function: Union[str, Callable[..., Any]], *values: Value, figure: Any = ..., **named: Value) -> Any: ...
'''


def typeOf(shape):
    if shape.like:
        return "Any"  # a number for a number
    return {"struct": "SimpleNamespace", "text": "str"}.get(shape.kind, "ndarray" if shape.dimensions else "float")


def parameter(declared):
    name = f"**{declared.name}" if declared.kind == declared.VAR_KEYWORD else declared.name
    default = "" if declared.default is declared.empty else " = ..."
    return f"{name}: {'int' if name == 'nout' else 'Value'}{default}"


def stub(command):
    declared = command.signature().parameters.values()
    words = [parameter(each) for each in declared]
    named = next((i for i, each in enumerate(declared) if each.kind == each.KEYWORD_ONLY), None)
    if named is not None:
        words.insert(named, "*")
    result, fields = typeOf(next(iter(command.shapes.values()))), ""
    if len(command.shapes) > 1:
        result = f"_{command.name}"
        fields = f"class {result}(Result):\n" + "".join(
            f"    {name}: {typeOf(shape)}\n" for name, shape in command.shapes.items()) + "\n"
    return f"\n{fields}def {command.name}({', '.join(words)}) -> {result}: ...\n"


(package / "__init__.pyi").write_text(beginning + "".join(map(stub, commands.values())), "utf-8")
