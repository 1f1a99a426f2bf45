// The transform as the analyses of whole recordings use it: fftComplex for many frames of one size.
#pragma once

#include <cstddef>
#include <vector>

namespace wavepitch::spectrum {

/// Holds the frame under analysis and the sines and cosines of its size, for the length of one analysis. The
/// results are those of fftComplex, bit for bit, console message included.
template <typename T>
class FrameTransform {
public:
    /// @param frameSize  samples per frame, at least 1; the rest of the transform is zero padding.
    /// @param n          length handed to the transform, at least frameSize.
    FrameTransform(int frameSize, int n);

    /// The frameSize real samples of the frame, to be filled anew before each transform.
    T* frame() { return real_.data(); }

    /// Replaces the frame by its spectrum.
    void transform();

    /// The spectrum, readable at bins 0 to n - 1.
    const T* real() const { return real_.data(); }
    const T* imag() const { return imag_.data(); }

private:
    std::size_t frameSize_;
    int n_;
    std::vector<T> real_, imag_;
    std::vector<T> twiddles_; // of all stages, one after the other
};

} // namespace wavepitch::spectrum
