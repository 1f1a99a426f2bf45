// The stages of the tracker, each in a file of its own:
//   level        the samples without their mean, at a level of their own
//   band         the part of the signal in which the harmonics lie, decimated to 8 kHz or a little more
//   character    how loud the recording's voice is, and whether its fundamental is there
//   candidates   the maxima of each frame's normalised correlation
//   path         for each frame a candidate or none, by dynamic programming
//   refinement   the frequency by the instantaneous frequencies of the harmonics
#include "audio/voice/voice.hpp"

#include "audio/voice/path.hpp"
#include "audio/voice/refinement.hpp"
#include "audio/voice/track.hpp"
#include "utility/fatal.hpp"

#include <algorithm>

namespace wavepitch::voice {

namespace {

void clear(const Layout& layout, const Results& results) {
    std::fill_n(results.f0, layout.frameNum, 0.0);
    if (results.strength) std::fill_n(results.strength, layout.frameNum, 0.0);
    if (results.correlation) std::fill_n(results.correlation, layout.frameNum * layout.lagNum, 0.0F);
    if (results.candidates) std::fill_n(results.candidates, layout.frameNum, VOICECANDIDATES{});
}

} // namespace

void track(const Source& source, const Layout& layout, const VOICEPARAM& param, std::size_t most,
           const Results& results) {
    clear(layout, results);
    if (source.isSilent()) return;
    Band band(BandFilter(source, layout, param.minFreq), layout, most);
    const Character character = characterOf(band, layout, param);
    if (!(character.loudPower > 0)) return;
    const auto candidates = findCandidates(band, layout, character, param, results.correlation);
    if (results.candidates) std::copy(candidates.begin(), candidates.end(), results.candidates);
    const auto path = bestPath(candidates, layout, character, param);
    refine(path, candidates, band, layout, results);
}

} // namespace wavepitch::voice

template <typename Sample>
int wave2f0(const Sample* wave, int waveLen, const VOICEPARAM& param, double* f0, double* strength,
            float* correlation, VOICECANDIDATES* candidates) {
    using namespace wavepitch::voice;
    if (const char* fault = voiceParamFault(param)) myExitFormatted("wave2f0: %s", fault);
    const Layout layout(waveLen, param);
    if (layout.frameNum == 0) return 0;
    constexpr std::size_t most = std::size_t{1} << 24U; // of the band signal's samples that are kept, 64 MB
    track(Source(wave, static_cast<std::size_t>(waveLen)), layout, param, most,
          {f0, strength, correlation, candidates});
    return static_cast<int>(layout.frameNum);
}

template int wave2f0(const double*, int, const VOICEPARAM&, double*, double*, float*, VOICECANDIDATES*);
template int wave2f0(const int*, int, const VOICEPARAM&, double*, double*, float*, VOICECANDIDATES*);
