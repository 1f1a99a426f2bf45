// Hummed phrases of the collection, with the errors of singers and recordings.
#pragma once

#include "audio/audio.hpp"
#include "utility/scaling/findTune.hpp"

#include <random>
#include <vector>

struct Hum {
    int tune;                 ///< of the collection
    std::vector<double> wave; ///< without noise
};

/// Frames and samples a second of what is hummed.
inline constexpr int humFrameRate = 100;
inline constexpr int humFs = 8000;

/// A phrase of a random tune and what follows it, 6 to 12 s, in another key and 0.7 to 1.4 times as fast;
/// each note is out of tune by some 0.3 semitones, one in ten wrong by 1 or 2.
Hum hum(const std::vector<MELODY>& tunes, std::mt19937& random);

/// The pitch that is tracked in it, under white noise of so many dB less than its own mean power.
std::vector<double> tracked(const Hum& query, double decibels, std::mt19937& random);
