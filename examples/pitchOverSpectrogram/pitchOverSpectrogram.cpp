// Prints the pitch of a voice, and draws it over the recording's spectrogram:
//   pitchOverSpectrogram WAV [PICTURE.png]
// One line per voiced frame: time in seconds, frequency in Hz. The picture takes gnuplot.
//
// Like a further gateway it uses the library alone; mexPrintf, which the library prints with, comes from the
// stand-in host.
#include "audio/audio.hpp"

#include "gnuplot.hpp"

#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr double highest = 1200; // Hz, of the picture

struct Recording {
    int fs = 0;
    std::vector<int> samples; // 16 bits, the first channel
};

Recording readRecording(const char* path) {
    SF_INFO info{};
    const std::unique_ptr<SNDFILE, int (*)(SNDFILE*)> file(sf_open(path, SFM_READ, &info), sf_close);
    if (!file) throw std::runtime_error(std::string(path) + ": " + sf_strerror(nullptr));
    const auto channels = static_cast<size_t>(info.channels);
    std::vector<short> interleaved(static_cast<size_t>(info.frames) * channels);
    sf_readf_short(file.get(), interleaved.data(), info.frames);
    Recording recording{info.samplerate, {}};
    for (size_t i = 0; i < interleaved.size(); i += channels) recording.samples.push_back(interleaved[i]);
    return recording;
}

/// A voiced frame.
struct Point {
    double seconds;
    double f0; // Hz
};

std::vector<Point> trackPitch(const Recording& recording) {
    VOICEPARAM param;
    param.fs = recording.fs;
    if (const char* fault = voiceParamFault(param)) throw std::runtime_error(fault);
    const auto length = static_cast<int>(recording.samples.size());
    std::vector<double> f0(static_cast<size_t>(voiceSizes(length, param).frameNum));
    wave2f0(recording.samples.data(), length, param, f0.data());
    std::vector<Point> points;
    for (size_t i = 0; i < f0.size(); ++i)
        if (f0[i] > 0) points.push_back({static_cast<double>(i) / param.frameRate, f0[i]});
    return points;
}

/// The magnitudes up to 1.2 kHz in dB: rows of frequency, each a value for every frame of 32 ms each 5 ms.
struct Spectrogram {
    int frames = 0;
    int bins = 0;
    double timeStep = 0;  // seconds from frame to frame
    double firstTime = 0; // seconds, of the first frame's centre
    double binWidth = 0;  // Hz
    std::vector<double> levels{};
};

Spectrogram spectrogramOf(const Recording& recording) {
    const std::vector<double> wave(recording.samples.begin(), recording.samples.end());
    const auto length = static_cast<int>(wave.size());
    const double fs = recording.fs;
    const auto frameSize = static_cast<int>(fs * 0.032);
    const auto step = static_cast<int>(fs * 0.005);
    int size = 1;
    while (size < 2 * frameSize) size *= 2;
    const int rows = size / 2 + 1;
    const int frames = std::max(0, cAudio::getFrameNum2(length, frameSize, frameSize - step));
    std::vector<double> magnitude(static_cast<size_t>(frames) * static_cast<size_t>(rows));
    cAudio::absSpectrogram(wave.data(), length, frameSize, frameSize - step, size, 1, magnitude.data());

    Spectrogram result{frames, std::min(rows, static_cast<int>(std::ceil(highest * size / fs))), step / fs,
                       frameSize / 2 / fs, fs / size};
    for (int bin = 0; bin < result.bins; ++bin)
        for (int i = 0; i < frames; ++i) {
            const size_t at = static_cast<size_t>(i) * static_cast<size_t>(rows) + static_cast<size_t>(bin);
            result.levels.push_back(20.0 * std::log10(magnitude[at] + 1.0));
        }
    return result;
}

void draw(const Recording& recording, const std::vector<Point>& points, const std::string& picture) {
    const Spectrogram spectrogram = spectrogramOf(recording);
    if (spectrogram.frames < 2 || spectrogram.bins < 2)
        throw std::runtime_error("the recording is too short to be drawn");
    std::vector<double> voiced;
    for (const Point& point : points) voiced.insert(voiced.end(), {point.seconds, point.f0});

    Gnuplot plot;
    plot.line("set terminal pngcairo size 1400,600 noenhanced");
    plot.output(picture);
    plot.line("set xlabel 'Time (s)'; set ylabel 'Frequency (Hz)'; set cblabel 'Level (dB)'");
    plot.line("set xrange [0:%g]; set yrange [0:%g]; set cbrange [30:120]",
              static_cast<double>(recording.samples.size()) / recording.fs, highest);
    plot.line("set palette gray negative; unset key");
    plot.line("plot '-' binary array=(%d,%d) origin=(%g,0) dx=%g dy=%g format='%%double' with image%s",
              spectrogram.frames, spectrogram.bins, spectrogram.firstTime, spectrogram.timeStep,
              spectrogram.binWidth, voiced.empty() ? "" : ", \\");
    if (!voiced.empty())
        plot.line("'-' binary record=(%zu) format='%%double%%double' using 1:2 with points pt 7 ps 0.7 "
                  "lc rgb 'red'",
                  voiced.size() / 2);
    plot.data(spectrogram.levels);
    plot.data(voiced);
    plot.finish();
}

} // namespace

int main(int argc, char** argv) try {
    if (argc < 2) throw std::runtime_error("usage: pitchOverSpectrogram WAV [PICTURE.png]");
    const Recording recording = readRecording(argv[1]);
    const std::vector<Point> points = trackPitch(recording);
    for (const Point& point : points) std::printf("%.3f %.2f\n", point.seconds, point.f0);
    std::fflush(stdout);
    if (argc > 2) draw(recording, points, argv[2]);
    return 0;
} catch (const char* message) { // the library's fatal errors
    std::fprintf(stderr, "%s\n", message);
    return 1;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
