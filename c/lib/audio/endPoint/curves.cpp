#include "audio/endPoint/curves.hpp"

namespace wavepitch::endPoint {

namespace {

std::vector<double> bothOf(Thresholds threshold) {
    return {threshold.low, threshold.high};
}

/// @param thresholdsOf  of at least one level.
template <typename Level, typename ThresholdsOf>
Curve curveOf(const std::vector<Level>& level, ThresholdsOf thresholdsOf) {
    Curve curve{{level.begin(), level.end()}, {}};
    if (!level.empty()) curve.thresholds = thresholdsOf(level);
    return curve;
}

Curve curveInRange(const Levels& level, int ratio) {
    return curveOf(level, [=](const Levels& levels) {
        return std::vector<double>{static_cast<double>(rangeThreshold(levels, ratio))};
    });
}

} // namespace

Curve volumeCurve(const int* wave, int waveLen, const EPDPARAM& epdParam) {
    return curveInRange(frameVolumes(wave, waveLen, {epdParam.frameSize, epdParam.overlap}),
                        epdParam.volRatio);
}

Curve volumeAndAshodCurve(const int* wave, int waveLen, const EPDPARAM& epdParam) {
    framing::IntSamples samples(wave, waveLen);
    return curveInRange(volumesAndAshods(samples, epdParam), epdParam.vhRatio);
}

Curve twoThresholdCurve(const int* wave, int waveLen) {
    return curveOf(frameVolumes(wave, waveLen, twoThresholdFrames),
                   [](const Levels& volume) { return bothOf(twoThresholds(volume)); });
}

Curve volumeAndZcrCurve(const int* wave, int waveLen) {
    return curveOf(frameVolumes(wave, waveLen, volumeAndZcrFrames),
                   [](const Levels& volume) { return bothOf(volumeAndZcrThresholds(volume)); });
}

Curve characterCurve(const double* wave, int waveLen) {
    return curveOf(decibels(wave, waveLen),
                   [](const std::vector<double>& level) { return bothOf(decibelThresholds(level)); });
}

Curve handsetCurve(const double* wave, int waveLen, int fs) {
    Curve curve;
    const std::vector<Voice> voices = voicesOf(wave, waveLen, fs);
    for (const Voice& voice : voices) curve.values.push_back(voice.volume);
    if (voices.size() > firstVoice(fs)) curve.thresholds = {voiceThresholds(voices).volume};
    return curve;
}

} // namespace wavepitch::endPoint
