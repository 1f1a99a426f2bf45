#include "utility/vector/gaussian.hpp"

#include <cmath>

double gaussianLog(double x, double mean, double variance) {
    constexpr double lnTwoPi = 1.83787706640935;
    const double distance = x - mean;
    return (-lnTwoPi - distance * distance / variance - std::log(variance)) * 0.5;
}
