// The frequency between the lags, from the harmonics.
#pragma once

#include "audio/voice/band.hpp"
#include "audio/voice/kernel/harmonics.hpp"
#include "audio/voice/path.hpp"
#include "audio/voice/track.hpp"

namespace wavepitch::voice {

/// Refines frequencies by the instantaneous frequencies of the harmonics, f_q for harmonic q, at the
/// frequency q f0: under a window w, X the signal's spectrum there and D that under the derivative of the
/// window,
///   f_q = q f0 - rate / (2 pi) Im(D / X)
/// and f0 becomes sum |X| f_q / sum q |X|: over four harmonics, then, with the window fitted anew, over
/// eight.
///
/// Sources: J. Flanagan, R. Golden, "Phase vocoder", Bell System Technical Journal 45, 1966; H. Kawahara,
/// H. Katayose, A. de Cheveigne, R. Patterson, "Fixed point analysis of frequency to instantaneous frequency
/// mapping for accurate estimation of F0 and periodicity", Eurospeech 1999.
class Refinement {
public:
    explicit Refinement(const Layout& layout);

    /// @param centre  the sample at the instant; samples up to reach() around it are read.
    /// @param freq    Hz, within the range searched.
    /// @return        the frequency in Hz; a step that would change it by more than a fifth is not taken.
    double refined(const float* centre, double freq);

    /// Samples at each side of an instant.
    std::size_t reach() const { return work.size() / 4 + harmonicLanes; }

private:
    double step(const float* centre, double freq, std::size_t harmonics);

    double rate;
    double bandTop;
    std::vector<float> work;
    void (*kernel)(const Harmonics&, HarmonicSums&);
};

/// The frequencies and strengths of the frames along the path, into the results; unvoiced ones are left.
void refine(const std::vector<std::uint8_t>& path, const std::vector<VOICECANDIDATES>& candidates, Band& band,
            const Layout& layout, const Results& results);

} // namespace wavepitch::voice
