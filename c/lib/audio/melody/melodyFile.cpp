#include "audio/failure.hpp"
#include "audio/melody/contour.hpp"
#include "utility/classicLocale.hpp"
#include "utility/fatal.hpp"
#include "utility/file/lines.hpp"
#include "utility/string/token.hpp"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <sstream>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

enum Field : std::size_t { nameField, originField, keyField, tempoField, notesField, fieldNum };

/// The number that is all of a text; not-a-number for anything else.
double numberIn(const std::string& text) {
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    return !text.empty() && end == text.c_str() + text.size() ? value : notANumber;
}

/// Semitones of a note's name; 0 of a rest; not-a-number for anything else.
double pitchOf(const std::string& name) {
    if (name == "r") return 0;
    constexpr int semitones[] = {9, 11, 0, 2, 4, 5, 7}; // of A to G above C
    if (name.empty() || name[0] < 'A' || name[0] > 'G') return notANumber;
    double pitch = semitones[name[0] - 'A'];
    std::size_t octave = 1;
    for (; octave < name.size() && (name[octave] == '#' || name[octave] == 'b'); ++octave)
        pitch += name[octave] == '#' ? 1 : -1;
    const double number = numberIn(name.substr(octave));
    return number == std::floor(number) ? pitch + 12 * (number + 1) : notANumber;
}

[[noreturn]] void refuse(const char* path, const std::string& melody, const std::string& fault) {
    myExitFormatted("%s: melody \"%s\": %s (line %d of %s)", path, melody.c_str(), fault.c_str(), __LINE__,
                    audioSourcePath);
}

MELODY melodyOf(const char* path, const std::vector<std::string>& fields) {
    MELODY melody{fields[nameField], {}, {}, {}};
    if (fields.size() != fieldNum) refuse(path, melody.name, "five fields between tabs are wanted");
    const double tempo = numberIn(fields[tempoField]);
    if (!(tempo > 0 && std::isfinite(tempo))) refuse(path, melody.name, "its tempo is no positive number");
    std::istringstream notes(fields[notesField]);
    for (std::string note; notes >> note;) {
        if (note == "|") {
            melody.phrase.push_back(static_cast<int>(melody.pitch.size()));
            continue;
        }
        const std::size_t colon = note.find(':');
        const double pitch = pitchOf(note.substr(0, colon));
        const double beats = colon < note.size() ? numberIn(note.substr(colon + 1)) : notANumber;
        if (!std::isfinite(pitch) || !(beats > 0 && std::isfinite(beats)))
            refuse(path, melody.name, '"' + note + "\" is no note PITCH:BEATS");
        melody.pitch.push_back(pitch);
        melody.duration.push_back(beats * 60 / tempo);
    }
    if (melody.phrase.empty()) melody.phrase.push_back(0);
    if (melody.phrase.back() == static_cast<int>(melody.pitch.size()))
        refuse(path, melody.name, "its last phrase has no note");
    return melody;
}

/// Whether a first line has the names of the fields: no number where melodies have their tempo, and no note.
bool areNames(const std::vector<std::string>& fields) {
    const bool hasTempo = fields.size() > tempoField && !std::isnan(numberIn(fields[tempoField]));
    return !hasTempo && fields.back().find(':') == std::string::npos;
}

} // namespace

std::vector<MELODY> melodyRead(const char* path) {
    const wavepitch::utility::ClassicLocale locale;
    auto table = fileRead(path);
    std::erase_if(table, [](const auto& fields) { return fields.front() == "\r"; });
    std::vector<MELODY> melodies;
    for (const auto& fields : table)
        if (&fields != &table.front() || !areNames(fields)) melodies.push_back(melodyOf(path, fields));
    return melodies;
}
