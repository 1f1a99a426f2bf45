#include "utility/scaling/shiftDistance.hpp"

#include "utility/fatal.hpp"
#include "utility/scaling/linearScaling.hpp"
#include "utility/scaling/pointDistance.hpp"

#include <utility>
#include <vector>

namespace {

using namespace wavepitch::utility;

} // namespace

double lrShiftDist(const double* vec1, int len1, const double* vec2, int len2, int distanceType,
                   double& shift, int& bestPosition) {
    bestPosition = -1;
    double best = noMatchDistance;
    if (len1 < 1 || len2 < 1) {
        shift = noMatchDistance;
        return best;
    }
    if (!isDistanceType(distanceType))
        myExitFormatted("Unknown distance type (line %d of %s)", __LINE__, utilitySourcePath);
    if (len1 > len2) {
        std::swap(vec1, vec2);
        std::swap(len1, len2);
    }
    std::vector<double> difference(static_cast<std::size_t>(len1));
    for (int position = 0; position <= len2 - len1; ++position) {
        const double* stretch = vec2 + position;
        for (std::size_t k = 0; k < difference.size(); ++k) difference[k] = vec1[k] - stretch[k];
        const double offset = bestOffset(difference.data(), len1, distanceType);
        const double distance = shiftedDistance(vec1, stretch, len1, offset, distanceType, best);
        if (distance < best) {
            best = distance;
            bestPosition = position;
            shift = offset;
        }
    }
    return best;
}
