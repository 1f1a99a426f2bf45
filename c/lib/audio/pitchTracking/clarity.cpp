#include "audio/pitchTracking/clarity.hpp"

#include "audio/failure.hpp"
#include "audio/pitchTracking/fixedPoint.hpp"
#include "audio/waveform/synthesis.hpp"
#include "utility/fatal.hpp"

#include <algorithm>
#include <type_traits>

namespace {

using wavepitch::pitchTracking::asElement;
using wavepitch::pitchTracking::fixedPointScale;

/// The first lag from minIndex on after which the function rises (ACF) or falls (AMDF).
template <typename T>
int searchStart(const T* pf, int pfLen, PF_TYPE pfType, int minIndex) {
    for (int j = minIndex; j < pfLen - 1; ++j)
        if (pfType == PF_ACF ? pf[j + 1] > pf[j] : pf[j] > pf[j + 1]) return j;
    return minIndex;
}

template <typename T>
T pitchOfPeriod(int fs, int period) {
    const float frequency = static_cast<float>(fs) / static_cast<float>(period);
    if (!(frequency > 0.0F)) return T{};
    const float pitch = cAudioSynthesis::freq2pitch(frequency);
    return asElement<T>(static_cast<double>(fixedPointScale<T> * pitch));
}

/// The quotients of float and element are taken in the wider of the two; of integers, in single precision.
template <typename T>
using Quotient = std::common_type_t<float, T>;

template <typename T>
T acfClarity(T highest, T atZero) {
    if (atZero == T{}) return T{};
    const float scaled = fixedPointScale<T> * std::max(static_cast<float>(highest), 0.0F);
    const Quotient<T> ratio = Quotient<T>(scaled) / static_cast<Quotient<T>>(atZero);
    return ratio > Quotient<T>(fixedPointScale<T>) ? T{} : asElement<T>(static_cast<double>(ratio));
}

template <typename T>
T amdfClarity(T lowest, T highest) {
    if (highest == T{}) return T{};
    const auto dip = Quotient<T>(static_cast<float>(lowest));
    const Quotient<T> ratio = 1 - dip / static_cast<Quotient<T>>(highest);
    return asElement<T>(static_cast<double>(Quotient<T>(fixedPointScale<T>) * ratio));
}

} // namespace

template <typename T>
T pf2pitchClarity(const T* pf, int pfLen, const PTPARAM& ptParam, std::type_identity_t<T>* clarity) {
    const PF_TYPE pfType = ptParam.pfType;
    if (pfType != PF_AMDF && pfType != PF_ACF)
        myExitFormatted("Unknown ptParam.pfType=%d (line %d of file %s)", static_cast<int>(pfType), __LINE__,
                        audioSourcePath);
    pfLen = std::max(pfLen, 0);
    const int start = searchStart(pf, pfLen, pfType, std::max(ptParam.minIndex, 0));
    const int last = std::min(ptParam.maxIndex, pfLen - 1);
    if (start > last) {
        if (clarity) *clarity = T{};
        return T{};
    }
    const T* const end = pf + last + 1;
    const T* const highest = std::max_element(pf + start, end);
    const T* const extremum = pfType == PF_ACF ? highest : std::min_element(pf + start, end);
    if (clarity) *clarity = pfType == PF_ACF ? acfClarity(*highest, pf[0]) : amdfClarity(*extremum, *highest);
    return pitchOfPeriod<T>(ptParam.fs, static_cast<int>(extremum - pf));
}

template double pf2pitchClarity(const double*, int, const PTPARAM&, double*);
template int pf2pitchClarity(const int*, int, const PTPARAM&, int*);
