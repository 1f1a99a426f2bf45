// Frames of a waveform, spectra, filters, echo, resampling and synthesis.
#include "audio/audio.hpp"
#include "audio/waveform/resampling.hpp"
#include "support/check.hpp"
#include "support/sound.hpp"
#include "support/target.hpp"

#include <bit>
#include <complex>

namespace {

void framing(Bytes& bytes) {
    cAudio::getFrameNum(bytes.anyInt(), bytes.anyInt(), bytes.anyInt());
    cAudio::getFrameNum2(bytes.anyInt(), bytes.anyInt(), bytes.anyInt());
    cAudio::frame2sampleIndex(bytes.anyInt(), bytes.anyInt(), bytes.anyInt());
    cAudio::sample2frameIndex(bytes.anyInt(), bytes.anyInt(), bytes.anyInt());
    const Exact<int> wave = exactInts(bytes, bytes.length(0, 200));
    const int frameSize = bytes.length(0, 60);
    const int overlap = bytes.from(-9, 70);
    const int step = frameSize - overlap;
    Exact<int> start(cAudio::getFrameNum2(wave.length(), frameSize, overlap), -7);
    cAudio::buffer2(wave.length(), frameSize, overlap, start.data());
    for (int i = 0; i < start.length(); ++i) requireSame(start[i], i * step, "the start of a frame");
    Exact<int> frames(std::max(0, cAudio::getFrameNum(wave.length(), frameSize, overlap)) * frameSize, -7);
    cAudio::bufferXXX(wave.data(), wave.length(), frameSize, overlap, frames.data());
    for (int i = 0; i < frames.length(); ++i) {
        const int at = i / frameSize * step - overlap + i % frameSize;
        requireSame(frames[i], at >= 0 && at < wave.length() ? wave[at] : 0, "a sample of a frame");
    }
}

/// Against sums of products, where all values are of one size.
template <typename T>
void transform(Bytes& bytes) {
    const int n = bytes.length(-1, 700);
    const int size = std::max(2, static_cast<int>(std::bit_ceil(static_cast<unsigned>(std::max(n, 1)))));
    Exact<T> real(size);
    Exact<T> imag(size);
    for (int i = 0; i < n; ++i) {
        real[i] = static_cast<T>(bytes.from(-99, 99));
        imag[i] = static_cast<T>(bytes.from(-99, 99));
    }
    const Exact<T> x = real;
    const Exact<T> y = imag;
    fftComplex(real.data(), imag.data(), n);
    const int k = bytes.below(size);
    std::complex<double> sum = 0;
    for (int t = 0; t < size; ++t) {
        const double angle = -2 * std::numbers::pi * (std::int64_t{t} * k % size) / size;
        sum += std::complex<double>(double(x[t]), double(y[t])) * std::polar(1.0, angle);
    }
    const double error = std::abs(sum - std::complex<double>(double(real[k]), double(imag[k])));
    const double mostError = 1000.0 * size * double(std::numeric_limits<T>::epsilon());
    require(error < mostError, "the transform at " + std::to_string(k));
    if (n < 1) return;
    for (T& value : real) value = static_cast<T>(bytes.anyInt());
    for (T& value : imag) value = static_cast<T>(bytes.anyDouble() > 0 ? HUGE_VAL : 0.0);
    fftComplex(real.data(), imag.data(), n);
}

void spectrogram(Bytes& bytes) {
    const Exact<double> wave =
        bytes.flag() ? sound(bytes, bytes.length(0, 2000), 1) : exactDoubles(bytes, bytes.length(0, 900));
    const int frameSize = bytes.length(-1, 300);
    const int overlap = bytes.flag() ? bytes.from(-9, 300) : frameSize - bytes.from(-1, 90);
    const int paddedSize = bytes.flag() ? bytes.length(-1, 600) : bytes.oneOf({1, 2, 64, 256, 512});
    const int frameNum =
        frameSize < 1 ? 0 : std::max(0, cAudio::getFrameNum2(wave.length(), frameSize, overlap));
    Exact<double> out(frameNum * (std::max(paddedSize, 0) / 2 + 1), -7);
    const bool isDone = returns([&] {
        cAudio::absSpectrogram(wave.data(), wave.length(), frameSize, overlap, paddedSize, bytes.below(2),
                               out.data());
    });
    if (isDone)
        for (const double x : out) require(!(x < 0), "a magnitude");
    const int columns = bytes.length(0, 70);
    Exact<double> frames = exactDoubles(bytes, columns * bytes.below(9));
    const int rows = columns == 0 ? 0 : frames.length() / columns;
    const bool isInPlace = bytes.flag();
    Exact<double> magnitudes(frames.length(), -7);
    cAudio::absFft4frameMat(frames.data(), columns, rows, bytes.below(2),
                            (isInPlace ? frames : magnitudes).data());
    Exact<float> frame(bytes.length(0, 70), 1);
    cAudio::hammingWindowing(frame.data(), frame.length());
}

void cut(Bytes& bytes) {
    const Exact<int> wave = intSound(bytes, bytes.length(0, 4000));
    const int frameSize = bytes.length(0, 520);
    const int overlap = bytes.flag() ? 0 : frameSize - bytes.from(-1, 90);
    int found = 0;
    if (!returns([&] { found = cAudio::uvCut(wave.data(), wave.length(), frameSize, overlap); })) return;
    const int frameNum = std::max(0, cAudio::getFrameNum2(wave.length(), frameSize, overlap));
    require(found >= 0 && (found == 0 || found < frameNum), "a frame of the recording");
}

void filter(Bytes& bytes) {
    const Exact<double> b = exactDoubles(bytes, bytes.length(0, 30));
    const Exact<double> a = exactDoubles(bytes, bytes.length(0, 30));
    const Exact<double> before = exactDoubles(bytes, bytes.length(0, 1400));
    Exact<double> x = before;
    cAudio::filter(b.data(), b.length(), a.data(), a.length(), x.data(), x.length());
    Exact<double> y(x.length());
    for (int n = 0; n < y.length(); ++n) {
        double fed = 0;
        for (int k = 0; k <= std::min(n, b.length() - 1); ++k) y[n] += b[k] * before[n - k];
        for (int k = 1; k <= std::min(n, a.length() - 1); ++k) fed += a[k] * y[n - k];
        y[n] -= fed;
    }
    requireSameList(x, y, "the filter");
}

void echo(Bytes& bytes) {
    const int fs = bytes.oneOf({8000, 16000, 1, 0, -8000, 2147483647});
    const double delay = bytes.flag() ? bytes.below(200) / 1000.0 : bytes.anyDouble();
    const double gain = bytes.flag() ? bytes.from(-20, 20) / 10.0 : bytes.anyDouble();
    const Exact<double> wave = exactDoubles(bytes, bytes.length(0, 900));
    Exact<double> out(wave.length());
    cAudio::waveEcho(wave.data(), wave.length(), fs, delay, gain, out.data());
    const Exact<int> ints = exactInts(bytes, wave.length());
    Exact<int> intsOut(wave.length());
    cAudio::waveEcho(ints.data(), ints.length(), fs, delay, gain, intsOut.data());
    if (ints.length() > 0) requireSame(intsOut[0], ints[0], "no echo before the sound");
}

/// Any part of the output is that of the whole.
void resample(Bytes& bytes) {
    const Exact<int> wave = exactInts(bytes, bytes.length(0, 500));
    const auto rate = [&] {
        return bytes.flag() ? bytes.oneOf({8000, 16000, 11025, 44100}) : bytes.anyInt();
    };
    const int oldFs = rate();
    const int newFs = rate();
    Exact<int> out(bytes.length(0, 1500), -7);
    cAudio::waveResample(wave.data(), wave.length(), oldFs, newFs, out.data(), out.length());
    if (wave.length() == 0 || out.length() == 0) return;
    requireSame(out[out.length() - 1], wave[wave.length() - 1], "the last sample");
    const int first = bytes.below(out.length());
    Exact<int> part(bytes.from(0, out.length() - first), -7);
    wavepitch::waveform::Resampling<int>{wave.data(), wave.length(), oldFs, newFs, out.length()}.read(
        first, part.length(), part.data());
    requireSameList(part, std::span<const int>(out.data() + first, part.size()), "a part");
}

/// Pitches that are sung, and any.
Exact<double> pitches(Bytes& bytes) {
    Exact<double> pitch = exactDoubles(bytes, bytes.length(0, 40));
    if (bytes.flag())
        for (double& x : pitch) x = bytes.below(4) == 0 ? 0 : bytes.from(20, 140) + bytes.below(10) / 10.0;
    return pitch;
}

void synthesis(Bytes& bytes) {
    const Exact<double> pitch = pitches(bytes);
    const int fs = bytes.oneOf({8000, 16000, 300, 1, 0, -1, 2147483647});
    Exact<double> wave(bytes.length(0, 3000), -7);
    if (bytes.flag()) {
        const double rate = bytes.flag() ? bytes.from(1, 200) : bytes.anyDouble();
        cAudio::pitch2wave(pitch.data(), pitch.length(), rate, fs, wave.data(), wave.length());
    } else {
        Exact<double> duration(pitch.length());
        for (double& x : duration) x = bytes.flag() ? bytes.below(100) / 1000.0 : bytes.anyDouble();
        cAudio::note2wave(pitch.data(), pitch.length(), duration.data(), fs, wave.data(), wave.length());
    }
    for (const double x : wave) require(std::abs(x) <= 0.8, "samples between -0.8 and 0.8");
    const Exact<double> notes = exactDoubles(bytes, bytes.length(0, 40));
    Exact<double> pv(bytes.length(0, 90), -7);
    cAudio::note2pv(notes.data(), notes.length(), bytes.anyDouble(), pv.data(), pv.length());
    const float freq = cAudio::pitch2freq(static_cast<float>(bytes.from(-10, 150)));
    require(freq >= 0 && (freq == 0 || std::abs(cAudio::freq2pitch(freq)) < 151), "there and back");
}

} // namespace

void fuzz(Bytes& bytes) {
    constexpr void (*calls[])(Bytes&) = {
        framing, transform<float>, transform<double>, spectrogram, cut, filter, echo, resample, synthesis};
    calls[bytes.below(static_cast<int>(std::size(calls)))](bytes);
}
