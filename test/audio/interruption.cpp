// Long operations ask their host from time to time whether they shall go on.
#include "utility/interruption.hpp"
#include "support/audio.hpp"
#include "support/operations.hpp"
#include "utility/utility.hpp"

#include <functional>
#include <map>
#include <utility>

namespace {

int questions;

class CountingHost {
public:
    CountingHost() { questions = 0; }

private:
    wavepitch::utility::Interruptible check{[] { ++questions; }};
};

Doubles ramp(size_t size) {
    Doubles x(size);
    for (size_t i = 0; i < size; ++i) x[i] = static_cast<double>(i % 1000);
    return x;
}

TEST(Interruption, OperationsAskInTwoMinutesOfSpeech) {
    Recording recording = readRecording("reading16k.wav");
    const Ints once = recording.wave;
    while (recording.wave.size() < 2'000'000)
        recording.wave.insert(recording.wave.end(), once.begin(), once.end());
    std::map<std::string, int> asked;
    const CountingHost host;
    runOperations(recording, [&](const std::string& output, const Doubles& /*values*/) {
        asked[output] = std::exchange(questions, 0);
    });
    const std::pair<const char*, int> least[] = {
        {"wave2pitch AMDF.1", 12000},
        {"wave2pitch.1", 12000},
        {"wave2pfMat.1", 5},
        {"wave2pv.1", 13000},
        {"isWaveSilence.1", 2},
        {"wave2f0.1", 500},
        {"endPoints.1", 1},
        {"endPoints volumeHod.1", 2},
        {"endPoints twoThreshold, frames", 1},
        {"endPoints volumeZcr.1", 4},
        {"endPoints character, first samples", 1},
        {"endPoints handset.1", 1},
        {"wave2volume.1", 1},
        {"wave2zcr.1", 1},
        {"wave2ashod.1", 1},
        {"absSpectrogram.1", 1},
        {"waveVolumeCheck.1", 1},
        {"waveFilter.1", 1900},
        {"waveResample.1", 1},
    };
    for (const auto& [output, times] : least) EXPECT_GE(asked[output], times) << output;
}

struct Case {
    const char* name;
    int least;
    std::function<void()> work;
};

TEST(Interruption, OperationsAskInLongSoundsTransformsAndSearches) {
    const Doubles x = ramp(12'000'000);
    const double* const in = x.data();
    Doubles y = x;
    double* const out = y.data();
    Doubles sets = ramp(300'000);
    const int length = lengthOf(x);
    const Ints quiet(600'000);
    const MELODY melody{"", {60}, {1}, {0}};
    const TUNE tune{in, 50'000, nullptr, 0};
    const TUNESEARCH everyScale;
    TUNEMATCH match{};
    Doubles values(100);
    Ints chosen(3);
    int best = 0;
    double shift = 0;
    const Case cases[] = {
        {"one frame's pitch function", 3, [&] { frame2acf(out, 5000, values.data(), 100, 1, 0); }},
        {"transform", 2, [&] { fftComplex(out, out + (1 << 20), 1 << 18); }},
        {"spectra of frames", 1, [&] { cAudio::absFft4frameMat(in, 512, 23000, 0, out); }},
        {"unvoiced cut", 1, [&] { cAudio::uvCut(quiet.data(), lengthOf(quiet), 100, 90); }},
        {"pitch of a note", 1, [&] { cAudio::pitch2wave(in + 60, 1, 1, 8000, out, length); }},
        {"one period", 6, [&] { cAudio::pitch2wave(in + 1, 1, 1e-3, 50'000'000, out, length); }},
        {"notes in frames", 1, [&] { cAudio::note2pv(in, 2, 1, out, length); }},
        {"contour of pitch", 1, [&] { pitch2contour(in, length, {0}); }},
        {"contour of notes", 3, [&] { note2contour(melody, 12e6); }},
        {"scaling", 2,
         [&] { linearScaling(in, 30000, in, 60000, 0.5, 2, 100, 1, values.data(), out, best); }},
        {"shift distance", 1, [&] { lrShiftDist(in, 1000, in, 2000, 1, shift, best); }},
        {"search of tunes", 4, [&] { findTune(in, 1000, &tune, 1, everyScale, &match, 1); }},
        {"cover", 5, [&] { setCover(sets.data(), 50'000, 6, 3, chosen.data(), values.data()); }},
    };
    for (const auto& [name, least, work] : cases) {
        const CountingHost host;
        work();
        EXPECT_GE(questions, least) << name;
    }
}

} // namespace
