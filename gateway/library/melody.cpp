// Tunes that are looked for in a collection.

#include "results.hpp"
#include "scales.hpp"

#include "audio/audio.hpp"
#include "utility/scaling/findTune.hpp"

#include <algorithm>

namespace {

constexpr int usualTempos = 61; // no change of tempo is one of them
constexpr int mostTempos = 1000;
constexpr double mostRate = 1e6;

/// The collection, as the library searches it.
struct Collection {
    std::vector<std::string> names;
    std::vector<CONTOUR> contours;
    double frameNum = 0; // of the notes

    void add(const Call& call, const MELODY& melody, double frameRate) {
        const double num = frameNumOf(melody, frameRate);
        frameNum += num;
        const double passing = 2 * num; // copies, while the contour is made
        requireRoom(call, frameNum + passing, "the durations of TUNES and FRAMERATE");
        names.push_back(melody.name);
        contours.push_back(note2contour(melody, frameRate));
    }
};

Collection fromFile(const Call& call, const Argument& tunes, const Options& options, double frameRate) {
    for (const char* name : {"names", "phrases"})
        if (options.has(name)) options[name].refuse("left out, TUNES is a file that has them");
    Collection collection;
    const auto read = [&](const char* file) {
        for (const MELODY& melody : melodyRead(file)) collection.add(call, melody, frameRate);
    };
    tunes.readFile(read, "a file of tunes, or a cell array");
    return collection;
}

/// The cells of an option, one for each tune; none where the option is not given.
std::vector<Argument> cellsOf(const Options& options, const char* name, size_t count) {
    if (!options.has(name)) return {};
    std::vector<Argument> cells = options[name].cells();
    if (cells.size() != count) options[name].refuse("a cell array with a cell for each tune");
    return cells;
}

/// Where the phrases of a tune of so many notes or values begin, from 0.
std::vector<int> phrasesOf(const std::vector<Argument>& phrases, size_t tune, size_t count) {
    if (phrases.empty()) return {0};
    std::vector<int> begin = phrases[tune].wholes(1, static_cast<int>(count));
    for (int& number : begin) --number;
    return begin;
}

MELODY melodyOf(const Argument& tune) {
    const Numbers notes = tune.numbers();
    const auto middle = notes.begin() + static_cast<std::ptrdiff_t>(tune.rows());
    MELODY melody{"", {notes.begin(), middle}, {middle, notes.end()}, {}};
    if (*std::min_element(middle, notes.end()) < 0)
        tune.refuse("notes of durations, in the second column, that are not negative");
    return melody;
}

Collection fromCells(const Call& call, const Argument& tunes, const Options& options, double frameRate) {
    const std::vector<Argument> cells = tunes.cells();
    const std::vector<Argument> names = cellsOf(options, "names", cells.size());
    const std::vector<Argument> phrases = cellsOf(options, "phrases", cells.size());
    Collection collection;
    for (size_t i = 0; i < cells.size(); ++i) {
        const std::string name = names.empty() ? "tune " + std::to_string(i + 1) : names[i].text();
        if (cells[i].columns() == 2 && cells[i].rows() > 1) {
            MELODY melody = melodyOf(cells[i]);
            melody.name = name;
            melody.phrase = phrasesOf(phrases, i, melody.pitch.size());
            collection.add(call, melody, frameRate);
        } else {
            const Numbers pitch = cells[i].contour();
            collection.names.push_back(name);
            collection.contours.push_back(
                pitch2contour(pitch.data(), pitch.length(), phrasesOf(phrases, i, pitch.size())));
        }
    }
    return collection;
}

std::vector<TUNE> tunesOf(const Collection& collection, bool anywhere) {
    static const int nowhere = -1; // null would mean everywhere
    std::vector<TUNE> tunes;
    for (const auto& [pitch, first, start] : collection.contours) {
        const int* places = start.empty() ? &nowhere : start.data();
        tunes.push_back({pitch.data(), static_cast<int>(pitch.size()), anywhere ? nullptr : places,
                         static_cast<int>(start.size())});
    }
    return tunes;
}

/// A row with a number for each match.
template <typename Number>
mxArray* rowOf(const std::vector<TUNEMATCH>& matches, Number number) {
    std::vector<double> values(matches.size());
    std::transform(matches.begin(), matches.end(), values.begin(), number);
    return row(values);
}

mxArray* detailsOf(const std::vector<TUNEMATCH>& matches, const Collection& collection, size_t queryLen,
                   double frameRate) {
    std::vector<mxArray*> names;
    std::vector<mxArray*> contours;
    for (const TUNEMATCH& match : matches) {
        const auto tune = static_cast<size_t>(match.tune);
        const std::vector<double>& pitch = collection.contours[tune].pitch;
        const auto first = pitch.begin() + match.position;
        const auto length = std::min<std::ptrdiff_t>(std::lround(match.ratio * static_cast<double>(queryLen)),
                                                     pitch.end() - first);
        names.push_back(mxCreateString(collection.names[tune].c_str()));
        contours.push_back(row(std::vector<double>(first, first + length)));
    }
    const auto seconds = [&](const TUNEMATCH& match) {
        return (collection.contours[static_cast<size_t>(match.tune)].first + match.position) / frameRate;
    };
    const char* fields[] = {"name", "position", "ratio", "transposition", "contour"};
    mxArray* details = mxCreateStructMatrix(1, 1, static_cast<int>(std::size(fields)), fields);
    mxSetField(details, 0, "name", cellRow(names));
    mxSetField(details, 0, "position", rowOf(matches, seconds));
    mxSetField(details, 0, "ratio", rowOf(matches, [](const TUNEMATCH& match) { return match.ratio; }));
    mxSetField(details, 0, "transposition",
               rowOf(matches, [](const TUNEMATCH& match) { return match.shift; }));
    mxSetField(details, 0, "contour", cellRow(contours));
    return details;
}

} // namespace

void findTuneCommand(Call& call) {
    const Numbers pitch = call.input(0, "QUERY").contour();
    const Argument input = call.input(1, "TUNES");
    const Options options = call.options(2, {"names", "phrases", "anywhere", "frameRate", "maxNum",
                                             "lowerRatio", "upperRatio", "resolution", "distanceType"});
    const auto [lower, upper, resolution, type] = readScales(call, options, usualTempos, mostTempos);
    const double frameRate = options.number("frameRate", 100, 1e-3, mostRate);
    const int maxNum = options.whole("maxNum", 10, 1);
    const bool anywhere = options.flag("anywhere", false);
    const Collection collection = (input.isText() ? fromFile : fromCells)(call, input, options, frameRate);
    const std::vector<TUNE> tunes = tunesOf(collection, anywhere);
    const std::vector<double> query = pitch2contour(pitch.data(), pitch.length(), {}).pitch;
    int longest = 0;
    for (const TUNE& tune : tunes) longest = std::max(longest, tune.pitchLen);
    requireRoom(call, resolution * std::min<double>(longest, upper * static_cast<double>(query.size())),
                "the lengths of QUERY and TUNES, UPPERRATIO and RESOLUTION");
    std::vector<TUNEMATCH> matches(std::min(tunes.size(), static_cast<size_t>(maxNum)));
    const int found =
        findTune(query.data(), static_cast<int>(query.size()), tunes.data(), static_cast<int>(tunes.size()),
                 {lower, upper, resolution, type}, matches.data(), static_cast<int>(matches.size()));
    matches.resize(static_cast<size_t>(found));
    call.give(0, rowOf(matches, [](const TUNEMATCH& match) { return match.tune + 1; }));
    if (call.wants(1)) call.give(1, rowOf(matches, [](const TUNEMATCH& match) { return match.distance; }));
    if (call.wants(2)) call.give(2, detailsOf(matches, collection, query.size(), frameRate));
}
