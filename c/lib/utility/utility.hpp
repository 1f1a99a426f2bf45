// The utility library: include this header; the files behind it are one topic each.
// Everything stands in the global namespace, under the names that the library's users know.
#pragma once

#include "utility/console.hpp"
#include "utility/fatal.hpp"
#include "utility/file/keyValue.hpp"
#include "utility/file/lines.hpp"
#include "utility/file/open.hpp"
#include "utility/file/vecWrite.hpp"
#include "utility/matrix/matrix.hpp"
#include "utility/rounding.hpp"
#include "utility/string/blank.hpp"
#include "utility/string/token.hpp"
#include "utility/vector/median.hpp"
#include "utility/vector/resample.hpp"
#include "utility/vector/search.hpp"
#include "utility/vector/sort.hpp"
