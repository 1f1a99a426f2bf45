#include "audio/endPoint/endPoint.hpp"

#include <algorithm>
#include <new>

#include "mex.h"

SEGMENT* wavepitch::endPoint::allocateSegments(int count) {
    const auto room = static_cast<std::size_t>(std::max(count, 1));
    auto* segments = static_cast<SEGMENT*>(std::malloc(room * sizeof(SEGMENT)));
    if (!segments) throw std::bad_alloc();
    return segments;
}

void segmentPrint(const SEGMENT* segments, int count) {
    for (int i = 0; i < count; ++i) {
        const SEGMENT& s = segments[i];
        mexPrintf("i=%d: begin=%d, end=%d, duration=%d, valid=%d\n", i, s.begin, s.end, s.duration, s.valid);
    }
}

void cAudioEndPoint::segmentPrint(const SEGMENT* segments, int count) {
    ::segmentPrint(segments, count);
}
