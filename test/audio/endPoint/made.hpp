// What the tests of end points share: waveforms made of square waves, whose volumes are known.
#pragma once

#include "support/audio.hpp"

using Text = const char*;

/// Samples from begin up to end: amplitude and its negative by turns, each for half a period.
struct Piece {
    int begin, end;
    double amplitude;
    int period = 2;
};

using Pieces = std::vector<Piece>;

template <typename Sample>
std::vector<Sample> made(int waveLen, const Pieces& pieces) {
    std::vector<Sample> wave(static_cast<std::size_t>(waveLen));
    for (const auto& [begin, end, amplitude, period] : pieces)
        for (int i = begin; i < end; ++i)
            wave.at(static_cast<std::size_t>(i)) =
                static_cast<Sample>((i - begin) % period < period / 2 ? amplitude : -amplitude);
    return wave;
}
