#include "audio/waveform/synthesis.hpp"

#include "audio/constants.hpp"
#include "utility/interruption.hpp"
#include "utility/rounding.hpp"
#include "utility/vector/search.hpp"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>
#include <vector>

#include "mex.h"

namespace {

double semitone2freq(double pitch) {
    return 440.0 * std::exp2((pitch - 69.0) / 12.0);
}

/// A frame or note of the sound.
struct Tones {
    std::vector<int> start;  // first sample
    std::vector<int> period; // in samples, 0 for a rest

    void add(int firstSample, double pitch, int fs) {
        start.push_back(firstSample);
        period.push_back(pitch == 0.0 ? 0
                                      : std::max(0, myRound(static_cast<float>(fs / semitone2freq(pitch)))));
    }

    int count() const { return static_cast<int>(start.size()); }

    /// The number of the tone after the one in force; 0 before the first. A rest without length gives way to
    /// the tone that starts where it does.
    int following(int position) const {
        int next = rangeSearchBinSub(position, start.data(), 0, count() - 1);
        while (periodBefore(next) == 0 && startOf(next, INT_MAX) <= position) ++next;
        return next;
    }

    int periodBefore(int next) const { return next < 1 ? 0 : period[static_cast<std::size_t>(next) - 1]; }
    int startOf(int tone, int end) const {
        return tone < count() ? start[static_cast<std::size_t>(tone)] : end;
    }
};

/// A period may fill minutes, where the rate is high and the pitch is low.
void writePeriod(int period, double* wave) {
    constexpr int atATime = 1 << 20;
    for (int first = 0, last = 0; first < period; first = last) {
        last = first + std::min(atATime, period - first);
        for (int j = first; j < last; ++j) wave[j] = 0.8 * std::sin((twoPi / period) * j);
        if (last < period) wavepitch::utility::askForInterruption();
    }
}

void synthesise(const Tones& tones, double* wave, int waveLen) {
    int lastPeriod = 0; // of the period that ends at the position, there to be repeated
    wavepitch::utility::LongWork work;
    for (int position = 0; position < waveLen;) {
        const int next = tones.following(position);
        const int period = tones.periodBefore(next);
        if (period == 0) {
            const int end = std::min(tones.startOf(next, waveLen), waveLen);
            std::fill(wave + position, wave + end, 0.0);
            position = end;
            lastPeriod = 0;
            continue;
        }
        if (period > waveLen - position) return std::fill(wave + position, wave + waveLen, 0.0);
        double* sine = wave + position;
        if (period == lastPeriod)
            std::copy(sine - period, sine, sine);
        else
            writePeriod(period, sine);
        lastPeriod = period;
        position += period;
        work.took(static_cast<std::size_t>(period));
    }
}

} // namespace

float cAudioSynthesis::pitch2freq(float pitch) {
    return pitch <= 0.0F ? 0.0F : static_cast<float>(semitone2freq(static_cast<double>(pitch)));
}

float cAudioSynthesis::freq2pitch(float freq) {
    if (freq <= 0.0F) return 0.0F;
    return static_cast<float>(12.0 * std::log(static_cast<double>(freq) / 440.0) / lnTwo + 69.0);
}

void cAudioSynthesis::pitch2wave(const double* pitch, int pitchLen, double pitchRate, int fs, double* wave,
                                 int waveLen) {
    Tones frames;
    for (int i = 0; i < pitchLen; ++i) {
        const float product = static_cast<float>(i) * static_cast<float>(fs);
        const auto start = static_cast<float>(static_cast<double>(product) / pitchRate);
        frames.add(myRound(start), pitch[i], fs);
    }
    synthesise(frames, wave, waveLen);
}

void cAudioSynthesis::note2wave(const double* pitch, int noteNum, const double* duration, int fs,
                                double* wave, int waveLen) {
    Tones notes;
    double seconds = 0.0;
    for (int i = 0; i < noteNum; ++i) {
        notes.add(truncateToInt(std::floor(fs * seconds)), pitch[i], fs);
        seconds += duration[i];
    }
    synthesise(notes, wave, waveLen);
}

void cAudioSynthesis::note2pv(const double* note, int noteLen, double timeStep, double* pv, int pvLen) {
    double pitch = 0.0;
    double cumTime = 0.0;
    int taken = 0;
    wavepitch::utility::LongWork work;
    for (int i = 0; i < pvLen; ++i) {
        work.took(1);
        if (i * timeStep >= cumTime && noteLen - taken >= 2) {
            pitch = note[taken];
            cumTime += note[taken + 1];
            taken += 2;
            mexPrintf("noteCumulatedTime=%f\n", cumTime);
        }
        pv[i] = pitch;
    }
}
