// NumPy's arrays and the host's.
#pragma once

#include <memory>
#include <pybind11/numpy.h>
#include <string>

#include "standIn.hpp"

/// The host's array of bytes, which are a text in UTF-8, or of a NumPy array that is aligned, of native byte
/// order and column after column (Fortran order); one dimension is a row; or of a list of such values, a cell
/// array. Elements of a class that the host has stay NumPy's, which must outlive the result; anything else
/// becomes an array of mxUNKNOWN_CLASS.
mxArray hostArray(const pybind11::handle& value);

/// A str of a text in UTF-8; bytes that are none are surrogates, as in Python's names of files.
pybind11::str pythonText(const std::string& text);

/// A NumPy array of rows x columns that owns the elements where they are; of characters a str, of a struct a
/// dict, of a cell array a list.
pybind11::object pythonObject(std::unique_ptr<mxArray> array);
