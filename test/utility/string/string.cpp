#include "support/utilityTest.hpp"

#include <memory>

namespace {

using namespace std::string_literals;

TEST(String, EditsInPlace) {
    const auto edited = [](std::string text, auto edit) { return edit(text), text; };
    EXPECT_EQ(edited("@AZ[`az{\xC4\xE4", stringToLowerCase), "@az[`az{\xC4\xE4");
    EXPECT_EQ(edited("@AZ[`az{\xC4\xE4", stringToUpperCase), "@AZ[`AZ{\xC4\xE4");
    EXPECT_EQ(edited("\tab c\n", stringTrimLeadingTrailingBlank), "ab c");
    EXPECT_EQ(edited("\v\f \r", stringTrimLeadingTrailingBlank), "");
    EXPECT_EQ(edited("\ta\f \n", [](auto& text) { cutTrailingBlank(text.data()); }), "\ta\f\0\0"s);
    EXPECT_EQ(edited("aaa", [](auto& text) { stringReplace(text, "a", "aa"); }), "aaaaaa");
    EXPECT_EQ(edited("xaaaay", [](auto& text) { stringReplace(text, "aa", ""); }), "xy");
    EXPECT_EQ(edited("abc", [](auto& text) { stringReplace(text, "", "x"); }), "abc");
    EXPECT_EQ(edited("a/b/c", [](auto& text) { strRep(text.data(), '/', '\0'); }), "a\0b/c"s);
    char* copy = nullptr;
    str2Lower("@AZ[\xC4", copy);
    EXPECT_STREQ(std::unique_ptr<char[]>(copy).get(), "@az[\xC4");
    for (const char c : "\t\n\v\f\r !\x7F\x85\xA0\xFF")
        EXPECT_EQ(isBlank(c) != 0, "\0\t\n\r "s.find(c) != std::string::npos) << static_cast<int>(c);
}

TEST(String, SplittingGivesOneFieldMoreThanDelimitersAndJoiningUndoesIt) {
    for (unsigned bits = 1; bits < 256; ++bits) { // every text of a and comma up to seven characters
        std::string text, joined = "replaced";
        for (unsigned rest = bits; rest > 1; rest >>= 1) text += rest & 1 ? ',' : 'a';
        List tokens{text};
        string2token(tokens[0], ',', tokens, static_cast<int>(bits & 2)); // the text is one of the tokens
        if (bits & 2) tokens.erase(tokens.begin());
        EXPECT_EQ(tokens.size(), text.empty() ? 0U : 1U + std::count(text.begin(), text.end(), ',')) << text;
        strVecJoin(tokens, ",", joined);
        EXPECT_EQ(joined, text);
    }
    EXPECT_EQ(str2tokenNum("  ab  cd\nef", 11), 2) << "words are counted up to the newline";
    EXPECT_EQ(str2tokenNum("a\vb\f\xA0 c", 5), 3);
}

TEST(StringList, CleanedJoinedAndPrinted) {
    const ConsoleCapture console;
    List list{"a", "", " ", "b"}, paths;
    strVecRemoveEmptyElement(list);
    strVecJoin(list, "+", list[0]);
    intVecJoin({1, -2, INT_MIN}, "-", list[1]);
    testing::internal::CaptureStdout();
    strVecPrint(list, "l", "");
    strVecPrint({}, "none", "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "l[0] = a+ +b\nl[1] = 1--2--2147483648\nl[2] = b\n");
    EXPECT_EQ(console.text(), "none has zero element!\n");
    getAllLatticePath({{"a", "b"}, {"x"}, {"1", "2"}}, paths);
    EXPECT_EQ(paths, (List{"a-x-1", "b-x-1", "a-x-2", "b-x-2"})) << "the first list varies fastest";
    getAllLatticePath({{"a"}, {}, {"x"}}, paths);
    EXPECT_EQ(paths, List());
}

TEST(StringList, SearchesJudgeTheFirstOccurrenceAndTheFirstMet) {
    const List list{"abc", "xab", "ab", "b", "abab"}, sorted{"a", "ab", "ab", "ab", "b", "\xE9t\xE9"};
    const List keys{"ab", "b", "zebra", "", "\xE9", "abc", "A", "a"};
    const Ints found[] = {{0, 1, 2, 4}, {0, 2, 4}, {1, 2}, {2}};
    const int exact[] = {2, 4, -1, -1, -1, -1, -1, 0}, prefix[] = {2, 4, -1, 2, 5, -1, -1, 2};
    Ints matches{9};
    for (int matchPos = 0; matchPos < 4; ++matchPos) {
        strVecLinSearch(list, "ab", matches, matchPos);
        EXPECT_EQ(matches, found[matchPos]) << matchPos;
    }
    EXPECT_EQ(fatalMessage([&] { strVecLinSearch(list, "ab", matches, 4); }),
              "Unknown matchPos in strVecLinSearch" + inUtility);
    EXPECT_EQ(fatalMessage([&] { strVecLinSearch(list, "z", matches, 4); }), "") << "no element, no error";
    EXPECT_EQ(strVecLinSearchFirstMatch(list, "xa") - strVecLinSearchFirstMatch(list, "z"), 2);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        strVecBinSearch(sorted, keys[i], matches, 0);
        EXPECT_EQ(matches, exact[i] < 0 ? Ints() : Ints{exact[i]}) << keys[i];
        EXPECT_EQ(strVecBinSearchSub1(sorted, INT_MIN, INT_MAX, keys[i]), prefix[i]) << keys[i];
    }
}

} // namespace
