#include "support/audio.hpp"

namespace {

/// The first bins of each frame's magnitude spectrum, from a transform of its own.
template <typename T>
Doubles magnitudes(const Doubles& frames, size_t frameSize, int length, size_t bins, int useHamming) {
    Doubles out;
    for (size_t start = 0; start < frames.size(); start += frameSize) {
        std::vector<T> real(size_t(length) * 2), imag(real);
        for (size_t j = 0; j < frameSize; ++j) {
            const double w = 0.54 - 0.46 * std::cos(double(j) * 6.28318530717958 / double(frameSize - 1));
            real[j] = static_cast<T>(frames[start + j]) * static_cast<T>(useHamming ? w : 1.0);
        }
        fftComplex(real.data(), imag.data(), length);
        for (size_t k = 0; k < bins; ++k)
            out.push_back(std::sqrt(double(real[k]) * double(real[k]) + double(imag[k]) * double(imag[k])));
    }
    return out;
}

TEST(Spectrogram, EqualsTransformsFrameByFrame) {
    const int cases[][4] = {{256, 128, 256, 0}, {100, -7, 128, 1}, {200, 150, 300, 1}, {1, 0, 1, 0}};
    Doubles wave;
    for (int i = 0; i < 1000; ++i) wave.push_back(std::sin(1e-3 * i * i) + 1e-3 * i);
    for (const auto& [frameSize, overlap, paddedSize, useHamming] : cases) {
        const int frameNum = cAudio::getFrameNum2(1000, frameSize, overlap), bins = paddedSize / 2 + 1;
        Doubles frames, out(size_t(frameNum * bins)), mat(size_t(frameNum * frameSize));
        for (int i = 0; i < frameNum; ++i)
            for (int j = 0; j < frameSize; ++j) frames.push_back(wave[size_t(i * (frameSize - overlap) + j)]);
        const ConsoleCapture console;
        const auto size = size_t(frameSize);
        const Doubles expected = magnitudes<double>(frames, size, paddedSize, size_t(bins), useHamming);
        const Doubles expectedMat = magnitudes<float>(frames, size, frameSize, size, useHamming);
        const std::string said = console.text();
        cAudio::absSpectrogram(wave.data(), 1000, frameSize, overlap, paddedSize, useHamming, out.data());
        cAudio::absFft4frameMat(frames.data(), frameSize, frameNum, useHamming, mat.data());
        EXPECT_EQ(out, expected) << frameSize << ' ' << paddedSize;
        EXPECT_EQ(mat, expectedMat) << frameSize;
        EXPECT_EQ(console.text(), said + said) << frameSize << ' ' << paddedSize;
    }
}

TEST(Spectrogram, WritesNothingWithoutFrames) {
    for (const auto& [waveLen, frameSize, overlap, paddedSize] :
         {std::tuple(1000, 64, 65, 64), {10, 64, 32, 64}, {1000, -5, -10, -4}, {9, INT_MIN, INT_MAX, 8}})
        cAudio::absSpectrogram(nullptr, waveLen, frameSize, overlap, paddedSize, 1, nullptr);
    const char text[] =
        "Error: frameSize is larger than paddedSize (line N of file ../../../../c/lib/audio/audio)";
    EXPECT_EQ(fatalMessage([] { cAudio::absSpectrogram(nullptr, 0, 257, 0, 256, 0, nullptr); }), text);
    EXPECT_EQ(fatalMessage([] { cAudio::uvCut(nullptr, 0, 513, 0); }), text);
}

TEST(UvCut, FindsTheFirstOfTheLargestChangesInTheFirstHalf) {
    // Silence up to a frame, then frames that are all alike, so that two changes are equally large.
    const int cases[][3] = {{20, 5, 3}, {7, 4, 2}, {7, 5, 0}, {5, 3, 1}, {0, 0, 0}};
    for (const int frameSize : {512, 200})
        for (const auto& [frameNum, firstLoud, cut] : cases) {
            Ints wave(size_t(frameNum * frameSize));
            for (int i = firstLoud * frameSize; i < lengthOf(wave); ++i)
                wave[size_t(i)] = i % frameSize * 37 % 1000;
            EXPECT_EQ(cAudio::uvCut(wave.data(), lengthOf(wave), frameSize, 0), cut)
                << frameNum << ' ' << firstLoud;
        }
}

TEST(Window, IsSymmetric) {
    float frame[] = {2, 2, 2, 2, 2};
    cAudio::hammingWindowing(frame, 5);
    for (const auto& [i, value] : {std::pair(0, 0.16), {1, 1.08}, {2, 2.0}, {3, 1.08}, {4, 0.16}})
        EXPECT_NEAR(double(frame[i]), value, 1e-6);
}

} // namespace
