#include "scales.hpp"

Scales readScales(const Call& call, const Options& options, int usualScales, int mostScales) {
    constexpr double mostRatio = 1000;
    const Scales scales{
        options.number("lowerRatio", 0.5, 0, mostRatio), options.number("upperRatio", 2, 0, mostRatio),
        options.whole("resolution", usualScales, 1, mostScales), options.whole("distanceType", 1, 1, 2)};
    if (!(scales.lowerRatio > 0)) options["lowerRatio"].refuse("above 0");
    if (scales.upperRatio < scales.lowerRatio) call.refuse("UPPERRATIO must be at least LOWERRATIO");
    return scales;
}
