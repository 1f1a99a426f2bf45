// What the tests of end points share: waveforms made of square waves, whose volumes are known.
#pragma once

#include "support/audio.hpp"

using Text = const char*;

/// Samples from begin up to end: amplitude and its negative by turns, each for half a period.
struct Piece {
    int begin;
    int end;
    double amplitude;
    int period = 2;
};

using Pieces = std::vector<Piece>;

template <typename Sample>
std::vector<Sample> made(int waveLen, const Pieces& pieces) {
    std::vector<Sample> wave(static_cast<size_t>(waveLen));
    for (const Piece& piece : pieces)
        for (int i = piece.begin; i < piece.end; ++i) {
            const bool isUpper = (i - piece.begin) % piece.period < piece.period / 2;
            wave.at(static_cast<size_t>(i)) =
                static_cast<Sample>(isUpper ? piece.amplitude : -piece.amplitude);
        }
    return wave;
}
