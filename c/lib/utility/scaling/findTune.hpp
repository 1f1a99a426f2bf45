// Search of many tunes for a phrase, whatever its key and tempo: the stretched versions of the query are made
// once, and each is compared with every tune by linear scaling with a shift (linearScaling.hpp). Places that
// cannot be among the best are left out by a lower bound of their distance and by the best distances so far,
// which changes no result: distance, place and scale are, to the bit, those of a loop that calls
// linearScaling for every place of every tune without a cutoff.
#pragma once

/// A tune: its pitch at equal steps of time, those of the query, and where in it the query may begin.
struct TUNE {
    const double* pitch; ///< pitchLen finite values in semitones, without gaps
    int pitchLen;
    const int* start; ///< startNum positions from 0, those outside are passed over. Null: everywhere
    int startNum;
};

/// The versions of the query, and the distance, as linearScaling takes them.
struct TUNESEARCH {
    double lowerRatio = 0.5; ///< of scale 0
    double upperRatio = 2;   ///< of scale resolution - 1
    int resolution = 61;     ///< number of scales
    int distanceType = 1;    ///< 1 mean absolute difference, 2 mean squared difference
};

/// The place of a tune that is closest to the query.
struct TUNEMATCH {
    int tune;        ///< its index
    double distance; ///< semitones, or their square, a point
    int position;    ///< where the query begins in it
    int scale;       ///< which of the versions
    double ratio;    ///< of that version's length to the query's
    double shift;    ///< what was subtracted from it: semitones that the query stands above the tune
};

/// Finds the tunes that a query is closest to. Of equal distances the first wins: tune by index, start in the
/// order given, scale.
///
/// @param query     queryLen finite pitches in semitones, without gaps; with none, nothing is found.
/// @param tune      tuneNum tunes. Of values of one unit all is found; beyond some 1e150, where distances
///                  leave the range of double, it may not be.
/// @param match     receives the best matches, the closest first, at most one a tune.
/// @param matchMax  room in match. The fewer, the sooner a tune is left; below 1 there is no match.
/// @return          the number of matches: fewer than matchMax where fewer tunes have room for a version
///                  behind one of their starts.
///
/// Fatal path A with "Unknown distance type (line %d of %s)", before anything is looked at.
///
/// Memory: the versions that are no longer than the longest tune, and the sums of one tune, 8 bytes a value;
/// with a start of null, 2 kB for each scale.
int findTune(const double* query, int queryLen, const TUNE* tune, int tuneNum, const TUNESEARCH& search,
             TUNEMATCH* match, int matchMax);
