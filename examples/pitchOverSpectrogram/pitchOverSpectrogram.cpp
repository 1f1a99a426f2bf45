// Prints the pitch of a recording, and draws it over the recording's spectrogram:
//   pitchOverSpectrogram WAV [acf|amdf] [PICTURE.png]
// One line per frame with pitch: time in seconds, pitch in semitones, frequency in Hz. The picture takes
// gnuplot.
//
// Like a further gateway it uses the library alone; mexPrintf, which the library prints with, comes from the
// stand-in host.
#include "audio/audio.hpp"

#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace {

struct Recording {
    int fs = 0;
    std::vector<int> samples; // 16 bits, the first channel
};

Recording readRecording(const char* path) {
    SF_INFO info{};
    const std::unique_ptr<SNDFILE, int (*)(SNDFILE*)> file(sf_open(path, SFM_READ, &info), sf_close);
    if (!file) throw sf_strerror(nullptr);
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

/// The magnitudes up to 1.2 kHz in dB, as rows of time, frequency and level: frames of 32 ms every 5 ms.
void writeSpectrogram(const Recording& recording, std::FILE* out) {
    const std::vector<double> wave(recording.samples.begin(), recording.samples.end());
    const auto length = static_cast<int>(wave.size());
    const int frameSize = recording.fs * 32 / 1000;
    const int overlap = frameSize - recording.fs * 5 / 1000;
    int size = 1;
    while (size < 2 * frameSize) size *= 2;
    const int bins = size / 2 + 1;
    const int frameNum = std::max(0, cAudio::getFrameNum2(length, frameSize, overlap));
    std::vector<double> magnitude(static_cast<size_t>(frameNum) * static_cast<size_t>(bins));
    cAudio::absSpectrogram(wave.data(), length, frameSize, overlap, size, 1, magnitude.data());
    for (int i = 0; i < frameNum; ++i) {
        const double seconds =
            static_cast<double>(cAudio::frame2sampleIndex(i, frameSize, overlap)) / recording.fs;
        for (int bin = 0; bin < bins && bin * recording.fs < 1200 * size; ++bin) {
            const double level =
                magnitude[static_cast<size_t>(i) * static_cast<size_t>(bins) + static_cast<size_t>(bin)];
            std::fprintf(out, "%g %g %g\n", seconds, static_cast<double>(bin) * recording.fs / size,
                         20.0 * std::log10(level + 1.0));
        }
        std::fprintf(out, "\n");
    }
    std::fprintf(out, "e\n");
}

struct PipeCloser {
    void operator()(std::FILE* pipe) const { pclose(pipe); }
};

void draw(const Recording& recording, const std::vector<Point>& points, const std::string& picture) {
    const std::unique_ptr<std::FILE, PipeCloser> gnuplot(popen("gnuplot", "w"));
    if (!gnuplot) throw "gnuplot does not start";
    std::fprintf(
        gnuplot.get(),
        "set terminal png size 1400,600\nset output '%s'\nset xlabel 'time (s)'\n"
        "set ylabel 'frequency (Hz)'\nset yrange [0:1200]\nset xrange [0:%g]\nset cblabel 'level (dB)'\n"
        "set palette gray negative\nset cbrange [30:120]\nset view map\nunset key\n"
        "splot '-' using 1:2:3 with pm3d, '-' using 1:2:(200) with points pt 7 ps 0.7 lc rgb "
        "'red'\n",
        picture.c_str(), static_cast<double>(recording.samples.size()) / recording.fs);
    writeSpectrogram(recording, gnuplot.get());
    for (const Point& point : points)
        if (point.pitch > 0.0)
            std::fprintf(gnuplot.get(), "%g %g 0\n", point.seconds, frequencyOf(point.pitch));
    std::fprintf(gnuplot.get(), "e\n");
}

} // namespace

int main(int argc, char** argv) try {
    if (argc < 2) throw "usage: pitchOverSpectrogram WAV [acf|amdf] [PICTURE.png]";
    const Recording recording = readRecording(argv[1]);
    const bool amdf = argc > 2 && std::string(argv[2]) == "amdf";
    const std::vector<Point> points = trackPitch(recording, amdf ? PF_AMDF : PF_ACF);
    for (const Point& point : points)
        if (point.pitch > 0.0)
            std::printf("%.3f %.2f %.1f\n", point.seconds, point.pitch, frequencyOf(point.pitch));
    if (argc > 3) draw(recording, points, argv[3]);
    return 0;
} catch (const char* message) { // what the library's fatal errors throw, too
    std::fprintf(stderr, "%s\n", message);
    return 1;
}
