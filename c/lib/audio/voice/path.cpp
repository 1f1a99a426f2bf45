// The path of the highest score through the candidates and one unvoiced state of each frame:
//   local gain    a candidate's strength, less a little for long lags, as multiples of a period are; for the
//                 unvoiced state a threshold
//   transition    a cost between lags by the square of their distance in octaves, one between voiced and not
//   forward pass  each state's score: its gain, and the best of the scores before it less the cost
//   back-track    from the best score of the last frame
// It is searched for twice. The first path tells where the voice lies; the second also takes from candidates
// far away from there.
//
// Pattern: P. Boersma, "Accurate short-term analysis of the fundamental frequency and the harmonics-to-noise
// ratio of a sampled sound", Proceedings of the Institute of Phonetic Sciences Amsterdam 17, 1993.
#include "audio/voice/path.hpp"

#include "utility/interruption.hpp"

#include <algorithm>
#include <array>

namespace wavepitch::voice {

namespace {

constexpr std::size_t stepsOfFrame = 1000;            // of utility::LongWork
constexpr std::size_t states = voiceCandidateMax + 1; // the unvoiced one is the last

/// What a candidate loses for where its lag lies, by octaves.
struct Place {
    double centre; // octave of a lag without loss
    double slope;  // for each octave of a longer lag; shorter ones gain as much
    double low;    // the voice's range
    double high;
    double squared; // for the square of the octaves beyond the range

    double loss(double octave) const {
        const double beyond = std::max({low - octave, octave - high, 0.0});
        return slope * (octave - centre) + squared * beyond * beyond;
    }
};

class Search {
public:
    Search(const std::vector<VOICECANDIDATES>& recording, const VOICEPARAM& parameters, double unvoicedGain)
        : frames(recording), param(parameters), threshold(unvoicedGain), origin(recording.size()) {}

    /// The best path with losses by place.
    std::vector<std::uint8_t> run(const Place& place) {
        Column previous{};
        utility::LongWork work;
        for (std::size_t i = 0; i < frames.size(); ++i) {
            work.took(stepsOfFrame);
            Column current = localGains(frames[i], place);
            if (i > 0) extend(previous, current, origin[i]);
            previous = current;
        }
        return backTrack(previous);
    }

private:
    struct Column {
        std::size_t num; // of candidates
        std::array<double, voiceCandidateMax> octave;
        std::array<double, voiceCandidateMax> score;
        double unvoicedScore;
    };

    Column localGains(const VOICECANDIDATES& frame, const Place& place) const {
        Column column{};
        column.num = static_cast<std::size_t>(frame.num);
        for (std::size_t j = 0; j < column.num; ++j) {
            column.octave[j] = std::log2(static_cast<double>(frame.lag[j]));
            column.score[j] = static_cast<double>(frame.strength[j]) - place.loss(column.octave[j]);
        }
        column.unvoicedScore = threshold;
        return column;
    }

    /// Adds to the scores of a frame the best of those before it; of equals the first wins, candidates before
    /// the unvoiced state.
    void extend(const Column& previous, Column& current, std::array<std::uint8_t, states>& from) const {
        for (std::size_t j = 0; j < current.num; ++j) {
            double best = previous.unvoicedScore - param.voicingCost;
            from[j] = unvoiced;
            for (std::size_t k = 0; k < previous.num; ++k) {
                const double step = current.octave[j] - previous.octave[k];
                const double score = previous.score[k] - param.lagCost * step * step;
                if (score < best || (score == best && from[j] != unvoiced)) continue;
                best = score;
                from[j] = static_cast<std::uint8_t>(k);
            }
            current.score[j] += best;
        }
        const auto end = bestEnd(previous, param.voicingCost);
        from[voiceCandidateMax] = end.state;
        current.unvoicedScore += end.score;
    }

    struct End {
        double score;
        std::uint8_t state;
    };

    /// The best state, if it is left for an unvoiced one at this cost.
    static End bestEnd(const Column& column, double voicingCost) {
        End end{column.unvoicedScore, unvoiced};
        for (std::size_t k = 0; k < column.num; ++k) {
            const double score = column.score[k] - voicingCost;
            if (score < end.score || (score == end.score && end.state != unvoiced)) continue;
            end = {score, static_cast<std::uint8_t>(k)};
        }
        return end;
    }

    std::vector<std::uint8_t> backTrack(const Column& last) const {
        std::vector<std::uint8_t> path(frames.size());
        std::uint8_t state = bestEnd(last, 0).state;
        for (std::size_t i = frames.size(); i-- > 0;) {
            path[i] = state;
            state = origin[i][state == unvoiced ? std::size_t{voiceCandidateMax} : state];
        }
        return path;
    }

    const std::vector<VOICECANDIDATES>& frames;
    const VOICEPARAM& param;
    double threshold;
    std::vector<std::array<std::uint8_t, states>> origin; // of each state, the best one before it
};

/// The lags along a path.
std::vector<float> lagsOf(const std::vector<VOICECANDIDATES>& frames, const std::vector<std::uint8_t>& path) {
    std::vector<float> lags;
    for (std::size_t i = 0; i < path.size(); ++i)
        if (path[i] != unvoiced) lags.push_back(frames[i].lag[path[i]]);
    return lags;
}

/// The octave that a share of the lags lie below.
double octaveAt(std::vector<float>& lags, std::size_t percent) {
    const auto at = lags.begin() + static_cast<std::ptrdiff_t>(lags.size() * percent / 100);
    std::nth_element(lags.begin(), at, lags.end());
    return std::log2(static_cast<double>(*at));
}

/// The place of a voice with these lags: speech lies around their median; a melody has a range of its own.
Place placeOf(std::vector<float>& lags, bool hasFundamental) {
    const double median = octaveAt(lags, 50);
    if (!hasFundamental) return {median, 0.03, median, median, 0.1};
    return {median, 0.05, std::min(median - 0.7, octaveAt(lags, 10)),
            std::max(median + 0.7, octaveAt(lags, 90)), 0.2};
}

} // namespace

std::vector<std::uint8_t> bestPath(const std::vector<VOICECANDIDATES>& frames, const Layout& layout,
                                   const Character& character, const VOICEPARAM& param) {
    const bool full = character.hasFundamental;
    Search search(frames, param, full ? param.voicingThreshold : param.voicingThreshold - 0.05);
    const double centre = std::log2(layout.rate / std::sqrt(param.minFreq * param.maxFreq));
    auto first = search.run({centre, full ? 0.1 : 0.03, 0, 0, 0});
    std::vector<float> lags = lagsOf(frames, first);
    return lags.empty() ? first : search.run(placeOf(lags, full));
}

} // namespace wavepitch::voice
