// What a target defines.
#pragma once

#include "support/bytes.hpp"

/// Makes one call or a few, of what the bytes say, and looks at the results.
void fuzz(Bytes& bytes);
