#define WAVEPITCH_PEAK_BYTES 32
#include "support/peakText.hpp"

const PeakLoops avx2Peak = {multiplyAdds, subtractAdds, termsPerRound};
