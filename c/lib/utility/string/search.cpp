#include "utility/string/search.hpp"

#include "utility/fatal.hpp"

#include <algorithm>
#include <cstring>

namespace {

int sizeOf(const std::vector<std::string>& list) {
    return static_cast<int>(list.size());
}

bool isMatch(std::size_t position, std::size_t elementLength, std::size_t patternLength, int matchPos) {
    switch (matchPos) {
    case 0:
        return true;
    case 1:
        return position == 0;
    case 2:
        return position == elementLength - patternLength;
    case 3:
        return position == 0 && elementLength == patternLength;
    default:
        myExitFormatted("Unknown matchPos in strVecLinSearch (line %d of %s)", __LINE__, utilitySourcePath);
    }
}

/// @param compare  negative, 0 or positive for a key that is smaller than the element, matches it, is larger.
template <typename Compare>
int bisect(const std::vector<std::string>& list, int first, int last, Compare compare) {
    first = std::max(first, 0);
    last = std::min(last, sizeOf(list) - 1);
    while (first <= last) {
        const int mid = first + (last - first) / 2;
        const int order = compare(list[static_cast<std::size_t>(mid)]);
        if (order == 0) return mid;
        if (order < 0)
            last = mid - 1;
        else
            first = mid + 1;
    }
    return -1;
}

} // namespace

void strVecLinSearch(const std::vector<std::string>& list, const std::string& pattern,
                     std::vector<int>& matches, int matchPos) {
    matches.clear();
    for (std::size_t i = 0; i < list.size(); ++i) {
        const std::size_t position = list[i].find(pattern);
        if (position == std::string::npos) continue;
        if (isMatch(position, list[i].size(), pattern.size(), matchPos))
            matches.push_back(static_cast<int>(i));
    }
}

int strVecLinSearchFirstMatch(const std::vector<std::string>& list, const std::string& pattern) {
    const auto match = std::find_if(list.begin(), list.end(), [&](const std::string& element) {
        return element.find(pattern) != std::string::npos;
    });
    return match == list.end() ? -1 : static_cast<int>(match - list.begin());
}

void strVecBinSearch(const std::vector<std::string>& list, const std::string& key, std::vector<int>& matches,
                     int method) {
    const auto search = method == 0 ? strVecBinSearchSub0 : strVecBinSearchSub1;
    const int found = search(list, 0, sizeOf(list) - 1, key);
    matches.clear();
    if (found >= 0) matches.push_back(found);
}

int strVecBinSearchSub0(const std::vector<std::string>& list, int first, int last, const std::string& key) {
    return bisect(list, first, last,
                  [&](const std::string& element) { return std::strcmp(key.c_str(), element.c_str()); });
}

int strVecBinSearchSub1(const std::vector<std::string>& list, int first, int last, const std::string& key) {
    return bisect(list, first, last, [&](const std::string& element) {
        return std::strncmp(key.c_str(), element.c_str(), key.size());
    });
}
