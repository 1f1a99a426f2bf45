#define WAVEPITCH_PEAK_BYTES 64
#include "support/peakText.hpp"

const PeakLoops avx512Peak = {multiplyAdds, subtractAdds, termsPerRound};
