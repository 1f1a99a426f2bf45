// What is done to a vector value by value: conversion, filling of gaps, coding; and the normal density.
#pragma once

/// Rounds each value to the nearest integer, halves away from zero (myRound: not-a-number gives 0, values
/// beyond the range of int give its nearest end).
///
/// @param in   n values; nothing happens for n below 1.
/// @param out  receives n values.
void double2intVec(const double* in, int n, int* out);

/// Converts each value, exactly. The parameters are those of double2intVec.
void int2doubleVec(const int* in, int n, double* out);

/// Each zero takes over the value before it, so that a run of zeros takes the last value in front of the run.
///
/// @param vec  n values, changed in place; nothing happens for n below 1.
///
/// Fatal path A with "Wrong vector format (line %d of %s)" for a zero at the front; nothing is changed then.
void replaceZeroWithPrevOne(double* vec, int n);

/// Combines each byte with a byte of a repeating key by exclusive or. The same call decodes: twice restores
/// the buffer.
///
/// @param buffer     length bytes, changed in place.
/// @param key        keyLength bytes, starting over after the last one.
/// A length or a keyLength below 1 changes nothing.
void encodeXor(char* buffer, int length, const char* key, int keyLength);

/// The natural logarithm of the normal density at x: (-ln(2 pi) - (x - mean)^2 / variance - ln(variance))
/// / 2.
///
/// @param variance  above 0; other values give infinities or not-a-number, as the formula has it.
double gaussianLog(double x, double mean, double variance);
