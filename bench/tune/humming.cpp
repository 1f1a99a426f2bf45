#include "tune/humming.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace {

double uniform(std::mt19937& random, double least, double most) {
    return std::uniform_real_distribution(least, most)(random);
}

/// The notes from a phrase on, as sung.
MELODY sungNotes(const MELODY& tune, std::mt19937& random) {
    const double tempo = uniform(random, 0.7, 1.4);
    const double length = uniform(random, 6, 12);
    MELODY sung;
    for (int tries = 0; tries < 100; ++tries) {
        sung = {tune.name, {}, {}, {0}};
        double total = 0;
        for (auto i = static_cast<std::size_t>(tune.phrase[random() % tune.phrase.size()]);
             i < tune.pitch.size() && total < length; ++i) {
            sung.pitch.push_back(tune.pitch[i]);
            sung.duration.push_back(std::min(tune.duration[i] / tempo, length - total));
            total += sung.duration.back();
        }
        if (total >= 6) break;
    }
    std::normal_distribution<double> jitter(0, 0.3);
    const double key =
        uniform(random, 50, 66) - getPitchMedian(sung.pitch.data(), static_cast<int>(sung.pitch.size()));
    for (double& pitch : sung.pitch) {
        if (pitch == 0) continue;
        pitch += key + jitter(random);
        if (random() % 10 == 0)
            pitch += (random() % 2 == 0 ? 1 : -1) * (1 + static_cast<double>(random() % 2));
    }
    return sung;
}

/// A sound of ten partials with a vibrato, gliding from note to note; rests are silent.
std::vector<double> soundOf(const MELODY& sung) {
    constexpr double glide = 0.06;
    constexpr double rise = 0.03;
    std::vector<double> wave;
    double end = 0;
    double phase = 0;
    for (std::size_t i = 0; i < sung.pitch.size(); ++i) {
        const double begin = end;
        end += sung.duration[i];
        const double before = i > 0 && sung.pitch[i - 1] > 0 ? sung.pitch[i - 1] : sung.pitch[i];
        while (static_cast<double>(wave.size()) < end * humFs) {
            const double time = static_cast<double>(wave.size()) / humFs;
            const double way = std::min(1.0, (time - begin) / glide);
            const double pitch =
                before + (sung.pitch[i] - before) * way + 0.2 * std::sin(2 * std::numbers::pi * 5.5 * time);
            phase += 2 * std::numbers::pi / humFs * 440 * std::exp2((pitch - 69) / 12);
            const double loudness = 0.3 + 0.7 * std::min({1.0, (time - begin) / rise, (end - time) / rise});
            double sample = 0;
            for (int partial = 1; partial <= 10; ++partial) sample += std::sin(partial * phase) / partial;
            wave.push_back(sung.pitch[i] > 0 ? loudness * sample : 0);
        }
    }
    return wave;
}

} // namespace

Hum hum(const std::vector<MELODY>& tunes, std::mt19937& random) {
    const auto tune = random() % tunes.size();
    return {static_cast<int>(tune), soundOf(sungNotes(tunes[tune], random))};
}

std::vector<double> tracked(const Hum& query, double decibels, std::mt19937& random) {
    std::vector<double> wave = query.wave;
    const double power =
        std::inner_product(wave.begin(), wave.end(), wave.begin(), 0.0) / static_cast<double>(wave.size());
    std::normal_distribution<double> noise(0, std::sqrt(power) * std::pow(10, -decibels / 20));
    for (double& sample : wave) sample += noise(random);
    VOICEPARAM param;
    param.fs = humFs;
    param.frameRate = humFrameRate;
    const auto length = static_cast<int>(wave.size());
    std::vector<double> f0(static_cast<std::size_t>(voiceSizes(length, param).frameNum));
    wave2f0(wave.data(), length, param, f0.data());
    for (double& value : f0) value = value > 0 ? 69 + 12 * std::log2(value / 440) : 0;
    return f0;
}
