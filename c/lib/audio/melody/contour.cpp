#include "audio/melody/contour.hpp"

#include "audio/pitchTracking/postProcess.hpp"
#include "utility/interruption.hpp"
#include "utility/vector/elementwise.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>

CONTOUR pitch2contour(const double* pitch, int n, const std::vector<int>& phrase) {
    wavepitch::utility::LongWork work;
    const auto passed = [&] { work.took(static_cast<std::size_t>(std::max(n, 0))); }; // once over all values
    std::vector<double> voiced(pitch, pitch + std::max(n, 0));
    std::replace_if(
        voiced.begin(), voiced.end(), [](double x) { return std::isnan(x); }, 0.0);
    passed();
    int first = 0;
    int last = 0;
    cAudioPitchPostProcess::trimPitch(voiced.data(), n, first, last);
    if (first >= n) return {};
    CONTOUR contour{{voiced.begin() + first, voiced.begin() + last + 1}, first, {}};
    passed();
    for (const int begin : phrase) {
        const auto isPitch = [](double x) { return x != 0; };
        const auto from = contour.pitch.begin() + (std::clamp(begin, first, last + 1) - first);
        const auto sounds = std::find_if(from, contour.pitch.end(), isPitch);
        work.took(static_cast<std::size_t>(sounds - from));
        if (sounds != contour.pitch.end())
            contour.start.push_back(static_cast<int>(sounds - contour.pitch.begin()));
    }
    replaceZeroWithPrevOne(contour.pitch.data(), static_cast<int>(contour.pitch.size()));
    return contour;
}

double frameNumOf(const MELODY& melody, double frameRate) {
    return std::round(std::accumulate(melody.duration.begin(), melody.duration.end(), 0.0) * frameRate);
}

CONTOUR note2contour(const MELODY& melody, double frameRate) {
    std::vector<double> pitch;
    std::vector<int> begin;
    double end = 0; // of the notes so far, in seconds
    wavepitch::utility::LongWork work;
    for (std::size_t i = 0; i < melody.pitch.size(); ++i) {
        begin.push_back(static_cast<int>(pitch.size()));
        end += melody.duration[i];
        pitch.resize(static_cast<std::size_t>(std::round(end * frameRate)), melody.pitch[i]);
        work.took(pitch.size() - static_cast<std::size_t>(begin.back()));
    }
    std::vector<int> phrase;
    for (const int note : melody.phrase) phrase.push_back(begin.at(static_cast<std::size_t>(note)));
    return pitch2contour(pitch.data(), static_cast<int>(pitch.size()), phrase);
}
