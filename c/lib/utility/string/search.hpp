// Searching lists of strings, element by element or by bisection.
#pragma once

#include <string>
#include <vector>

/// Finds the elements in which a pattern occurs, judged by its first occurrence alone.
///
/// @param pattern   the empty pattern occurs at position 0 of every element.
/// @param matches   replaced by the indices, ascending.
/// @param matchPos  which occurrences count: 0 anywhere; 1 at the beginning; 2 at the end ("abab" is no match
///                  for "ab": its first occurrence is at 0); 3 the pattern is the whole element.
/// Fatal path A with "Unknown matchPos in strVecLinSearch (line %d of %s)" for another matchPos, as soon as
/// an element contains the pattern.
void strVecLinSearch(const std::vector<std::string>& list, const std::string& pattern,
                     std::vector<int>& matches, int matchPos);

/// Index of the first element in which the pattern occurs anywhere, or -1.
int strVecLinSearchFirstMatch(const std::vector<std::string>& list, const std::string& pattern);

/// Searches a list sorted in ascending byte order by bisection. A list that is not sorted finds some element
/// or none. Elements and key end at their first NUL byte here.
///
/// @param matches  replaced: one index, or none. Of several equal elements, the one met first.
/// @param method   0 finds an element equal to the key, any other one that begins with it.
void strVecBinSearch(const std::vector<std::string>& list, const std::string& key, std::vector<int>& matches,
                     int method);

/// The searches behind strVecBinSearch within first .. last, both inclusive: Sub0 for an equal element, Sub1
/// for one that begins with the key. Positions that the list does not have are left out.
///
/// @return  the index of the element that the bisection meets first, or -1.
int strVecBinSearchSub0(const std::vector<std::string>& list, int first, int last, const std::string& key);
int strVecBinSearchSub1(const std::vector<std::string>& list, int first, int last, const std::string& key);
