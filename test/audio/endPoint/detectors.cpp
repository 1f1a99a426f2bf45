// The detectors with thresholds of their own, and the volume check.
#include "audio/audio.hpp"

#include "audio/endPoint/made.hpp"
#include "support/console.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace {

using Ints = std::vector<int>;
using Reals = std::vector<double>;

/// The test's files stand in a directory of their own while it lives.
class OwnDirectory {
public:
    OwnDirectory() { std::filesystem::current_path(path); }
    ~OwnDirectory() {
        std::filesystem::current_path(before);
        std::filesystem::remove_all(path);
    }
    static std::string text(const char* name) {
        std::ifstream file(name);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::path path = [] {
        char name[] = "/tmp/endPointXXXXXX";
        return mkdtemp(name);
    }();
};

/// Two-threshold extension, walking from each edge as far as it goes.
Ints walked(const Ints& volume, int low, int high) {
    const int n = lengthOf(volume);
    const auto at = [](auto& v, int i) -> auto& {
        return v[static_cast<std::size_t>(i)];
    };
    Ints on;
    for (const int v : volume) on.push_back(v >= high);
    for (int i = 0; i + 1 < n; ++i)
        if (!at(on, i) && at(on, i + 1))
            for (int j = i; j >= 0 && at(volume, j) >= low; --j) at(on, j) = 1;
    for (int i = 1; i < n; ++i)
        if (at(on, i - 1) && !at(on, i))
            for (int j = i; j < n && at(volume, j) >= low; ++j) at(on, j) = 1;
    return on;
}

TEST(TwoThreshold, SoundReachesAsFarAsTheLowThresholdIsReached) {
    const OwnDirectory directory;
    std::mt19937 random(3); // NOLINT(cert-msc51-cpp)
    for (int round = 0; round < 100; ++round) {
        Ints volume(1 + random() % 20);
        for (int& v : volume) v = static_cast<int>(random() % 10);
        const auto [least, most] = std::minmax_element(volume.begin(), volume.end());
        const int r1 = 1 + static_cast<int>(random() % 6);
        const int r2 = 1 + static_cast<int>(random() % 6);
        const epdStruct epd{NAN, r1 + 0.9, r2 + 0.1};
        Ints voiced(volume.size(), -1);
        const ConsoleCapture console;
        cAudio::volume2voiced(volume.data(), lengthOf(volume), 0, &epd, voiced.data());
        const int low = *least + (*most - *least) / r1;
        const int high = *least + (*most - *least) / r2;
        EXPECT_EQ(voiced, walked(volume, low, high));
        EXPECT_EQ(OwnDirectory::text("volTh1.txt"), std::to_string(low) + " \n");
        EXPECT_EQ(OwnDirectory::text("volTh2.txt"), std::to_string(high) + " \n");
        EXPECT_EQ(console.text(), "volTh1=" + std::to_string(low) + ", volTh2=" + std::to_string(high) +
                                      ", maxVol=" + std::to_string(*most) +
                                      ", minVol=" + std::to_string(*least) + "\n");
    }
    const ConsoleCapture console;
    const epdStruct zero{0.0, NAN, 0.5}; // ratios that truncate to 0
    const Ints volume{INT_MIN, 0, INT_MAX};
    Ints voiced(3, -1);
    cAudio::volume2voiced(volume.data(), 3, 0, &zero, voiced.data());
    EXPECT_EQ(voiced, (Ints{0, 0, 1}));
    std::filesystem::remove("volTh1.txt");
    cAudio::volume2voiced(nullptr, 0, 0, &zero, nullptr);
    EXPECT_FALSE(std::filesystem::exists("volTh1.txt"));
}

TEST(EpdByVol2, PairsOfFrames) {
    std::mt19937 random(5); // NOLINT(cert-msc51-cpp)
    for (int round = 0; round < 200; ++round) {
        std::vector<Piece> pieces;
        const double floor = round % 10;
        for (int hop = 0; hop < 40; ++hop) {
            const double amplitude = random() % 2 ? std::exp2(random() % 12) : floor;
            pieces.push_back({320 * hop, 320 * hop + 320, amplitude});
        }
        const Ints wave = made<int>(320 * 40, pieces);
        Ints volume(39);
        wave2volume(wave.data(), lengthOf(wave), 512, 192, volume.data(), 1);
        const auto [least, most] = std::minmax_element(volume.begin(), volume.end());
        const bool narrow = *most / 4 < 20 * *least;
        int low = narrow ? *most / 8 : 10 * *least;
        int high = narrow ? 2 * low : 20 * *least;
        if (128 * high < *most) high = 2 * (low = *most / 128);
        const Ints on = walked(volume, low, high);
        Ints expected;
        for (int i = 0; i < 39; ++i)
            for (const int beside : {i - 1, i + 1})
                if (on[size_t(i)] && (beside < 0 || beside > 38 || !on[size_t(beside)]))
                    expected.push_back(i);
        Ints endPoint(40, -1);
        endPoint.resize(size_t(cAudio::epdByVol2(wave.data(), lengthOf(wave), 0, endPoint.data(), 0)));
        EXPECT_EQ(endPoint, expected);
    }
    const Ints silence(512 + 320);
    int endPoint[3] = {};
    EXPECT_EQ(cAudio::epdByVol2(silence.data(), 832, 0, endPoint, 0), 2);
    EXPECT_EQ(endPoint[1], 1) << "both thresholds are 0 and reached";
    EXPECT_EQ(cAudio::epdByVol2(silence.data(), 511, 0, nullptr, 0), 0);
}

TEST(VolumeThreshold, RoundedMeanInsideItsRange) {
    const struct {
        Ints volume;
        int d, threshold;
    } cases[] = {{{100, 100}, 2, 512},
                 {{127, 128}, 2, 128},
                 {{2560, 2560}, 2, 2560},
                 {{2561, 2561}, 2, 512},
                 {{2000}, 0, 512},
                 {{INT_MAX, INT_MAX}, INT_MAX, 512},
                 {{}, 1, 512},
                 {{INT_MAX, INT_MAX, 3}, 1 << 21, 2048},
                 {{-300}, -1, 300}};
    for (const auto& c : cases)
        EXPECT_EQ(cAudio::getVolumeThreshold(c.volume.data(), 0, lengthOf(c.volume), c.d), c.threshold)
            << c.d;
    EXPECT_EQ(cAudio::getVolumeThreshold(nullptr, 0, INT_MIN, 1), 512);
}

TEST(EpdByVolZcr, WidensByVolumeAndThenByCrossings) {
    const struct {
        const char* what;
        int waveLen;
        std::vector<Piece> pieces;
        int start, end;
    } cases[] = {
        {"no whole frame", 319, {{0, 319, 9}}, 159, 79},
        {"silence", 320 + 80 * 4, {}, 80 * 5 + 159, 79},
        {"the last frame alone", 1120, {{1040, 1120, 100, 1000}}, 959, 959},
        {"a loud stretch, samples 4000 to 6000", 8000, {{4000, 6000, 800, 40}}, 3919, 6079},
        {"a sixteenth of it before", 8000, {{3000, 4000, 50, 160}, {4000, 6000, 800, 40}}, 3919, 6079},
        {"a little more than that", 8000, {{3000, 4000, 51, 160}, {4000, 6000, 800, 40}}, 3199, 6079},
        {"hiss before", 8000, {{1600, 4000, 1}, {4000, 6000, 800, 40}}, 1599, 6079},
    };
    for (const auto& c : cases) {
        const Ints wave = made<int>(c.waveLen, c.pieces);
        int start = -1;
        int end = -1;
        cAudio::epdByVolZcr(wave.data(), c.waveLen, 0, &start, &end);
        EXPECT_EQ(start, c.start) << c.what;
        EXPECT_EQ(end, c.end) << c.what;
    }
}

/// A stretch of sound that touches frames first to last of the character detector.
Piece touching(int first, int last, double amplitude = 1.0) {
    return {170 * first + 86, 170 * (last + 1), amplitude};
}

TEST(Characters, CoresWidenAndMerge) {
    const std::string warning = "Warning: some characters are not recorded due to limited length!\n";
    const Piece hum = {0, 170 * 81, 0.056, 2}; // 25 dB below
    const struct {
        const char* what;
        std::vector<Piece> pieces;
        int fs, maxNum;
        Reals frames;
        std::string text;
    } cases[] = {
        {"one burst", {touching(10, 40)}, 16000, 5, {10, 40}, ""},
        {"11 frames are long enough, 10 are not",
         {touching(10, 20), touching(40, 49)},
         16000,
         5,
         {10, 20},
         ""},
        {"at 8000 Hz 6 and 5 are", {touching(10, 15), touching(40, 44)}, 8000, 5, {10, 15}, ""},
        {"silence parts them", {touching(10, 30), touching(32, 50)}, 16000, 5, {10, 30, 32, 50}, ""},
        {"a quieter frame does not",
         {touching(10, 29), touching(30, 32, 0.056), touching(33, 50)},
         16000,
         5,
         {10, 50},
         ""},
        {"three in one stretch",
         {hum, touching(10, 22), touching(26, 40), touching(45, 60)},
         16000,
         5,
         {0, 79},
         ""},
        {"one slot", {touching(10, 30), touching(32, 50)}, 16000, 1, {10, 30}, warning},
        {"two slots, the first too short",
         {touching(5, 6), touching(10, 30), touching(32, 50)},
         16000,
         2,
         {10, 30},
         warning},
        {"no slot", {touching(10, 30)}, 16000, INT_MIN, {}, warning},
        {"a constant", {{0, 170 * 81, 3.0, 1 << 20}}, 16000, 5, {0, 79}, ""},
        {"not a number", {touching(10, 30), {5000, 5001, NAN}}, 16000, 5, {}, ""},
    };
    for (const auto& c : cases) {
        Reals wave = made<double>(170 * 81, c.pieces);
        const auto slots = static_cast<std::size_t>(std::max(c.maxNum, 0));
        Reals start(slots, 7.0);
        Reals end(slots, 7.0);
        const ConsoleCapture console;
        const int count =
            cAudio::charEndPointDetect(wave.data(), lengthOf(wave), c.fs, start.data(), end.data(), c.maxNum);
        EXPECT_EQ(console.text(), c.text) << c.what;
        ASSERT_EQ(2 * count, lengthOf(c.frames)) << c.what;
        for (std::size_t i = 0; i < slots; ++i) {
            const bool used = 2 * i < c.frames.size();
            EXPECT_EQ(start[i], used ? 170 * c.frames[2 * i] : -1) << c.what;
            EXPECT_EQ(end[i], used ? 170 * c.frames[2 * i + 1] + 255 : -1) << c.what;
        }
        int first = 7;
        int last = 7;
        cAudio::sentenceEndPointDetect(wave.data(), lengthOf(wave), c.fs, &first, &last);
        if (c.text.empty()) {
            EXPECT_EQ(first, count ? start[0] : -1) << c.what;
            EXPECT_EQ(last, count ? end[static_cast<std::size_t>(count - 1)] : -1) << c.what;
        }
    }
    Reals shifted{3, 5, 4, 4};
    cAudio::charEndPointDetect(shifted.data(), 4, 8000, nullptr, nullptr, 0);
    EXPECT_EQ(shifted, (Reals{-1, 1, 0, 0}));
    Reals list{-1, 4, -1, -1, 2, 9};
    packCharIndex(list.data(), 5);
    EXPECT_EQ(list, (Reals{4, 2, -1, -1, -1, 9}));
}

TEST(Handset, VoicedSpanWithoutBlips) {
    const int hop = 128;
    const auto sound = [](int first, int last) {
        return Piece{hop * (first + 1), hop * (last + 1), 1.0, 64};
    };
    const auto blip = [](int frame) { return Piece{hop * frame + 64, hop * frame + 192, 0.4, 64}; };
    const Piece voice = sound(70, 90);             // touches these frames, no others
    const Piece hiss = {hop * 50, hop * 56, 0.01}; // has the largest count
    const double silence[] = {2, 50};
    const struct {
        const char* what;
        std::vector<Piece> pieces;
        double start, end;
    } cases[] = {
        {"the voice", {voice}, 70, 90},
        {"under way at 0.2 s", {sound(5, 30), voice}, 70, 90},
        {"from a frame later on", {sound(12, 30), voice}, 12, 90},
        {"a blip", {blip(21), voice}, 70, 90},
        {"a second blip stays", {blip(21), blip(31), voice}, 31, 90},
        {"at the end of the first second", {blip(62), voice}, 70, 90},
        {"after it", {blip(63), voice}, 63, 90},
        {"a double blip", {sound(30, 31), voice}, 70, 90},
        {"one of each", {sound(30, 31), blip(40), voice}, 70, 90},
        {"a second double blip stays", {sound(30, 31), sound(40, 41), voice}, 40, 90},
        {"loud hiss", {{hop * 30, hop * 40, 1.0}, voice}, 70, 90},
        {"the recording's end", {sound(80, 99)}, 80, 99},
        {"nothing: the fallback", {}, silence[0], silence[1]},
        {"a frame that is not finite", {{3000, 3001, NAN}, {3500, 3501, INFINITY}, voice}, 70, 90},
    };
    for (const auto& c : cases) {
        std::vector<Piece> pieces = c.pieces;
        pieces.insert(pieces.begin(), hiss);
        Reals wave = made<double>(hop * 101, pieces);
        double endPoint[2] = {silence[0], silence[1]};
        cAudio::endPointDetect4quokka(wave.data(), lengthOf(wave), 8000, 16, endPoint);
        EXPECT_EQ(endPoint[0], std::max(0.0, hop * c.start - 384)) << c.what;
        EXPECT_EQ(endPoint[1], std::min(hop * 101 - 1.0, hop * c.end + 640)) << c.what;
        EXPECT_EQ(wave[hop * 50 + 1], -327.68) << "rescaled";
    }
    Reals wave = made<double>(hop * 101, {hiss, sound(70, 90)});
    for (const int fs : {INT_MIN, 0, 639, INT_MAX})
        for (const int nbits : {INT_MIN, INT_MAX})
            for (const int waveLen : {INT_MIN, 0, 255, 256, hop * 101}) {
                double endPoint[2] = {NAN, INFINITY};
                cAudio::endPointDetect4quokka(wave.data(), waveLen, fs, nbits, endPoint);
                EXPECT_EQ(endPoint[1], waveLen - 1.0);
            }
}

TEST(VolumeCheck, CodesAtTheirThresholds) {
    const struct {
        const char* what;
        int frameNum, amplitude, quiet, saturated, peak, code;
    } cases[] = {
        {"fit", 200, 140, 0, 0, 0, 0},
        {"too quiet", 200, 139, 0, 0, 0, 1},
        {"not noisy, but too quiet", 200, 30, 30, 0, 0, 1},
        {"a steady hum", 200, 50, 50, 0, 0, 2},
        {"noisy", 200, 1000, 31, 0, 0, 2},
        {"one clipped sample in 200 frames", 200, 140, 0, 1, 31130, 0},
        {"one in 199", 199, 140, 0, 1, 31130, 3},
        {"two, below", 200, 140, 0, 2, -31130, 3},
        {"beside the limit", 200, 140, 0, 9, 31129, 0},
        {"beside the limit, below", 200, 140, 0, 9, -31129, 0},
        {"no whole frame", 0, 140, 140, 1, 32767, 1},
    };
    for (const auto& c : cases) {
        const int waveLen = 160 * c.frameNum + 160;
        Ints wave = made<int>(
            waveLen, {{0, waveLen, double(c.quiet)}, {0, std::min(waveLen, 800), double(c.amplitude)}});
        for (int i = 0; i < c.saturated; ++i) wave[static_cast<std::size_t>(i)] = c.peak;
        for (const char* none : {"", static_cast<const char*>(nullptr)})
            EXPECT_EQ(cAudio::waveVolumeCheck(wave.data(), waveLen, none), c.code) << c.what;
    }
}

TEST(VolumeCheck, ParameterFiles) {
    const OwnDirectory directory;
    std::ofstream("check.txt") << "minVolTh = 7 % quiet\nmaxVolTh=150\nminVolTh=8.5\n";
    VOL_CHECK_PRM prm{1, 2, 3, 4};
    cAudio::volCheckPrmRead("check.txt", &prm);
    testing::internal::CaptureStdout();
    cAudio::volCheckPrmPrint(&prm);
    cAudio::volCheckPrmRead("", &prm);
    cAudio::volCheckPrmPrint(&prm);
    std::string lines;
    for (const char* field :
         {"maxVolTh=150", "minVolTh=8.5", "satAmpRatio=3", "satSampleCountRatioTh=4", "maxVolTh=140",
          "minVolTh=30", "satAmpRatio=0.95", "satSampleCountRatioTh=0.005"})
        lines += std::string("volCheckPrm->") + field + " (line N, file=../../../../c/lib/audio/audio)\n";
    EXPECT_EQ(withoutLineNumber(testing::internal::GetCapturedStdout()), lines);

    const Ints wave =
        made<int>(1600, {{0, 800, 145}}); // the file's level, the defaults of what it leaves out
    EXPECT_EQ(cAudio::waveVolumeCheck(wave.data(), 1600, nullptr), 0);
    EXPECT_EQ(cAudio::waveVolumeCheck(wave.data(), 1600, "check.txt"), 1);

    std::ofstream("check.txt") << "satAmpRatio=0.5\nMaxVolTh=3\nminVolTh=1\n";
    EXPECT_EQ(fatalMessage([&] { cAudio::volCheckPrmRead("check.txt", &prm); }),
              "Error in parsing check.txt, unknown key = MaxVolTh (line N in ../../../../c/lib/audio/audio)");
    EXPECT_EQ(prm.satAmpRatio, 0.5F);
    EXPECT_EQ(prm.minVolTh, 30.0F);
    EXPECT_NE(fatalMessage([&] { cAudio::waveVolumeCheck(wave.data(), 0, "missing.txt"); }), "");
}

} // namespace
