// The picture of what a query matches: for functions whose details have the contour of each match.
#pragma once

#include "analysis.hpp"
#include "picture.hpp"

#include <vector>

namespace shell {

/// Whether there are matches, and the first output of their function is shown.
bool hasMatches(const Request& request, const Analysis& analysis);

/// The query, stretched and transposed as the details say, over the closest of its matches; the distances of
/// all.
std::vector<Panel> matchPanels(const Request& request, const Analysis& analysis);

} // namespace shell
