// Filter, echo and resampling; sound of pitch and notes.

#include "results.hpp"

#include "audio/audio.hpp"
#include "utility/rounding.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <numeric>

namespace {

constexpr double mostNumber = 1e15;

struct Notes {
    Numbers pitch;
    Numbers duration;

    double total() const { return std::accumulate(duration.begin(), duration.end(), 0.0); }
};

Notes readNotes(const Call& call) {
    Notes notes{call.input(0, "PITCH").vector(), call.input(1, "DURATION").vector()};
    if (notes.duration.size() != notes.pitch.size())
        call.refuse("DURATION must have as many elements as PITCH");
    if (*std::min_element(notes.duration.begin(), notes.duration.end()) < 0)
        call.refuse("DURATION must not be negative");
    return notes;
}

mxArray* mapped(Call& call, const char* name, float (*function)(float)) {
    const Argument input = call.input(0, name);
    const Numbers values = input.numbers();
    mxArray* out = matrix(call, static_cast<double>(input.rows()), static_cast<double>(input.columns()));
    std::transform(values.begin(), values.end(), mxGetPr(out), [=](double value) {
        return static_cast<double>(function(static_cast<float>(std::clamp(value, -1e30, 1e30))));
    });
    return out;
}

} // namespace

void waveFilterCommand(Call& call) {
    const Numbers b = call.input(0, "B").vector();
    const Numbers a = call.input(1, "A").vector();
    if (*a.begin() != 1) call.input(1, "A").refuse("a vector that begins with 1");
    const Argument input = call.input(2, "WAVE");
    const Numbers wave = input.unitSamples();
    mxArray* out = vectorLike(input, wave.size());
    std::copy(wave.begin(), wave.end(), mxGetPr(out));
    cAudio::filter(b.data(), b.length(), a.data(), a.length(), mxGetPr(out), wave.length());
    call.give(0, out);
}

void waveEchoCommand(Call& call) {
    const Argument input = call.input(0, "WAVE");
    const int fs = call.input(1, "FS").whole(1);
    const double delay = call.input(2, "DELAY").number(0, mostNumber);
    const double gain = call.input(3, "GAIN").number(-mostNumber, mostNumber);
    if (input.isFloating()) {
        const Numbers wave = input.recording();
        mxArray* out = vectorLike(input, wave.size());
        cAudio::waveEcho(wave.data(), wave.length(), fs, delay, gain, mxGetPr(out));
        call.give(0, out);
    } else {
        const std::vector<int> wave = input.ownSamples(16);
        std::vector<int> out(wave.size());
        mxArray* array = arrayLike(input, wave.size());
        cAudio::waveEcho(wave.data(), static_cast<int>(wave.size()), fs, delay, gain, out.data());
        setSamples(array, out, 16);
        call.give(0, array);
    }
}

void waveResampleCommand(Call& call) {
    const Argument input = call.input(0, "WAVE");
    const int oldFs = call.input(1, "OLDFS").whole(1);
    const int newFs = call.input(2, "NEWFS").whole(1);
    const int nbits = call.has(3) ? call.input(3, "NBITS").bitDepth() : 16;
    const std::vector<int> wave = input.ownSamples(nbits);
    const std::int64_t last = (static_cast<std::int64_t>(wave.size()) - 1) * newFs / oldFs;
    const int length = resultLength(call, static_cast<double>(last) + 1, "NEWFS and OLDFS");
    const auto count = static_cast<size_t>(length);
    const auto out = std::make_unique_for_overwrite<int[]>(count); // zeros would take long, with no question
    mxArray* array = arrayLike(input, count);
    cAudio::waveResample(wave.data(), static_cast<int>(wave.size()), oldFs, newFs, out.get(), length);
    setSamples(array, {out.get(), count}, nbits);
    call.give(0, array);
}

void pitch2waveCommand(Call& call) {
    const Argument input = call.input(0, "PITCH");
    const Numbers pitch = input.vector();
    const double pitchRate = call.input(1, "PITCHRATE").positive();
    const int fs = call.input(2, "FS").whole(1);
    const double duration = call.has(3) ? call.input(3, "DURATION").number(0, mostNumber)
                                        : static_cast<double>(pitch.size()) / pitchRate;
    const int waveLen =
        resultLength(call, std::round(duration * fs), call.has(3) ? "DURATION and FS" : "PITCHRATE and FS");
    mxArray* wave = vectorLike(input, static_cast<size_t>(waveLen));
    cAudio::pitch2wave(pitch.data(), pitch.length(), pitchRate, fs, mxGetPr(wave), waveLen);
    call.give(0, wave);
}

void note2waveCommand(Call& call) {
    const Notes notes = readNotes(call);
    const int fs = call.input(2, "FS").whole(1);
    const int waveLen = resultLength(call, std::floor(notes.total() * fs), "DURATION and FS");
    mxArray* wave = vectorLike(call.input(0, "PITCH"), static_cast<size_t>(waveLen));
    cAudio::note2wave(notes.pitch.data(), notes.pitch.length(), notes.duration.data(), fs, mxGetPr(wave),
                      waveLen);
    call.give(0, wave);
}

void note2pvCommand(Call& call) {
    const Notes notes = readNotes(call);
    const double timeStep = call.input(2, "TIMESTEP").positive();
    const int length = resultLength(call, std::round(notes.total() / timeStep), "DURATION and TIMESTEP");
    std::vector<double> pairs;
    for (size_t i = 0; i < notes.pitch.size(); ++i)
        pairs.insert(pairs.end(), {notes.pitch.data()[i], notes.duration.data()[i]});
    if (pairs.size() > static_cast<size_t>(mostInt)) call.refuse("PITCH must have fewer notes");
    mxArray* pitch = matrix(call, 1, length);
    cAudio::note2pv(pairs.data(), static_cast<int>(pairs.size()), timeStep, mxGetPr(pitch), length);
    call.give(0, pitch);
}

void pitch2freqCommand(Call& call) {
    call.give(0, mapped(call, "PITCH", cAudio::pitch2freq));
}

void freq2pitchCommand(Call& call) {
    call.give(0, mapped(call, "FREQUENCY", cAudio::freq2pitch));
}
