#include "support/utilityTest.hpp"

#include "utility/fileHandle.hpp"

#include <dirent.h>
#include <unistd.h>

namespace {

using namespace std::string_literals;

/// The file of these tests, in the directory that they run in; scratch gives it a content.
constexpr char path[] = "scratch.bin";

const char* scratch(const std::string& content) {
    fileWrite(path, content.data(), static_cast<long>(content.size()));
    return path;
}

std::string content() {
    std::string whole;
    fileRead(path, whole);
    return whole;
}

TEST(File, HoldsWhatIsWritten) {
    scratch("longer than what follows");
    fileWrite(path, 1e10F);
    EXPECT_EQ(content(), "1e+10\n");
    fileWrite(path, 0.1);
    EXPECT_EQ(content(), "0.1\n");
    logVar(0.1, path);
    logVar(2.5F, path);
    logVar(7, path);
    EXPECT_EQ(content(), "0.1\n0.100000\n2.500000\n7\n");
    fileWrite(path, Ints{INT_MIN, 7});
    EXPECT_EQ(content(), "-2147483648\n7\n");
    strVecPrint({"a b", ""}, "list", path);
    EXPECT_EQ(content(), "a b\n\n");
    vecWrite("Az", 2, path);
    EXPECT_EQ(content(), "65 122 \n");
    fileWrite(path, "z", -1);
    EXPECT_EQ(content(), "");
}

TEST(File, BytesAreReadAsTheyAreAndTextUpToANul) {
    long size = 0;
    char* buffer = fileRead(scratch("z\0\r\n"s), size);
    EXPECT_EQ(std::string(buffer, static_cast<size_t>(size)), "z\0\r\n"s);
    std::free(buffer);
    EXPECT_EQ(content(), "z");
}

TEST(File, LongLinesArriveInPieces) {
    const std::string longest(99998, 'a');
    const ConsoleCapture console;
    List lines{"replaced"};
    fileRead(scratch(longest + "\n\n%x\n c\r\nla\0st\nend"s), lines, '%');
    EXPECT_EQ(lines.size(), 4) << "empty lines and comments are dropped";
    EXPECT_EQ(lines[0].size(), 99998);
    EXPECT_EQ(text(List(lines.begin() + 1, lines.end())), " c\r la end");
    EXPECT_EQ(withoutLineNumber(console.text()),
              "Warning: Array is likely too small for reading string from scratch.bin!!! "
              "(line N of file ../../../../c/lib/utility/utility)\n");
    fileRead(scratch(longest + "ab"), lines, '%');
    EXPECT_EQ(lines[1], "b");
    EXPECT_EQ(fileRead(scratch("a\tb\n\t\n%c\n")), (std::vector<List>{{"a", "b"}, {"", ""}, {"%c"}}));
}

TEST(File, LinesAreCountedAndFoundByNumber) {
    const std::string a998(998, 'a');
    scratch(a998 + "ab\nlast");
    const List lines{"", a998.substr(1), "ab", "las", ""}; // each without its last character
    for (size_t number = 0; number < lines.size(); ++number) {
        char buffer[999] = "#";
        getLineInFile(path, static_cast<int>(number), buffer);
        EXPECT_EQ(buffer, lines[number]) << "line " << number;
    }
    EXPECT_EQ(getFileLineCount(path), 3);
    EXPECT_EQ(getFileLineCount(scratch(a998 + "\n\n")), 2);
}

TEST(File, KeysAndValuesStandAroundTheFirstEqualsSign) {
    List keys{"old"};
    List values{"kept"};
    keyValuePairRead(scratch("% a = 1\n a = b=c \r\nno pair\n=\nx y\v=\f% = z\na=\nk%=\n"), keys, values);
    EXPECT_EQ(keys, (List{"old", "a", "", "x y", "a"}));
    EXPECT_EQ(values, (List{"kept", "b=c", "", "", ""}));
}

TEST(File, NumbersAreReadUpToTheFirstTextThatIsNone) {
    Ints ints{9};
    fileRead(scratch("2147483648 -99999999999999999999\v-2147483648\r+80.5 9"), ints);
    EXPECT_EQ(text(ints), "2147483647 -2147483648 -2147483648 80");
    std::vector<float> floats{9};
    fileRead(scratch("1.5\n-2e1 1e39 x 4"), floats);
    EXPECT_EQ(text(floats), "1.5 -20 inf");
    Doubles doubles{9};
    fileRead(path, doubles);
    EXPECT_EQ(text(doubles), "1.5 -20 1e+39");
}

TEST(Table, KeepsWhatTheFileDoesNotGive) {
    Ints table{9, 9, 9, 9};
    readBinTable(scratch("\1\1\1\1\1\1\1"), table.data(), 3);
    EXPECT_EQ(text(table), "16843009 9 9 9") << "a part of a value is none";
    readTxtTable(scratch("7 --5 6"), table.data(), 3);
    EXPECT_EQ(text(table), "7 9 -5 9") << "a lone sign is none";
    Ints large(1500, 9);
    readBinTable(scratch(std::string(6000, '\0')), large.data(), 1499);
    EXPECT_EQ(std::count(large.begin(), large.end(), 9), 1) << "no more than asked for";
}

TEST(Table, HasTheFormThatItsExtensionNames) {
    const std::pair<std::string, int> cases[] = {
        {"a.bin", 0x31313131}, {"a.BIN", 0x31313131}, {"a.txt", 1111}, {"a.TXT", 1111}};
    for (const auto& [name, value] : cases) {
        fileWrite(name.c_str(), 1111.0);
        int table = 9;
        readTable(name.c_str(), &table, 1);
        EXPECT_EQ(table, value) << name;
    }
    EXPECT_EQ(fatalMessage([] { readTable<int>("a.Txt", nullptr, 1); }),
              "Error in reading a.Txt: The only allowed extensions are \"txt\" and \"bin\"" + inUtility);
}

TEST(FileDeathTest, ThatDoesNotOpenIsFatal) {
    EXPECT_EQ(fatalMessage([] { openFile("/nowhere/a", "r"); }), "Cannot open file /nowhere/a" + inUtility);
    EXPECT_EQ(fatalMessage([] { openFile(nullptr, "r"); }), "Cannot open file (null)" + inUtility);
    const auto writeRow = [] {
        dup2(2, 1); // the message goes to standard output
        vecWrite("a", 1, "/nowhere/a");
    };
    EXPECT_EXIT(writeRow(), testing::ExitedWithCode(1), "^Error: Cannot open \"/nowhere/a\"!\n$");
}

TEST(File, SizeIsToldWithoutMoving) {
    const FileHandle stream(openFile(scratch("12345"), "r"));
    std::getc(stream.get());
    EXPECT_EQ(getFileSize(stream.get()), 5);
    EXPECT_EQ(std::getc(stream.get()), '2');
    EXPECT_EQ(getFileSize("/"), 0) << "a directory tells no size";
}

TEST(File, NamesAndListings) {
    EXPECT_EQ(fileExist("/"), 1);
    EXPECT_EQ(fileExist("/nowhere/a"), 0);
    EXPECT_EQ(fileExist(nullptr), 0);
    EXPECT_STREQ(getExtName("none"), "");
    char directory[] = "a.b\\c\\";
    const ConsoleCapture console;
    List list;
    fileListRecursive(list, directory, "*");
    EXPECT_STREQ(getExtName(directory), "b/c/");
    EXPECT_EQ(console.text(), "No files in current directory!\n");
}

TEST(File, OwnAndParentDirectoryAreNoEntries) {
    EXPECT_EQ(taone(nullptr), 0);
    const std::pair<std::string, int> cases[] = {{".", 0}, {"..", 0}, {"...", 1}, {".a", 1}, {"a", 1}};
    for (const auto& [name, listed] : cases) {
        dirent entry{};
        name.copy(entry.d_name, name.size());
        EXPECT_EQ(taone(&entry), listed) << name;
    }
}

} // namespace
