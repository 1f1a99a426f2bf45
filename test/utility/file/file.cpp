#include "support/utilityTest.hpp"

#include "utility/fileHandle.hpp"

#include <cstring>
#include <dirent.h>
#include <unistd.h>

namespace {

using namespace std::string_literals;

/// The file of these tests, in the directory that they run in; scratch gives it a content.
constexpr char path[] = "scratch.bin";

const char* scratch(const std::string& content) {
    fileWrite(path, content.data(), long(content.size()));
    return path;
}

std::string content() {
    std::string whole;
    fileRead(path, whole);
    return whole;
}

TEST(File, HoldsWhatIsWritten) {
    fileWrite(path, 1e10F);
    EXPECT_EQ(content(), "1e+10\n");
    fileWrite(path, 0.1);
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
    EXPECT_EQ(std::string(buffer, size_t(size)), "z\0\r\n"s);
    std::free(buffer);
    EXPECT_EQ(content(), "z");
}

TEST(File, LongLinesArriveInPiecesAndMayReplaceThePath) {
    const std::string longest(99998, 'a');
    const ConsoleCapture console;
    List lines{scratch(longest + "\n" + longest + "bc\n\n%x\n d\r\nla\0st\nend"s)};
    fileRead(lines[0].c_str(), lines, '%');
    EXPECT_TRUE(lines == (List{longest, longest + "b", "c", " d\r", "la", "end"}));
    const std::string warning = "Warning: Array is likely too small for reading string from scratch.bin!!! "
                                "(line N of file ../../../../c/lib/utility/utility)\n";
    EXPECT_EQ(withoutLineNumber(console.text()), warning + warning);
    EXPECT_EQ(fileRead(scratch("a\tb\n\t\n%c\n")), (std::vector<List>{{"a", "b"}, {"", ""}, {"%c"}}));
}

TEST(File, LinesAreCountedAndFoundByNumber) {
    const std::string a998(998, 'a');
    scratch(a998 + "ab\nlast");
    const List lines{"", a998.substr(1), "ab", "las", ""}; // each without its last character
    for (size_t number = 0; number < lines.size(); ++number) {
        char buffer[999] = "#";
        getLineInFile(path, int(number), buffer);
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
    EXPECT_EQ(text(table), "16843009 9 9 9"); // a part of a value is none
    readTxtTable(scratch("7 --5 6"), table.data(), 3);
    EXPECT_EQ(text(table), "7 9 -5 9"); // a lone sign is none
    Ints large(1500, 9);
    readBinTable(scratch(std::string(6000, '\0')), large.data(), 1499);
    EXPECT_EQ(std::find(large.begin(), large.end(), 9), large.end() - 1);
}

TEST(Table, HasTheFormThatItsExtensionNames) {
    const std::pair<const char*, int> cases[] = {
        {"a.bin", 0x31313131}, {"a.BIN", 0x31313131}, {"a.txt", 1111}, {"a.TXT", 1111}};
    for (const auto& [name, expected] : cases) {
        fileWrite(name, 1111.0);
        int value = 9;
        readTable(name, &value, 1);
        EXPECT_EQ(value, expected) << name;
    }
    EXPECT_EQ(fatalMessage([] { readTable<int>("a.b", nullptr, 1); }),
              "Error in reading a.b: The only allowed extensions are \"txt\" and \"bin\"" + inUtility);
}

TEST(FileDeathTest, ThatDoesNotOpenIsFatal) {
    EXPECT_EQ(fatalMessage([] { openFile("/nowhere/a", "r"); }), "Cannot open file /nowhere/a" + inUtility);
    const auto writeRow = [] {
        dup2(2, 1); // the message goes to standard output
        vecWrite("a", 1, "/nowhere/a");
    };
    EXPECT_EXIT(writeRow(), testing::ExitedWithCode(1), "^Error: Cannot open \"/nowhere/a\"!\n$");
}

TEST(File, SizeIsToldWithoutMoving) {
    const FileHandle stream(openFile(scratch("12"), "r"));
    std::getc(stream.get());
    EXPECT_EQ(getFileSize(stream.get()), 2);
    EXPECT_EQ(std::getc(stream.get()), '2');
    EXPECT_EQ(getFileSize("/"), 0);
}

TEST(File, MissingOnesAreToldAndBackslashesAreTurned) {
    EXPECT_EQ(fileExist("/"), 1);
    EXPECT_EQ(fileExist("/nowhere/a"), 0);
    EXPECT_STREQ(getExtName("none"), "");
    char directory[] = "a.b.c\\d\\";
    List list;
    const ConsoleCapture console;
    fileListRecursive(list, directory, "*");
    EXPECT_STREQ(getExtName(directory), "c/d/");
    EXPECT_EQ(console.text(), "No files in current directory!\n");
}

TEST(File, OwnAndParentDirectoryAreNoEntries) {
    const auto listed = [](const char* name) {
        dirent entry{};
        std::strcpy(entry.d_name, name);
        return taone(&entry);
    };
    EXPECT_EQ(listed("."), 0);
    EXPECT_EQ(listed(".."), 0);
    EXPECT_EQ(listed(".a"), 1);
    EXPECT_EQ(taone(nullptr), 0);
}

} // namespace
