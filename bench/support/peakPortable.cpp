#define WAVEPITCH_PEAK_BYTES 16
#include "support/peakText.hpp"

const PeakLoops portablePeak = {multiplyAdds, subtractAdds, termsPerRound};
