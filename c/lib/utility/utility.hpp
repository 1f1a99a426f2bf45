// The utility library: include this header; the files behind it are one topic each.
// Everything stands in the global namespace, under the names that the library's users know.
#pragma once

#include "utility/console.hpp"
#include "utility/fatal.hpp"
#include "utility/file/bytes.hpp"
#include "utility/file/keyValue.hpp"
#include "utility/file/lines.hpp"
#include "utility/file/list.hpp"
#include "utility/file/listing.hpp"
#include "utility/file/open.hpp"
#include "utility/file/table.hpp"
#include "utility/file/value.hpp"
#include "utility/file/vecWrite.hpp"
#include "utility/rounding.hpp"
#include "utility/string/blank.hpp"
#include "utility/string/case.hpp"
#include "utility/string/lattice.hpp"
#include "utility/string/list.hpp"
#include "utility/string/replace.hpp"
#include "utility/string/search.hpp"
#include "utility/string/token.hpp"
