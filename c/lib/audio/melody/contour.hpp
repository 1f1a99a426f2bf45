// Melodies as contours: a pitch at every step of time and no gaps, as findTune compares them. Pitch is in
// semitones, 69 is 440 Hz. Singers rest and breathe where they like, trackers lose single frames, and nobody
// holds a last note as long as written: silence at the ends is cut, and any other is bridged by the pitch
// before it.
#pragma once

#include <string>
#include <vector>

struct CONTOUR {
    std::vector<double> pitch; ///< without gaps
    int first;                 ///< frames that were cut in front of it
    std::vector<int> start;    ///< where in it each phrase begins
};

/// The contour of a pitch vector.
///
/// @param pitch   n values, one a frame; 0 and not-a-number where there is no pitch.
/// @param phrase  frames at which phrases begin, from 0. A phrase that begins in silence begins where that
///                ends; one without any pitch behind it is left out.
/// @return        an empty contour where no frame has a pitch.
CONTOUR pitch2contour(const double* pitch, int n, const std::vector<int>& phrase);

/// A melody as notes.
struct MELODY {
    std::string name;
    std::vector<double> pitch;    ///< of each note; 0 is a rest
    std::vector<double> duration; ///< as many: seconds, at least 0
    std::vector<int> phrase;      ///< notes that phrases begin with, from 0
};

/// Length of a melody in frames, rounded, at frameRate frames per second; 0 without notes. It may exceed the
/// range of int.
double frameNumOf(const MELODY& melody, double frameRate);

/// The contour of a melody. Each note sounds from the frame nearest to its beginning up to that nearest to
/// its end; one that is shorter than a frame may have none. (note2pv tells its notes on the host console, and
/// has one frame at least for each.)
///
/// @param frameRate  frames per second; frameNumOf must not exceed the range of int.
/// @return           an empty contour where no note sounds. A phrase that begins with no note of
///                   the melody is std::out_of_range.
CONTOUR note2contour(const MELODY& melody, double frameRate);

/// Reads a collection of melodies: lines of five fields between tabs. The first one may have their names: it
/// has no number as tempo, and no ":" in its last field.
///
///   name    of the melody
///   origin  its country or composer; not looked at
///   key     not looked at
///   tempo   quarter notes a minute
///   notes   PITCH:BEATS between blanks. PITCH is a letter A to G, sharps "#" or flats "b", and the octave,
///           a whole number (A4 is 69), or "r" for a rest; BEATS are quarter notes. "|" stands before the
///           first note of each phrase.
///
/// Empty lines are passed over, and a carriage return may end a line. A melody without "|" has one phrase,
/// from its beginning. Fatal path A of openFile, and with what is wrong with which melody.
std::vector<MELODY> melodyRead(const char* path);
