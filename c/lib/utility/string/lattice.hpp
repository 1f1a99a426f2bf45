// Paths through a lattice of alternatives.
#pragma once

#include <string>
#include <vector>

/// Forms every path that takes one entry of each list, its parts joined by "-". The first list varies
/// fastest, the last slowest: (a, b), (x, y) gives a-x, b-x, a-y, b-y.
///
/// @param lattice  one list of alternatives for each position.
/// @param paths    replaced; as many as the product of the list sizes. A lattice without lists has no path,
///                 and neither has one with an empty list. May be one of the lattice's lists.
void getAllLatticePath(const std::vector<std::vector<std::string>>& lattice, std::vector<std::string>& paths);
