// Linear resampling of a vector to another length. The first and the last value are kept; point i of the
// output lies at position i * (inLen - 1) / (outLen - 1) of the input.
//
// Both operations write outLen values and nothing for outLen below 1. An input of one value fills the output
// with it; an empty one (inLen below 1) fills it with zeros.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstdint>

namespace wavepitch::utility {

/// Walks the points between the first and the last of a resampled vector: where each lies in the input, in
/// whole positions and a remainder, without a division per point.
class ResampleGrid {
public:
    ResampleGrid(int inLen, int outLen)
        : width(std::int64_t{outLen} - 1), wholeStep((std::int64_t{inLen} - 1) / width),
          partStep((std::int64_t{inLen} - 1) % width), whole(wholeStep), part(partStep) {}

    void next() {
        whole += wholeStep;
        part += partStep;
        if (part >= width) {
            part -= width;
            ++whole;
        }
    }

    /// The input position at or before the point, at most inLen - 2.
    std::int64_t position() const { return whole; }
    /// The rest of the way to the next position, in units of 1 / (outLen - 1).
    std::int64_t remainder() const { return part; }

private:
    std::int64_t width;
    std::int64_t wholeStep;
    std::int64_t partStep;
    std::int64_t whole;
    std::int64_t part;
};

/// Writes what needs no interpolation: both ends, or all of it where the input has less than two values.
///
/// @return  whether points between the ends remain.
template <typename T>
bool resampleEnds(const T* in, int inLen, T* out, int outLen) {
    if (outLen < 1) return false;
    if (inLen < 2) {
        std::fill(out, out + outLen, inLen < 1 ? T{} : in[0]);
        return false;
    }
    out[0] = in[0];
    out[outLen - 1] = in[inLen - 1];
    return outLen > 2;
}

} // namespace wavepitch::utility

/// Resampling in floating point; positions and weights are formed in double for every element type.
///
/// @param in   inLen values; must not overlap out.
/// @param out  receives outLen values. An outLen of 1 gives the last input value.
template <std::floating_point T>
void vecResample(const T* in, int inLen, T* out, int outLen) {
    if (!wavepitch::utility::resampleEnds(in, inLen, out, outLen)) return;
    wavepitch::utility::ResampleGrid grid(inLen, outLen);
    for (int i = 1; i < outLen - 1; ++i, grid.next()) {
        const std::int64_t j = grid.position();
        const double pos = static_cast<double>(i) * (inLen - 1) / (outLen - 1);
        const double fraction = pos - static_cast<double>(j);
        out[i] = static_cast<T>((1.0 - fraction) * static_cast<double>(in[j]) +
                                fraction * static_cast<double>(in[j + 1]));
    }
}

/// Resampling in fixed point: the weights are multiples of 1/128, each fraction rounded to the nearest, and
/// each value is truncated toward zero.
///
/// @param in   inLen values; must not overlap out.
/// @param out  receives outLen values.
void vecResampleInt(const int* in, int inLen, int* out, int outLen);
