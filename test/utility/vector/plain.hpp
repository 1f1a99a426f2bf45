// The selection that the median is defined by.
#pragma once

#include "support/vectors.hpp"

#include <utility>

/// The first value of the range is the pivot; smaller ones are swapped in front of it.
inline double medianByDefinition(Doubles v) {
    const std::size_t k = (v.size() - 1) / 2;
    std::size_t first = 0;
    std::size_t end = v.size();
    while (true) {
        std::size_t place = first;
        for (std::size_t i = first + 1; i < end; ++i)
            if (v[i] < v[first]) std::swap(v[i], v[++place]);
        std::swap(v[first], v[place]);
        if (place == k) break;
        if (place < k)
            first = place + 1;
        else
            end = place;
    }
    if (v.size() % 2 == 1) return v[k];
    double upper = v[k + 1];
    for (std::size_t i = k + 2; i < end; ++i)
        if (v[i] < upper) upper = v[i];
    return (v[k] + upper) * 0.5;
}
