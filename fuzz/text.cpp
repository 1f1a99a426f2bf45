// Strings, and the readers and writers of files, those of parameter files among them.
#include "audio/audio.hpp"
#include "support/check.hpp"
#include "support/exact.hpp"
#include "support/folder.hpp"
#include "support/target.hpp"
#include "utility/utility.hpp"

#include <cstring>

namespace {

using List = std::vector<std::string>;

/// A text of the words and signs that the readers look at, of numbers, and of any bytes; now and then longer
/// than the pieces that lines are read in.
std::string content(Bytes& bytes) {
    std::string text;
    const int parts = bytes.below(24);
    for (int i = 0; i < parts; ++i) switch (bytes.below(8)) {
        case 0:
            text += bytes.text(bytes.below(12));
            break;
        case 1:
            text += std::to_string(bytes.anyInt());
            break;
        case 2:
            text += std::to_string(bytes.anyDouble());
            break;
        case 3:
            text += bytes.oneOf({"fs", "nbits", "pfType", "frameSize", "overlap", "minPitch", "maxPitch",
                                 "dpMethod", "pfWeight", "clarityRatio", "medianFilterOrder", "maxVolTh",
                                 "minVolTh", "satAmpRatio", "satSampleCountRatioTh", "nan", "-inf", "1e999"});
            break;
        case 4:
            text += std::string(static_cast<size_t>(bytes.below(bytes.below(20) == 0 ? 110000 : 1100)),
                                bytes.oneOf({'x', ' ', '7', '\t', '\n'}));
            break;
        default:
            text += bytes.oneOf({"=", "\n", "\r\n", "%", "\t", " ", ",", "#", "."});
        }
    return text;
}

std::string word(Bytes& bytes) {
    return bytes.flag() ? bytes.text(bytes.below(4))
                        : bytes.oneOf({"", "a", "ab", "aba", "b", ".", "AB", " "});
}

List words(Bytes& bytes, int most) {
    List list(static_cast<size_t>(bytes.below(most + 1)));
    for (std::string& element : list) element = word(bytes);
    return list;
}

// Strings.

void characters(Bytes& bytes) {
    Exact<char> text = exactText(content(bytes));
    const std::string before = text.data();
    switch (bytes.below(4)) {
    case 0:
        cutTrailingBlank(text.data());
        require(before.rfind(text.data(), 0) == 0, "a cut text begins as it did");
        require(!*text.data() || !isBlank(text.data()[std::strlen(text.data()) - 1]), "no blank is left");
        break;
    case 1:
        strRep(text.data(), static_cast<char>(bytes.next(1)), static_cast<char>(bytes.next(1)));
        break;
    case 2: {
        char* copy = nullptr;
        str2Lower(text.data(), copy);
        std::string lower = before;
        stringToLowerCase(lower);
        requireSame(std::string(copy), lower, "two ways to lower case");
        delete[] copy;
        break;
    }
    default:
        str2tokenNum(text.data(), bytes.from(-1, text.length()));
    }
}

void whole(Bytes& bytes) {
    std::string text = content(bytes);
    const std::string before = text;
    std::string upper = text;
    stringToUpperCase(upper);
    stringToLowerCase(text);
    stringToUpperCase(text);
    requireSame(text, upper, "upper case by way of lower case");
    stringTrimLeadingTrailingBlank(text);
    require(text.empty() || (!isWhiteSpace(text.front()) && !isWhiteSpace(text.back())), "no blank is left");
    text = before;
    stringReplace(text, bytes.flag() ? text : word(bytes), bytes.flag() ? text : word(bytes));
    getExtName(before.c_str());
}

void tokens(Bytes& bytes) {
    const std::string text = content(bytes);
    const char delimiter = bytes.oneOf({',', ' ', '\t', '=', '\0'});
    List fields = words(bytes, 3);
    string2token(text, delimiter, fields, 0);
    std::string joined;
    const char separator[] = {delimiter, '\0'};
    strVecJoin(fields, separator, joined);
    if (delimiter) requireSame(joined, text, "the fields joined again");
    const std::size_t count = fields.size();
    strVecRemoveEmptyElement(fields);
    require(fields.size() <= count, "no new field");
    if (!fields.empty()) string2token(fields[0], delimiter, fields, bytes.below(2));
}

void lists(Bytes& bytes) {
    List list = words(bytes, 30);
    std::vector<int> matches;
    const std::string pattern = word(bytes);
    returns([&] { strVecLinSearch(list, pattern, matches, bytes.from(-1, 4)); });
    const int first = strVecLinSearchFirstMatch(list, pattern);
    require(first < static_cast<int>(list.size()), "a match inside the list");
    strVecBinSearch(list, pattern, matches, bytes.below(2));     // in any order
    for (std::string& element : list) element = element.c_str(); // up to its NUL byte
    std::sort(list.begin(), list.end());
    strVecBinSearch(list, pattern, matches, 0);
    require(matches.empty() != std::binary_search(list.begin(), list.end(), pattern.c_str()),
            "it is found if it is there");
    const int begin = bytes.anyInt();
    const int end = bytes.anyInt();
    strVecBinSearchSub0(list, begin, end, pattern);
    strVecBinSearchSub1(list, begin, end, pattern);
    strVecPrint(list, "list", bytes.flag() ? folder().file("list").c_str() : nullptr);
    if (!list.empty()) strVecJoin(list, ",", list[0]);
}

void lattice(Bytes& bytes) {
    std::vector<List> alternatives(static_cast<size_t>(bytes.below(5)));
    std::size_t paths = alternatives.empty() ? 0 : 1;
    for (List& list : alternatives) {
        list = words(bytes, 4);
        paths *= list.size();
    }
    List found;
    getAllLatticePath(alternatives, found);
    requireSame(found.size(), paths, "as many paths as there are choices");
    if (!alternatives.empty()) getAllLatticePath(alternatives, alternatives[0]);
}

// Files.

void bytesOfFile(Bytes& bytes) {
    const std::string expected = content(bytes);
    const std::string path = folder().file("bytes");
    const Exact<char> buffer{std::span<const char>(expected)};
    fileWrite(path.c_str(), buffer.data(), static_cast<long>(expected.size()));
    requireSame(getFileSize(path.c_str()), static_cast<long>(expected.size()), "the size of a file");
    long size = 0;
    const std::unique_ptr<char, decltype(&std::free)> found(fileRead(path.c_str(), size), std::free);
    requireSame(std::string(found.get(), static_cast<size_t>(size)), expected, "a file's bytes");
    std::string text;
    fileRead(path.c_str(), text);
    requireSame(text, std::string(expected.c_str()), "a file's text");
}

void lines(Bytes& bytes) {
    const std::string path = written("lines", content(bytes));
    List found{path};
    fileRead(found[0].c_str(), found, bytes.oneOf({'\0', '#', '%', 'x'}));
    for (const std::string& line : found) require(!line.empty(), "no empty line");
    fileRead(path.c_str());
    const int count = getFileLineCount(path.c_str());
    Exact<char> line(999);
    getLineInFile(path.c_str(), bytes.from(-1, count + 1), line.data());
    getLineInFile(path.c_str(), std::numeric_limits<int>::max(), line.data());
    require(!line[0], "no line behind the last");
    List keys;
    List values;
    keyValuePairRead(path.c_str(), keys, values);
    require(keys.size() == values.size(), "a value for each key");
    fileWrite(path.c_str(), found);
    List again;
    fileRead(path.c_str(), again, '\0');
    requireSameList(again, found, "lines written and read");
}

template <typename T>
void numbers(Bytes& bytes) {
    const std::string path = written(bytes.oneOf({"a.txt", "a.bin", "a.TXT", "a.BIN", "a"}), content(bytes));
    std::vector<T> all;
    fileRead(path.c_str(), all);
    Exact<T> table(bytes.below(300));
    const int n = bytes.below(8) == 0 ? bytes.from(-2, 0) : table.length();
    readBinTable(path.c_str(), table.data(), n);
    readTxtTable(path.c_str(), table.data(), n);
    returns([&] { readTable(path.c_str(), table.data(), n); });
    vecWrite(table.data(), n, path.c_str());
    if constexpr (std::is_same_v<T, int>) {
        fileRead(path.c_str(), all);
        requireSameList(all, std::span<const int>(table.data(), static_cast<size_t>(std::max(n, 0))),
                        "ints in a row");
    } else {
        fileWrite(path.c_str(), static_cast<T>(bytes.anyDouble()));
    }
    logVar(static_cast<T>(bytes.anyInt()), path.c_str());
}

void parameterFiles(Bytes& bytes) {
    const std::string path = written("parameters", content(bytes));
    PTPARAM param;
    cAudio::ptParamSet(&param, 16000, 16, PF_ACF, nullptr);
    returns([&] { cAudio::ptParamRead(path.c_str(), &param); });
    cAudio::ptParamPrint(&param);
    cAudio::ptParamWrite(&param, path.c_str());
    returns([&] { cAudio::ptParamRead(path.c_str(), &param); });
    const std::string limits = written("limits", content(bytes));
    VOL_CHECK_PRM check{};
    returns([&] { cAudio::volCheckPrmRead(limits.c_str(), &check); });
    cAudio::volCheckPrmPrint(&check);
}

void melodies(Bytes& bytes) {
    std::string text = "name\torigin\tkey\ttempo\tnotes\n";
    for (int i = bytes.below(4); i > 0; --i) {
        text += "tune\t\t\t" + bytes.oneOf<std::string>({"120", "60.5", "0", "-1", "x"}) + "\t";
        for (int k = bytes.below(9); k > 0; --k)
            text +=
                bytes.oneOf({"A4:1 ", "C#3:0.5 ", "| ", "r:2 ", "Bb-1:1e9 ", "G", ":", "9:9 ", "E4:nan "});
        text += bytes.below(4) == 0 ? content(bytes) : "\n";
    }
    const std::string path = written("melodies", text);
    returns([&] {
        for (const MELODY& melody : melodyRead(path.c_str())) {
            require(melody.pitch.size() == melody.duration.size(), "a duration for each note");
            if (frameNumOf(melody, 100) > 1e6) continue;
            const CONTOUR contour = note2contour(melody, 100);
            for (const int start : contour.start)
                require(start >= 0 && start < static_cast<int>(contour.pitch.size()), "a phrase inside");
        }
    });
}

void missing(Bytes& bytes) {
    const std::string path = folder().file("no/file");
    List list;
    const char* const name = bytes.flag() ? path.c_str() : nullptr;
    require(!returns([&] { openFile(name, "r"); }), "no file is opened");
    require(fileExist(name) == 0, "a file that does not exist");
    require(!returns([&] { fileRead(name, list, '\0'); }), "no lines of no file");
    Exact<char> tempDir(5);
    getTempDir(tempDir.data());
    Exact<char> windowsPath = exactText(word(bytes) + "\\" + word(bytes));
    fileListRecursive(list, windowsPath.data(), "*");
}

} // namespace

void fuzz(Bytes& bytes) {
    constexpr void (*calls[])(Bytes&) = {
        characters,   whole,          tokens,          lists,          lattice,  bytesOfFile, lines,
        numbers<int>, numbers<float>, numbers<double>, parameterFiles, melodies, missing};
    calls[bytes.below(static_cast<int>(std::size(calls)))](bytes);
}
