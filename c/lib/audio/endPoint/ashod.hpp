// ASHOD, the absolute sum of high-order differences: it grows with a frame's high-frequency content, and so
// finds the unvoiced sounds that are too weak to show in the volume.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <limits>
#include <type_traits>

/// Sum of |d| over the differences d of an order k, d(i) = c(0) x(i) + ... + c(k) x(i + k) with the binomial
/// coefficients of k in alternating signs, starting with -1; 0 for a frame of k samples or fewer.
///
/// @tparam T     sample type: floating point, where sums are formed in T in the order of the samples, or an
///               integer of up to 32 bits, where they are formed wider and stop at the largest T.
/// @param frame  frameSize samples.
/// @param order  1 to 5. Any other prints "Unsupported order!\n" on the host console and ends the process,
///               host included, with exit status 1.
template <typename T>
T frame2ashod(const T* frame, int frameSize, int order);

class cAudioAshod {
public:
    /// frame2ashod of each whole frame.
    ///
    /// @param wave, waveLen, frameSize, overlap  as for wave2volume.
    /// @param ashod  receives getFrameNum2(waveLen, frameSize, overlap) values.
    /// @param order  as for frame2ashod; not looked at where there is no frame.
    static void wave2ashod(const int* wave, int waveLen, int frameSize, int overlap, int* ashod, int order);
};

namespace ashodDetail {

/// Does not return for an order that is not from 1 to 5.
void checkOrder(int order);

} // namespace ashodDetail

template <typename T>
T frame2ashod(const T* frame, int frameSize, int order) {
    static constexpr int coefficients[5][6] = {
        {-1, 1}, {-1, 2, -1}, {-1, 3, -3, 1}, {-1, 4, -6, 4, -1}, {-1, 5, -10, 10, -5, 1}};
    static_assert(std::floating_point<T> || sizeof(T) <= sizeof(std::int32_t));
    using Sum = std::conditional_t<std::floating_point<T>, T, std::int64_t>;
    constexpr Sum most = std::numeric_limits<T>::max();
    ashodDetail::checkOrder(order);
    if (frameSize <= order) return T{};
    Sum sum = 0;
    for (int i = 0; i < frameSize - order; ++i) {
        Sum d = 0;
        for (int j = 0; j <= order; ++j)
            d += static_cast<Sum>(coefficients[order - 1][j]) * static_cast<Sum>(frame[i + j]);
        const Sum size = d < 0 ? -d : d;
        sum += std::integral<T> ? std::min(size, most) : size;
    }
    return static_cast<T>(std::integral<T> ? std::min(sum, most) : sum);
}

/// The samples of the detectors.
template <>
int frame2ashod(const int* frame, int frameSize, int order);
