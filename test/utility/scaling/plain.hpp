// The search of tunes by trying every place.
#pragma once

#include "support/vectors.hpp"
#include "utility/scaling/findTune.hpp"
#include "utility/scaling/linearScaling.hpp"

#include <algorithm>
#include <cmath>

using Matches = std::vector<TUNEMATCH>;

/// Compares the query, in versions of at most 700 values, with every place of every tune.
inline Matches plainMatches(const Doubles& query, const std::vector<TUNE>& tunes, const TUNESEARCH& search) {
    const auto scaleNum = static_cast<size_t>(search.resolution);
    Doubles distance(scaleNum), shift(scaleNum), scaled(700), difference(700);
    Matches matches;
    for (int i = 0; i < lengthOf(tunes); ++i) {
        const TUNE& tune = tunes[static_cast<size_t>(i)];
        TUNEMATCH best{i, noMatchDistance, -1, 0, 0, 0};
        for (int k = 0; k < (tune.start ? tune.startNum : tune.pitchLen); ++k) {
            const int position = tune.start ? tune.start[k] : k;
            if (position < 0 || position >= tune.pitchLen) continue;
            int scale = 0;
            const double here = linearScaling(
                query.data(), lengthOf(query), tune.pitch + position, tune.pitchLen - position,
                search.lowerRatio, search.upperRatio, search.resolution, search.distanceType, distance.data(),
                shift.data(), scaled.data(), difference.data(), scale, HUGE_VAL);
            if (here >= best.distance) continue;
            const double ratio = wavepitch::utility::scaleRatio(search.lowerRatio, search.upperRatio,
                                                                search.resolution, scale);
            best = {i, here, position, scale, ratio, shift[static_cast<size_t>(scale)]};
        }
        if (best.position >= 0) matches.push_back(best);
    }
    std::stable_sort(matches.begin(), matches.end(),
                     [](const TUNEMATCH& a, const TUNEMATCH& b) { return a.distance < b.distance; });
    return matches;
}
