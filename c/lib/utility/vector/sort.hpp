// Sorting: in place with a companion index, and the comparison functions for the standard library's qsort.
#pragma once

#include <cstddef>
#include <utility>

/// Sorts vec[left .. right] ascending and moves the entries of index along: an index filled with 0, 1, ...
/// holds afterwards the input position of each sorted value. Quicksort with the leftmost value as pivot (C.
/// A. R. Hoare, "Quicksort", The Computer Journal 5, 1962); its exchanges are part of the contract, since the
/// order of the index among equal values follows from them. Not stable.
///
/// @param vec    values; not-a-number comes to rest anywhere.
/// @param left   first position.
/// @param right  last position, inclusive; nothing moves unless left < right.
/// @param index  at least right + 1 entries.
///
/// The expected time is n log n; sorted vectors take n^2 comparisons. The stack grows with log n at most.
template <typename T>
void quickSort(T* vec, int left, int right, int* index);

/// Ascending order for std::qsort: each pointer is to a double, float or int, as the name says (sortFunction:
/// double).
///
/// @return  -1, 0 or 1 by the sign of first - second, formed in the element's type: 1 where the difference is
///          not a number, two equal infinities included. For int without overflow.
int sortFunction(const void* first, const void* second);
int doubleSortFunction(const void* first, const void* second);
int floatSortFunction(const void* first, const void* second);
int intSortFunction(const void* first, const void* second);

namespace wavepitch::utility {

/// Moves the pivot vec[left] to the position that it has in the sorted range and returns that position.
template <typename T>
std::ptrdiff_t quickSortPartition(T* vec, std::ptrdiff_t left, std::ptrdiff_t right, int* index) {
    const T pivot = vec[left];
    std::ptrdiff_t i = left;
    std::ptrdiff_t j = right + 1;
    while (true) {
        do ++i;
        while (vec[i] < pivot && i < right);
        do --j;
        while (vec[j] > pivot && j > left);
        if (i >= j) break;
        std::swap(vec[i], vec[j]);
        std::swap(index[i], index[j]);
    }
    std::swap(vec[left], vec[j]);
    std::swap(index[left], index[j]);
    return j;
}

template <typename T>
void quickSortRange(T* vec, std::ptrdiff_t left, std::ptrdiff_t right, int* index) {
    while (left < right) {
        const std::ptrdiff_t place = quickSortPartition(vec, left, right, index);
        if (place - left < right - place) {
            quickSortRange(vec, left, place - 1, index);
            left = place + 1;
        } else {
            quickSortRange(vec, place + 1, right, index);
            right = place - 1;
        }
    }
}

} // namespace wavepitch::utility

template <typename T>
void quickSort(T* vec, int left, int right, int* index) {
    wavepitch::utility::quickSortRange(vec, left, right, index);
}
