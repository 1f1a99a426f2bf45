#include "audio/voice/candidates.hpp"

#include <algorithm>
#include <array>
#include <bit>

namespace wavepitch::voice {

namespace {

/// What the running sums of energies may be wrong by when the loudest sound leaves them: windows between two
/// frames may be louder than any frame's.
constexpr double leastFloor = 1e-12;

/// What decides between candidates when there is no room for all: strength, a tenth less for each octave, as
/// a period's multiples are as strong as it is.
float rank(float lag, float strength) {
    return strength - 0.1F * std::log2(lag);
}

/// A new candidate behind those there are; when all places are taken, the last in rank has to go.
void add(VOICECANDIDATES& frame, float lag, float strength) {
    int place = frame.num;
    if (place == voiceCandidateMax) {
        int last = 0;
        for (int k = 1; k < place; ++k)
            if (rank(frame.lag[k], frame.strength[k]) < rank(frame.lag[last], frame.strength[last])) last = k;
        if (rank(lag, strength) <= rank(frame.lag[last], frame.strength[last])) return;
        std::copy(frame.lag + last + 1, frame.lag + place, frame.lag + last);
        std::copy(frame.strength + last + 1, frame.strength + place, frame.strength + last);
        --place;
    }
    frame.lag[place] = lag;
    frame.strength[place] = strength;
    frame.num = place + 1;
}

/// The correlations of a group of frames.
class Group {
public:
    Group(const Layout& recordingLayout, double floor, double threshold)
        : layout(recordingLayout), samples(layout.span() * correlationFrames),
          energies((layout.maxLag() + 1) * correlationFrames), values(layout.lagNum * correlationFrames),
          maximumBits((layout.lagNum + 31) / 32 * correlationFrames), task{.spans = spans.data(),
                                                                           .windowLen = layout.windowLen,
                                                                           .firstLag = layout.minLag,
                                                                           .lagNum = layout.lagNum,
                                                                           .floor = floor,
                                                                           .threshold =
                                                                               static_cast<float>(threshold),
                                                                           .samples = samples.data(),
                                                                           .energies = energies.data(),
                                                                           .values = values.data(),
                                                                           .maximumBits = maximumBits.data()},
          kernel(correlationKernel()) {}

    Group(const Group&) = delete;
    Group& operator=(const Group&) = delete;

    /// @param span  called with a place of the group: where that frame's span begins.
    template <typename SpanOf>
    void correlate(const SpanOf& span) {
        for (std::size_t f = 0; f < correlationFrames; ++f) spans[f] = span(f);
        kernel(task);
    }

    void copyColumn(std::size_t f, float* column) const {
        for (std::size_t row = 0; row < layout.lagNum; ++row) column[row] = at(row, f);
    }

    VOICECANDIDATES candidates(std::size_t f) const {
        VOICECANDIDATES frame{};
        for (std::size_t start = 0; start < layout.lagNum; start += 32)
            for (unsigned bits = maximumBits[start / 32 * correlationFrames + f]; bits != 0; bits &= bits - 1)
                addMaximum(frame, start + static_cast<std::size_t>(std::countr_zero(bits)), f);
        return frame;
    }

private:
    float at(std::size_t row, std::size_t f) const { return values[row * correlationFrames + f]; }

    void addMaximum(VOICECANDIDATES& frame, std::size_t row, std::size_t f) const {
        const float before = at(row - 1, f);
        const float here = at(row, f);
        const float behind = at(row + 1, f);
        // In this order of terms the curvature is above 0, as the first of them is.
        const float shift = 0.5F * (behind - before) / ((here - before) + (here - behind));
        const float lag = static_cast<float>(layout.minLag + row) + shift;
        add(frame, lag, here + 0.25F * (behind - before) * shift);
    }

    const Layout& layout;
    std::array<const float*, correlationFrames> spans{};
    std::vector<float> samples;
    std::vector<float> energies;
    std::vector<float> values;
    std::vector<unsigned> maximumBits;
    Correlation task;
    void (*kernel)(const Correlation&);
};

} // namespace

std::vector<VOICECANDIDATES> findCandidates(Band& band, const Layout& layout, const Character& character,
                                            const VOICEPARAM& param, float* correlation) {
    std::vector<VOICECANDIDATES> all(layout.frameNum);
    const double level = std::pow(10.0, param.silenceLevel / 10);
    const double floor = static_cast<double>(layout.windowLen) * character.loudPower * level;
    Group group(layout, std::max(floor, leastFloor), param.candidateThreshold);
    const std::size_t frames = layout.framesOfPiece();
    for (std::size_t piece = 0; piece < layout.frameNum; piece += frames) {
        const std::size_t last = std::min(piece + frames, layout.frameNum) - 1;
        const std::int64_t from = layout.centre(piece);
        const float* x = band.read(from - static_cast<std::int64_t>(layout.before()),
                                   static_cast<std::size_t>(layout.centre(last) - from) + layout.span());
        for (std::size_t first = piece; first <= last; first += correlationFrames) {
            // Places behind the last frame repeat it.
            group.correlate(
                [&](std::size_t f) { return x + (layout.centre(std::min(first + f, last)) - from); });
            for (std::size_t i = first; i <= last && i < first + correlationFrames; ++i) {
                all[i] = group.candidates(i - first);
                if (correlation) group.copyColumn(i - first, correlation + i * layout.lagNum);
            }
        }
    }
    return all;
}

} // namespace wavepitch::voice
