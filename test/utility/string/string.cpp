#include "support/utilityTest.hpp"

namespace {

using namespace std::string_literals;

/// A text after an edit in place.
template <typename Edit>
std::string edited(std::string text, Edit edit) {
    edit(text);
    return text;
}

TEST(String, CaseIsThatOfTheAsciiLetters) {
    EXPECT_EQ(edited("@AZ[`az{\xC4\xE4", stringToLowerCase), "@az[`az{\xC4\xE4");
    EXPECT_EQ(edited("@AZ[`az{\xC4\xE4", stringToUpperCase), "@AZ[`AZ{\xC4\xE4");
    char* copy = nullptr;
    str2Lower("@AZ[", copy);
    EXPECT_STREQ(copy, "@az[");
    delete[] copy;
}

TEST(String, BlanksAndWhiteSpaceDiffer) {
    for (int code = 0; code < 256; ++code) {
        const char c = char(code);
        EXPECT_EQ(isBlank(c) != 0, "\0\t\n\r "s.find(c) < 5) << code;
        EXPECT_EQ(str2tokenNum(&c, 1) == 0, "\t\n\v\f\r "s.find(c) < 6) << code;
    }
    EXPECT_EQ(edited("\v\ta c\n\f", stringTrimLeadingTrailingBlank), "a c");
    const auto cutBlanks = [](auto& text) { cutTrailingBlank(text.data()); };
    EXPECT_EQ(edited("\ta\f \n", cutBlanks), "\ta\f\0\0"s);
    EXPECT_EQ(edited(" ", cutBlanks), "\0"s);
}

TEST(String, ReplacementsAreNotSearchedAgain) {
    EXPECT_EQ(edited("baaab", [](auto& text) { stringReplace(text, "aa", "aaa"); }), "baaaab");
    EXPECT_EQ(edited("abc", [](auto& text) { stringReplace(text, "", "x"); }), "abc");
    EXPECT_EQ(edited("a/b/", [](auto& text) { strRep(text.data(), '/', '\0'); }), "a\0b/"s);
}

TEST(String, SplittingGivesOneFieldMoreThanDelimiters) {
    List tokens{"a,b,,c,"};
    string2token(tokens[0], ',', tokens, 0);
    EXPECT_EQ(tokens, (List{"a", "b", "", "c", ""}));
    string2token("", ',', tokens, 0);
    EXPECT_EQ(tokens, List());
    string2token("d,", ',', tokens, 2);
    string2token("e", ',', tokens, 2);
    EXPECT_EQ(tokens, (List{"d", "", "e"})); // appended
}

TEST(String, WordsAreCountedUpToTheNewline) {
    EXPECT_EQ(str2tokenNum("  ab  cd\nef", 11), 2);
    EXPECT_EQ(str2tokenNum("ab cd", 3), 1);
}

TEST(StringList, IsCleanedJoinedAndPrinted) {
    List list{"a", "", " ", "b"};
    strVecRemoveEmptyElement(list);
    strVecJoin(list, "+", list[0]);
    intVecJoin({1, -2, INT_MIN}, "-", list[1]);
    const ConsoleCapture console;
    testing::internal::CaptureStdout();
    strVecPrint(list, "l", "");
    strVecPrint({}, "none", nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "l[0] = a+ +b\nl[1] = 1--2--2147483648\nl[2] = b\n");
    EXPECT_EQ(console.text(), "none has zero element!\n");
}

TEST(Lattice, FirstListVariesFastest) {
    List paths{"replaced"};
    getAllLatticePath({{"a", "b"}, {"x"}, {"1", "2"}}, paths);
    EXPECT_EQ(text(paths), "a-x-1 b-x-1 a-x-2 b-x-2");
}

TEST(StringSearch, JudgesByTheFirstOccurrence) {
    const List list{"abc", "xab", "ab", "b", "abab"};
    const char* found[] = {"0 1 2 4", "0 2 4", "1 2", "2"};
    Ints matches{9};
    for (int matchPos = 0; matchPos < 4; ++matchPos) {
        strVecLinSearch(list, "ab", matches, matchPos);
        EXPECT_EQ(text(matches), found[matchPos]) << matchPos;
    }
    EXPECT_EQ(fatalMessage([&] { strVecLinSearch(list, "z", matches, 4); }), ""); // no element, no error
    EXPECT_EQ(fatalMessage([&] { strVecLinSearch(list, "ab", matches, 4); }),
              "Unknown matchPos in strVecLinSearch" + inUtility);
    EXPECT_EQ(strVecLinSearchFirstMatch(list, "xa"), 1);
    EXPECT_EQ(strVecLinSearchFirstMatch(list, "z"), -1);
}

TEST(StringSearch, BisectionFindsEqualElementsOrThoseThatBeginWithTheKey) {
    const List sorted{"a", "ab", "ab", "ab", "b", "\xE9t\xE9"};
    const auto found = [&](const char* key, int method) {
        Ints matches{9};
        strVecBinSearch(sorted, key, matches, method);
        return text(matches);
    };
    EXPECT_EQ(found("ab", 0), "2");
    EXPECT_EQ(found("a", 0), "0");
    EXPECT_EQ(found("ab\1", 0), "");
    EXPECT_EQ(found("a", 7), "2");
    EXPECT_EQ(found("\xE9", 7), "5");
    EXPECT_EQ(strVecBinSearchSub0(sorted, 1, 3, "b"), -1);
    EXPECT_EQ(strVecBinSearchSub1(sorted, INT_MIN, INT_MAX, "\xFF"), -1);
}

} // namespace
