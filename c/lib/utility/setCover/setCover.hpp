// Greedy set cover: few sets that together cover a universe of elements (V. Chvatal, "A Greedy Heuristic for
// the Set-Covering Problem", Mathematics of Operations Research 4, 1979).
#pragma once

/// Takes, step by step, the set with the most elements that are not yet covered (the lowest row among
/// equals), until all elements are covered, no set adds anything, or maxSetNum sets are taken.
///
/// @param sets       rowNum x colNum element numbers, column after column, row r being set r; 0 marks
///                   an empty slot. Entries are truncated; what is below 1, infinite or not a number counts
///                   as an empty slot. Rewritten: each row becomes its distinct element numbers in increasing
///                   order, followed by zeros. The universe is 1 to E, the largest entry.
/// @param rowNum     number of sets; below 1 there are none.
/// @param colNum     slots of a set; below 1 there are none.
/// @param maxSetNum  most sets to take; below 1 none, and nothing is written to chosen and coverage.
/// @param chosen     receives maxSetNum rows: the sets taken, from 0, in order; 0 in the entries behind them.
/// @param coverage   receives maxSetNum fractions of E: entry k is what is covered after set k; 1.0 in the
///                   entries behind the sets taken.
/// @return           the number of sets taken.
///
/// Time and memory grow with the number of entries (times its logarithm), not with E; each step costs rowNum.
int setCover(double* sets, int rowNum, int colNum, int maxSetNum, int* chosen, double* coverage);
