// Matching of sequences, and set cover.

#include "results.hpp"
#include "scales.hpp"

#include "utility/scaling/linearScaling.hpp"
#include "utility/scaling/shiftDistance.hpp"
#include "utility/setCover/setCover.hpp"

#include <algorithm>
#include <cmath>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int usualScales = 51;
constexpr int mostScales = 1000000;

} // namespace

void linearScalingCommand(Call& call) {
    const Numbers query = call.input(0, "QUERY").vector();
    const Numbers reference = call.input(1, "REFERENCE").vector();
    const Options options =
        call.options(2, {"lowerRatio", "upperRatio", "resolution", "distanceType", "shift"});
    const auto [lower, upper, resolution, type] = readScales(call, options, usualScales, mostScales);
    const int queryLen = query.length();
    const int referenceLen = reference.length();
    const auto count = static_cast<size_t>(resolution);

    std::vector<double> distance(count, noMatchDistance);
    std::vector<double> shift(count, notANumber);
    std::vector<double> scaled(reference.size());
    std::vector<double> difference(reference.size());
    int unused = 0;
    if (options.flag("shift", true))
        linearScaling(query.data(), queryLen, reference.data(), referenceLen, lower, upper, resolution, type,
                      distance.data(), shift.data(), scaled.data(), difference.data(), unused, infinity);
    else
        linearScaling(query.data(), queryLen, reference.data(), referenceLen, lower, upper, resolution, type,
                      distance.data(), scaled.data(), unused);
    // The library's choice counts a scale that is too short to compare as noMatchDistance, which numbers that
    // are large enough exceed: the best of those compared is looked for here.
    std::replace(distance.begin(), distance.end(), noMatchDistance, infinity);
    const auto least = std::min_element(distance.begin(), distance.end());
    const auto scale = static_cast<int>(least - distance.begin());
    const double ratio = wavepitch::utility::scaleRatio(lower, upper, resolution, scale);
    call.give(0, scalar(*least));
    if (call.wants(1)) call.give(1, scalar(*least < infinity ? ratio : notANumber));
    if (call.wants(2)) call.give(2, row(distance));
    if (call.wants(3)) call.give(3, row(shift));
}

void lrShiftDistCommand(Call& call) {
    const Numbers vec1 = call.input(0, "VEC1").vector();
    const Numbers vec2 = call.input(1, "VEC2").vector();
    const int distanceType = call.has(2) ? call.input(2, "DISTANCETYPE").whole(1, 2) : 1;
    double shift = 0;
    int position = -1;
    const double distance =
        lrShiftDist(vec1.data(), vec1.length(), vec2.data(), vec2.length(), distanceType, shift, position);
    const bool found = position >= 0;
    call.give(0, scalar(found ? distance : infinity));
    if (call.wants(1)) call.give(1, scalar(position + 1));
    if (call.wants(2)) call.give(2, scalar(found ? shift : notANumber));
}

void setCoverCommand(Call& call) {
    const Argument input = call.input(0, "SETS");
    std::vector<double> sets = input.numbers().taken();
    const auto isElement = [](double x) { return x >= 0 && x <= mostInt && x == std::floor(x); };
    if (!std::all_of(sets.begin(), sets.end(), isElement))
        input.refuse("a matrix of element numbers, whole and from 1, and of zeros for no element");
    const auto rowNum = static_cast<int>(input.rows());
    const int most = call.has(1) ? call.input(1, "MAXSETNUM").whole(1) : rowNum;
    const int maxSetNum = std::min(most, rowNum);
    std::vector<int> chosen(static_cast<size_t>(maxSetNum));
    std::vector<double> coverage(chosen.size());
    const auto count = static_cast<size_t>(setCover(sets.data(), rowNum, static_cast<int>(input.columns()),
                                                    maxSetNum, chosen.data(), coverage.data()));
    chosen.resize(count);
    coverage.resize(count);
    call.give(0, row(chosen, 1));
    if (call.wants(1)) call.give(1, row(coverage));
}
