// Waveforms made of square waves, whose volumes are known.
#pragma once

#include <vector>

/// Samples from begin up to end: amplitude and its negative by turns, each for half a period.
struct Piece {
    int begin, end;
    double amplitude;
    int period = 2;
};

template <typename Sample>
std::vector<Sample> made(int waveLen, const std::vector<Piece>& pieces) {
    std::vector<Sample> wave(static_cast<std::size_t>(waveLen));
    for (const Piece& piece : pieces)
        for (int i = piece.begin; i < piece.end; ++i)
            wave[static_cast<std::size_t>(i)] = static_cast<Sample>(
                (i - piece.begin) % piece.period < piece.period / 2 ? piece.amplitude : -piece.amplitude);
    return wave;
}

template <typename Container>
int lengthOf(const Container& container) {
    return static_cast<int>(container.size());
}
