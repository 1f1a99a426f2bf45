// Prints the pitch of a recording, and draws it over the recording's spectrogram:
//   pitchOverSpectrogram WAV [acf|amdf] [PICTURE.png]
// One line per frame with pitch: time in seconds, pitch in semitones, frequency in Hz. The picture takes
// gnuplot.
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

/// The pitch at a time, 0 for none.
struct Point {
    double seconds;
    double pitch;
};

std::vector<Point> trackPitch(const Recording& recording, PF_TYPE pfType) {
    PTPARAM ptParam;
    cAudio::ptParamSet(&ptParam, recording.fs, 16, pfType, nullptr);
    const auto length = static_cast<int>(recording.samples.size());
    const int frameNum = std::max(0, cAudio::getFrameNum2(length, ptParam.frameSize, ptParam.overlap));
    std::vector<double> pitch(static_cast<size_t>(frameNum));
    ptByDpOverPfOnce<double, int>(recording.samples.data(), length, ptParam, pitch.data(), nullptr, nullptr,
                                  nullptr);
    std::vector<Point> points;
    for (int i = 0; i < frameNum; ++i) {
        const int centre = cAudio::frame2sampleIndex(i, ptParam.frameSize, ptParam.overlap);
        points.push_back({static_cast<double>(centre) / recording.fs, pitch[static_cast<size_t>(i)]});
    }
    return points;
}

double frequencyOf(double pitch) {
    return static_cast<double>(cAudio::pitch2freq(static_cast<float>(pitch)));
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
    for (const Point& point : points)
        if (point.pitch > 0.0) voiced.insert(voiced.end(), {point.seconds, frequencyOf(point.pitch)});

    Gnuplot plot;
    plot.line("set terminal pngcairo size 1400,600 noenhanced");
    plot.line("set output %s", Gnuplot::quoted(picture).c_str());
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
    if (argc < 2) throw std::runtime_error("usage: pitchOverSpectrogram WAV [acf|amdf] [PICTURE.png]");
    const Recording recording = readRecording(argv[1]);
    const bool amdf = argc > 2 && std::string(argv[2]) == "amdf";
    const std::vector<Point> points = trackPitch(recording, amdf ? PF_AMDF : PF_ACF);
    for (const Point& point : points)
        if (point.pitch > 0.0)
            std::printf("%.3f %.2f %.1f\n", point.seconds, point.pitch, frequencyOf(point.pitch));
    std::fflush(stdout);
    if (argc > 3) draw(recording, points, argv[3]);
    return 0;
} catch (const char* message) { // the library's fatal errors
    std::fprintf(stderr, "%s\n", message);
    return 1;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
