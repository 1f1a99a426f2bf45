// Three stages for each tune: bounds of the distance at every place for every version
// (kernel/placeBound.hpp), from running sums of the tune; the places in their order, without those whose
// bound tells that they cannot be better than what is known; and the tune's place among the best. Long
// versions have a second, tighter bound of the same kind: the distance of the means of eight values each.
//
// The margin by which a bound must exceed a distance covers the rounding of all sums, at its worst.
#include "utility/scaling/findTune.hpp"

#include "utility/fatal.hpp"
#include "utility/interruption.hpp"
#include "utility/rounding.hpp"
#include "utility/scaling/kernel/placeBound.hpp"
#include "utility/scaling/linearScaling.hpp"
#include "utility/scaling/pointDistance.hpp"
#include "utility/vector/resample.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

using namespace wavepitch::utility;

constexpr std::size_t blockSize = 8;      // values in a mean of the second bound
constexpr std::size_t leastBlocked = 256; // values of the shortest version that has one
constexpr int placesAtOnce = 256;         // whose bounds are formed together
constexpr double infinity = std::numeric_limits<double>::infinity();

double largestMagnitude(const double* values, int n) {
    double largest = 0;
    for (int i = 0; i < n; ++i) largest = std::max(largest, std::fabs(values[i]));
    return largest;
}

struct Version {
    std::vector<double> pitch; // empty where it is longer than every tune, or shorter than a value
    int length;
    Segments segments;
    std::vector<double> blockMean; // empty where there is no second bound

    bool hasBound() const { return pitch.size() >= segmentNum; }
};

Segments segmentsOf(const std::vector<double>& pitch) {
    Segments result{};
    const std::size_t length = pitch.size();
    result.leastWeight = 1;
    for (std::size_t j = 0; j < segmentNum; ++j) {
        const std::size_t first = j * length / segmentNum;
        const std::size_t behind = (j + 1) * length / segmentNum;
        const auto count = static_cast<double>(behind - first);
        double sum = 0;
        for (std::size_t k = first; k < behind; ++k) sum += pitch[k];
        result.edge[j] = behind;
        result.perValue[j] = 1 / count;
        result.mean[j] = sum / count;
        result.weight[j] = count / static_cast<double>(length);
        result.leastWeight = std::min(result.leastWeight, result.weight[j]);
    }
    return result;
}

std::vector<double> blockMeansOf(const std::vector<double>& pitch) {
    std::vector<double> means;
    if (pitch.size() < leastBlocked) return means;
    for (std::size_t first = 0; first + blockSize <= pitch.size(); first += blockSize) {
        double sum = 0;
        for (std::size_t k = first; k < first + blockSize; ++k) sum += pitch[k];
        means.push_back(sum / blockSize);
    }
    return means;
}

/// The versions as the linear scaling with a shift makes them.
std::vector<Version> versionsOf(const double* query, int queryLen, const TUNESEARCH& search, int longest) {
    std::vector<Version> versions;
    LongWork work;
    for (int i = 0; i < search.resolution; ++i) {
        const double ratio = scaleRatio(search.lowerRatio, search.upperRatio, search.resolution, i);
        Version version{{}, std::max(myRound(ratio * queryLen), 0), {}, {}};
        if (version.length > longest) break; // no scale behind one that is too long is compared
        work.took(static_cast<std::size_t>(version.length));
        if (version.length > 0) {
            version.pitch.resize(static_cast<std::size_t>(version.length));
            vecResample(query, queryLen, version.pitch.data(), version.length);
        }
        if (version.hasBound()) version.segments = segmentsOf(version.pitch);
        version.blockMean = blockMeansOf(version.pitch);
        versions.push_back(std::move(version));
    }
    return versions;
}

class TuneSearch {
public:
    TuneSearch(const double* query, int queryLen, const TUNESEARCH& ofSearch, int longest)
        : search(ofSearch), versions(versionsOf(query, queryLen, search, longest)),
          difference(static_cast<std::size_t>(longest)), blockMean(difference.size() / blockSize),
          queryMagnitude(largestMagnitude(query, queryLen)) {}

    /// The best place of a tune, if there is one with a distance below the limit.
    TUNEMATCH bestPlace(const TUNE& tune, double limit) {
        best = {0, limit, -1, 0, 0, 0};
        prepare(tune);
        if (tune.start) {
            for (int i = 0; i < tune.startNum; ++i)
                if (tune.start[i] >= 0 && tune.start[i] < tune.pitchLen) tryPlaces(tune, tune.start[i], 1);
        } else {
            for (int left = tune.pitchLen; left > 0; left -= placesAtOnce)
                tryPlaces(tune, tune.pitchLen - left, std::min(left, placesAtOnce));
        }
        best.ratio = scaleRatio(search.lowerRatio, search.upperRatio, search.resolution, best.scale);
        return best;
    }

private:
    /// Running sums, and the margin.
    void prepare(const TUNE& tune) {
        const auto valueNum = static_cast<std::size_t>(std::max(tune.pitchLen, 0));
        work.took(valueNum);
        sum.assign(1, 0);
        sum.reserve(valueNum + 1);
        for (int i = 0; i < tune.pitchLen; ++i) sum.push_back(sum.back() + tune.pitch[i]);
        const double length = tune.pitchLen;
        const double magnitude = largestMagnitude(tune.pitch, tune.pitchLen) + queryMagnitude;
        margin = 32 * std::numeric_limits<double>::epsilon() * length * length * magnitude;
        if (search.distanceType == squaredDistance) margin *= 8 * magnitude;
    }

    void tryPlaces(const TUNE& tune, int first, int count) {
        const auto stride = static_cast<std::size_t>(count);
        const std::size_t versionNum = fitting(tune.pitchLen - first);
        bound.resize(std::max(bound.size(), versionNum * stride));
        work.took(segmentNum * versionNum * stride);
        for (std::size_t i = 0; i < versionNum; ++i) {
            const int room = tune.pitchLen - first - versions[i].length + 1;
            const auto placeNum = static_cast<std::size_t>(std::min(count, room));
            if (versions[i].hasBound())
                boundsOf(versions[i].segments, search.distanceType, sum.data() + first, placeNum,
                         bound.data() + i * stride);
            else
                std::fill_n(bound.begin() + static_cast<std::ptrdiff_t>(i * stride), placeNum, 0);
        }
        for (int place = 0; place < count; ++place) {
            const std::size_t here = fitting(tune.pitchLen - first - place);
            for (std::size_t i = 0; i < here; ++i)
                if (!(bound[i * stride + static_cast<std::size_t>(place)] > best.distance + margin))
                    tryPlace(tune.pitch, first + place, static_cast<int>(i));
        }
    }

    /// How many versions are compared where so much of the tune is left.
    std::size_t fitting(int room) const {
        const auto longer = [=](const Version& version) { return version.length > room; };
        return static_cast<std::size_t>(std::find_if(versions.begin(), versions.end(), longer) -
                                        versions.begin());
    }

    void tryPlace(const double* pitch, int position, int scale) {
        const Version& version = versions[static_cast<std::size_t>(scale)];
        if (version.length < 1) return;
        work.took(stepsOfMedian * version.pitch.size());
        if (isBeyond(version, position)) return;
        // A sum above the best distance times the length, rounded, is no smaller distance when divided.
        const double limit = std::nextafter(best.distance * version.length, infinity);
        double offset = 0;
        const double total = leastSum(version.pitch, pitch + position, limit, offset);
        const double distance = total / version.length;
        if (total < limit && distance < best.distance) best = {0, distance, position, scale, 0, offset};
    }

    /// Whether the second bound tells that a place is not better than the best.
    bool isBeyond(const Version& version, int position) {
        if (version.blockMean.empty()) return false;
        const double* before = sum.data() + position;
        for (std::size_t j = 0; j < version.blockMean.size(); ++j, before += blockSize)
            blockMean[j] = (before[blockSize] - before[0]) / blockSize;
        double offset = 0;
        const double total = leastSum(version.blockMean, blockMean.data(), infinity, offset);
        return total * blockSize / version.length > best.distance + margin;
    }

    /// The summed distance of two sequences, the best offset subtracted from the first; up to a limit.
    double leastSum(const std::vector<double>& values, const double* other, double limit, double& offset) {
        for (std::size_t k = 0; k < values.size(); ++k) difference[k] = values[k] - other[k];
        const auto length = static_cast<int>(values.size());
        offset = bestOffset(difference.data(), length, search.distanceType);
        return shiftedDistance(values.data(), other, length, offset, search.distanceType, limit);
    }

    TUNESEARCH search;
    std::vector<Version> versions;
    std::vector<double> difference;
    std::vector<double> blockMean; // of the tune
    double queryMagnitude;
    PlaceBounds boundsOf = placeBounds();
    LongWork work;
    // of the current tune
    std::vector<double> sum;
    std::vector<double> bound;
    double margin = 0;
    TUNEMATCH best{};
};

} // namespace

int findTune(const double* query, int queryLen, const TUNE* tune, int tuneNum, const TUNESEARCH& search,
             TUNEMATCH* match, int matchMax) {
    if (!isDistanceType(search.distanceType))
        myExitFormatted("Unknown distance type (line %d of %s)", __LINE__, utilitySourcePath);
    if (queryLen < 1 || matchMax < 1) return 0;
    int longest = 0;
    for (int i = 0; i < tuneNum; ++i) longest = std::max(longest, tune[i].pitchLen);
    TuneSearch searching(query, queryLen, search, longest);
    int found = 0;
    for (int i = 0; i < tuneNum; ++i) {
        TUNEMATCH best =
            searching.bestPlace(tune[i], found < matchMax ? infinity : match[found - 1].distance);
        if (best.position < 0) continue;
        best.tune = i;
        if (found < matchMax) ++found;
        TUNEMATCH* place = match + found - 1;
        for (; place > match && best.distance < place[-1].distance; --place) *place = place[-1];
        *place = best;
    }
    return found;
}
