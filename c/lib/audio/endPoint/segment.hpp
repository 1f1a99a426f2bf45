// Segments: the runs of a per-frame on/off vector.
#pragma once

#include <cstdlib>
#include <memory>

/// One run of "on" elements, in the numbering of the vector: frames, where a detector made it.
struct SEGMENT {
    int begin;    ///< the run's first element
    int end;      ///< its last, inclusive
    int duration; ///< end - begin + 1
    int valid;    ///< 1 while the segment stands, 0 once a detector has rejected it
};

namespace wavepitch::endPoint {

struct SegmentRelease {
    void operator()(SEGMENT* segments) const { std::free(segments); }
};

/// Room for count segments, and for one where there are none.
SEGMENT* allocateSegments(int count);

} // namespace wavepitch::endPoint

/// Owns a segment array that an operation has handed out.
using SegmentArray = std::unique_ptr<SEGMENT, wavepitch::endPoint::SegmentRelease>;

/// The maximal runs of elements above 0, in ascending order, each valid. At least one element that is not
/// above 0 (zero, negative, not-a-number) lies between two of them.
///
/// @param vec     n elements; n below 1 is a vector without elements, which is not looked at.
/// @param segNum  receives the number of segments.
/// @return        segNum segments that the caller releases with free (or keeps in a SegmentArray), for no
///                segment too; never null. Throws std::bad_alloc where there is no memory.
template <typename T>
SEGMENT* segmentFind(const T* vec, int n, int* segNum);

/// Prints one line per segment on the host console:
/// "i=%d: begin=%d, end=%d, duration=%d, valid=%d\n", numbered from 0.
///
/// @param count  number of segments; nothing is printed for less than 1.
void segmentPrint(const SEGMENT* segments, int count);

template <typename T>
SEGMENT* segmentFind(const T* vec, int n, int* segNum) {
    const auto on = [vec](int i) { return vec[i] > T{}; };
    const auto begins = [on](int i) { return on(i) && (i == 0 || !on(i - 1)); };
    const auto ends = [on, n](int i) { return on(i) && (i == n - 1 || !on(i + 1)); };
    *segNum = 0;
    for (int i = 0; i < n; ++i)
        if (begins(i)) ++*segNum;
    SEGMENT* const segments = wavepitch::endPoint::allocateSegments(*segNum);
    SEGMENT* segment = segments;
    for (int i = 0; i < n; ++i) {
        if (begins(i)) segment->begin = i;
        if (!ends(i)) continue;
        segment->end = i;
        segment->duration = i + 1 - segment->begin;
        segment->valid = 1;
        ++segment;
    }
    return segments;
}
