"""The package for Python, for pip: what CMake builds of host/python."""

import os
import pathlib
import re

import pybind11
from skbuild import setup

os.environ.setdefault("CMAKE_BUILD_PARALLEL_LEVEL", str(os.cpu_count()))
description = pathlib.Path(__file__).with_name("package").joinpath("DESCRIPTION").read_text("utf-8")
setup(
    version=re.search(r"^Version: (.*)", description, re.M)[1],
    packages=["wavepitch"],
    package_dir={"": "host/python"},
    package_data={"wavepitch": ["py.typed", "*.pyi"]},
    cmake_args=["-DWAVEPITCH_HOST=OFF", "-DWAVEPITCH_TEST=OFF", "-DWAVEPITCH_PROGRAMS=OFF",
                f"-Dpybind11_DIR={pybind11.get_cmake_dir()}"],
    cmake_install_target="installPython",
    cmake_install_dir="host/python/wavepitch",
)
