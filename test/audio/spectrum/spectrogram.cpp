#include "support/audio.hpp"

namespace {

/// The magnitude of each bin of the frame that begins at a sample, padded with zeros; transformed in T.
template <typename T>
Doubles magnitudes(const double* sample, int frameSize, int paddedSize, int useHamming) {
    const unsigned size = std::bit_ceil(unsigned(paddedSize));
    std::vector<T> real(size), imag(size);
    for (int i = 0; i < frameSize; ++i) {
        const double window = 0.54 - 0.46 * std::cos(6.28318530717958 * i / (frameSize - 1));
        real[size_t(i)] = T(sample[i]) * T(useHamming ? window : 1);
    }
    fftComplex(real.data(), imag.data(), int(size));
    Doubles magnitude(size);
    for (size_t k = 0; k < size; ++k)
        magnitude[k] = std::sqrt(double(real[k]) * double(real[k]) + double(imag[k]) * double(imag[k]));
    return magnitude;
}

Doubles noise(size_t length) {
    static std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    return randomDoubles(random, length, 1, 2000);
}

TEST(Spectrogram, HasTheMagnitudesOfEachFrame) {
    const Doubles wave = noise(1000);
    const int cases[][4] = {{256, 128, 256, 0}, {100, -7, 128, 1}, {200, 150, 300, 1}};
    for (const auto& [frameSize, overlap, paddedSize, useHamming] : cases) {
        const int binNum = paddedSize / 2 + 1;
        Doubles out(size_t(binNum * cAudio::getFrameNum2(1000, frameSize, overlap)));
        const ConsoleCapture console;
        cAudio::absSpectrogram(wave.data(), 1000, frameSize, overlap, paddedSize, useHamming, out.data());
        EXPECT_EQ(console.text().empty(), paddedSize != 300) << paddedSize;
        for (int i = 0; i < lengthOf(out); ++i) {
            const double* frame = wave.data() + i / binNum * (frameSize - overlap);
            const Doubles expected = magnitudes<double>(frame, frameSize, paddedSize, useHamming);
            EXPECT_EQ(out[size_t(i)], expected[size_t(i % binNum)]) << frameSize << ' ' << i;
        }
    }
}

TEST(Spectrogram, OfFramesInTheirPlaceHasAllBins) {
    for (const int useHamming : {0, 1}) {
        Doubles wave = noise(256);
        for (double& sample : wave) sample /= 3; // not exact in float
        Doubles out = wave;
        cAudio::absFft4frameMat(out.data(), 128, 2, useHamming, out.data());
        for (size_t i = 0; i < 256; ++i)
            EXPECT_EQ(out[i], magnitudes<float>(&wave[i / 128 * 128], 128, 128, useHamming)[i % 128]) << i;
    }
}

TEST(Spectrogram, RefusesFramesThatDoNotFit) {
    const char message[] =
        "Error: frameSize is larger than paddedSize (line N of file ../../../../c/lib/audio/audio)";
    EXPECT_EQ(fatalMessage([] { cAudio::absSpectrogram(nullptr, 0, 257, 0, 256, 0, nullptr); }), message);
    EXPECT_EQ(fatalMessage([] { cAudio::uvCut(nullptr, 0, 513, 0); }), message);
}

TEST(UvCut, IsTheLargestChangeInTheFirstHalf) {
    for (int frameNum = 5; frameNum < 60; ++frameNum) {
        const Doubles wave = noise(size_t(frameNum * 200 + 100));
        Doubles change;
        for (int start = 0; start < frameNum * 100 - 200; start += 200) {
            const Doubles before = magnitudes<double>(wave.data() + start, 300, 512, 1);
            const Doubles after = magnitudes<double>(wave.data() + start + 400, 300, 512, 1);
            change.push_back(0);
            for (size_t k = 0; k <= 256; ++k)
                change.back() += std::abs(after[k] * after[k] - before[k] * before[k]);
        }
        const auto largest = std::max_element(change.begin(), change.end()) - change.begin();
        const Ints whole(wave.begin(), wave.end());
        EXPECT_EQ(cAudio::uvCut(whole.data(), lengthOf(whole), 300, 100), largest) << frameNum;
        EXPECT_EQ(cAudio::uvCut(whole.data(), 900, 300, 100), 0); // fewer than five frames
    }
    EXPECT_EQ(cAudio::uvCut(Ints(4000).data(), 4000, 500, 0), 0); // the first of equals
    Ints click(3584);
    click[2048] = 1000; // in the fifth of seven frames, the last one that is searched
    EXPECT_EQ(cAudio::uvCut(click.data(), 3584, 512, 0), 2);
}

TEST(Window, IsSymmetric) {
    std::vector<float> frame{2, 2, 2, 2, 2};
    cAudio::hammingWindowing(frame.data(), 5);
    EXPECT_EQ(text(frame), "0.16 1.08 2 1.08 0.16");
}

} // namespace
