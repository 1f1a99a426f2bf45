#include "support/utilityTest.hpp"

#include "utility/fileHandle.hpp"

#include <filesystem>
#include <unistd.h>

namespace {

using namespace std::string_literals;

/// The file of these tests, in the directory that they run in; scratch gives it a content.
constexpr char path[] = "scratch.BIN";

const char* scratch(const std::string& content) {
    fileWrite(path, content.data(), static_cast<long>(content.size()));
    return path;
}

/// Lines with their newlines, cut after size characters.
List pieces(const std::string& content, std::size_t size) {
    List result;
    for (std::size_t begin = 0; begin < content.size(); begin += result.back().size()) {
        const std::size_t last = std::min(content.find('\n', begin), content.size() - 1);
        result.push_back(content.substr(begin, std::min(size, last - begin + 1)));
    }
    return result;
}

TEST(FileDeathTest, FormsAreWrittenByteForByte) {
    const Ints ints{INT_MIN, 7};
    std::string text, all;
    const auto next = [&] { fileRead(path, text), all += text; };
    scratch("old"), logVar(0.1, path), logVar(0.1F, path), logVar(7, path), next();
    fileWrite(path, 0.1), next(), fileWrite(path, 1e10F), next();
    fileWrite(path, ints), next(), vecWrite(ints.data(), 2, path), next();
    strVecPrint({"a b", ""}, "list", path), next();
    fileWrite(path, "z\0z", 3), next(), fileWrite(path, "z", -1), next(); // text ends at NUL
    EXPECT_EQ(all, "old0.100000\n0.100000\n7\n0.1\n1e+10\n-2147483648\n7\n-2147483648 7 \na b\n\nz");
    // Standard output and standard error change places: the message is on the former.
    EXPECT_EXIT((dup2(1, 99), dup2(2, 1), dup2(99, 2), vecWrite(ints.data(), 2, "/nowhere/a")),
                testing::ExitedWithCode(1), "^Error: Cannot open \"/nowhere/a\"!\n$");
}

TEST(File, LinesArriveInPieces) {
    List contents{"", "ab\ncd\n", "ab\ncd", "\n%x\n\n a\r\n"};
    for (const std::size_t length :
         {997U, 998U, 999U, 1000U, 1998U, 99997U, 99998U, 99999U, 100000U, 199998U})
        for (const char* end : {"", "\n"}) contents.push_back(std::string(length, 'a') + end);
    for (const std::string& content : contents) {
        const ConsoleCapture console;
        List lines{"replaced"}, expected;
        std::string warnings;
        for (std::string piece : pieces(content, 99999)) {
            if (piece.size() == 99999)
                warnings += "Warning: Array is likely too small for reading string from scratch.BIN!!! "
                            "(line N of file ../../../../c/lib/utility/utility)\n";
            if (piece.back() == '\n') piece.pop_back();
            if (!piece.empty() && piece[0] != '%') expected.push_back(piece);
        }
        fileRead(scratch(content), lines, '%');
        EXPECT_TRUE(lines == expected) << content.size();
        EXPECT_EQ(withoutLineNumber(console.text()), warnings) << content.size();
        EXPECT_EQ(getFileLineCount(path), lengthOf(pieces(content, 999))) << content.size();
        const List byNumber = pieces(content, 998);
        for (std::size_t n = 0; n < byNumber.size() + 2; ++n) { // from no line 0 to none beyond the last
            std::string buffer(1000, '#'), line = n == 0 || n > byNumber.size() ? "#" : byNumber[n - 1];
            getLineInFile(path, static_cast<int>(n), buffer.data());
            EXPECT_EQ(buffer.c_str(), line.substr(0, line.size() - 1)) << content.size() << " line " << n;
        }
    }
}

TEST(File, ThePathMayBeOneOfTheLinesThatAreReplaced) {
    const ConsoleCapture console;
    List lines{"./././././././" +
               std::string(scratch(std::string(99999, 'a')))}; // too long to stand in the string
    const std::string name = lines[0];
    fileRead(lines[0].c_str(), lines, '%');
    EXPECT_NE(console.text().find(" from " + name + "!!!"), std::string::npos) << console.text();
}

TEST(File, TextForms) {
    EXPECT_EQ(fileRead(scratch("a\tb\n\n\t\n\0lost\nla\0lost\n%c\n"s)),
              (std::vector<List>{{"a", "b"}, {"", ""}, {"la"}, {"%c"}}));
    List keys{"old"}, values{"kept"};
    keyValuePairRead(scratch("% a = 1\n a = b=c \r\nno pair\n=\nx y\v=\f% = z\na=\nk%=\n"), keys, values);
    EXPECT_EQ(keys, (List{"old", "a", "", "x y", "a"}));
    EXPECT_EQ(values, (List{"kept", "b=c", "", "", ""}));
    const auto open = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); };
    const auto openBefore = open();
    const auto console = standIn::setConsole([](std::string_view) { throw 1; });
    EXPECT_THROW(fileRead(scratch(std::string(99999, 'a')), keys, '%'), int) << "the host gives up";
    standIn::setConsole(console);
    EXPECT_EQ(open(), openBefore);
}

TEST(File, TablesReadAsScanfDoesAndKeepWhatTheFileDoesNotGive) {
    Ints table, plain;
    for (unsigned round = 0; round < 300; ++round) {
        std::string text;
        for (unsigned rest = round * 12345679; rest > 0; rest /= 10) text += " \n\t+-0198x"[rest % 10];
        const FileHandle stream(openFile(scratch(text), "r"));
        plain = table = {-9, -9, -9, -9};
        for (int& value : plain) std::ignore = std::fscanf(stream.get(), "%d\n", &value);
        readTxtTable(path, table.data(), 4);
        EXPECT_EQ(table, plain) << text;
    }
    fileRead(scratch("2147483648 -99999999999999999999 -2147483648 8.5 9"), table);
    EXPECT_EQ(table, (Ints{INT_MAX, INT_MIN, INT_MIN, 8}));
    table.assign(3000, -9);
    plain.assign(3000, 0x01010101);
    plain.back() = -9; // the file has but a part of it
    readTable(scratch(std::string(11999, '\1')), table.data(), 3000);
    EXPECT_EQ(table, plain);
    const std::string rule = ": The only allowed extensions are \"txt\" and \"bin\"";
    const List names{"a.TXT", "a.txt", "a.bin", "a.Txt", "table", "a.txt/b"}; // the first three are opened
    for (std::size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(fatalMessage([&] { readTable(names[i].c_str(), table.data(), 1); }),
                  (i < 3 ? "Cannot open file " + names[i] : "Error in reading " + names[i] + rule) +
                      inUtility);
}

TEST(File, NamesSizesAndListings) {
    const FileHandle stream(openFile(scratch("12345"), "r"));
    unlink(path);
    std::getc(stream.get());
    EXPECT_EQ(getFileSize(stream.get()), 5);
    EXPECT_EQ(std::getc(stream.get()), '2') << "the position is kept";
    EXPECT_EQ(getFileSize("/"), 0) << "a directory tells no size";
    EXPECT_EQ(fileExist("/") + fileExist(path) + fileExist(nullptr), 1);
    const ConsoleCapture console;
    List list;
    char directory[] = "a.b\\c";
    fileListRecursive(list, directory, "*");
    EXPECT_EQ(getExtName(directory) + console.text(), "b/cNo files in current directory!\n");
}

} // namespace
