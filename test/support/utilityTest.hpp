// What the tests of the utility library start from.
#pragma once

#include "utility/utility.hpp"

#include "support/console.hpp"
#include "support/vectors.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>

using List = std::vector<std::string>;

/// The end of a fatal message of the library, as fatalMessage gives it.
inline const std::string inUtility = " (line N of ../../../../c/lib/utility/utility)";
