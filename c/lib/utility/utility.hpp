// The utility library: include this header; the files behind it are one topic each.
// Everything stands in the global namespace, under the names that the library's users know.
//
// Where memory runs out, std::bad_alloc leaves the operation, whatever it is, with all that it took released.
#pragma once

#include "utility/console.hpp"
#include "utility/fatal.hpp"
#include "utility/file/file.hpp"
#include "utility/file/lines.hpp"
#include "utility/file/numbers.hpp"
#include "utility/matrix/matrix.hpp"
#include "utility/rounding.hpp"
#include "utility/scaling/findTune.hpp"
#include "utility/scaling/linearScaling.hpp"
#include "utility/scaling/shiftDistance.hpp"
#include "utility/setCover/setCover.hpp"
#include "utility/string/blank.hpp"
#include "utility/string/case.hpp"
#include "utility/string/lattice.hpp"
#include "utility/string/list.hpp"
#include "utility/string/replace.hpp"
#include "utility/string/search.hpp"
#include "utility/string/token.hpp"
#include "utility/vector/elementwise.hpp"
#include "utility/vector/median.hpp"
#include "utility/vector/resample.hpp"
#include "utility/vector/search.hpp"
#include "utility/vector/sort.hpp"
