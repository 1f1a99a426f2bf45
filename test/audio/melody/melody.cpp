#include "support/audio.hpp"
#include "support/utilityTest.hpp"

#include <fstream>

namespace {

/// Writes a collection; returns its name.
const char* file(const std::string& content) {
    static const std::string name = testing::TempDir() + "melodies.tsv";
    std::ofstream(name) << content;
    return name.c_str();
}

TEST(Contour, HasNoGapsAndKeepsThePhrases) {
    const double pitch[] = {0, notANumber, 60, 0, 62, notANumber, 61, 0, 0};
    const CONTOUR contour = pitch2contour(pitch, 9, {0, 4, 5, 7, -3, 99});
    EXPECT_EQ(text(contour.pitch), "60 60 62 62 61");
    EXPECT_EQ(contour.first, 2);
    EXPECT_EQ(text(contour.start), "0 2 4 0");
    EXPECT_EQ(text(pitch2contour(pitch, 2, {0}).pitch), "");
}

TEST(Contour, OfNotesHasEachFromTheFrameNearestToItsBeginning) {
    const MELODY melody{"", {0, 60, 62, 64, 0, 65, 0}, {1, 0.14, 0.14, 0.14, 0.34, 0.2, 9}, {0, 3, 4}};
    const CONTOUR contour = note2contour(melody, 10);
    EXPECT_EQ(text(contour.pitch), "60 62 62 64 64 64 64 64 65 65");
    EXPECT_EQ(contour.first, 10);
    EXPECT_EQ(text(contour.start), "0 3 8");
    EXPECT_EQ(frameNumOf(melody, 10), 110);
}

TEST(MelodyFile, IsReadByItsFields) {
    const std::vector<MELODY> melodies =
        melodyRead(file("name\torigin\tkey\ttempo\tnotes\n"
                        "Up\tnowhere\tC\t90\tr:1 C4:1.5 | Eb4:3 | B#3:0.75\r\n\r\n"
                        "Down\t\t\t60\tA4:1 Abb-1:2\n"));
    ASSERT_EQ(melodies.size(), 2U);
    EXPECT_EQ(melodies[0].name, "Up");
    EXPECT_EQ(text(melodies[0].pitch), "0 60 63 60");
    EXPECT_EQ(text(melodies[0].duration), "0.666667 1 2 0.5");
    EXPECT_EQ(text(melodies[0].phrase), "2 3");
    EXPECT_EQ(text(melodies[1].pitch), "69 7");
    EXPECT_EQ(text(melodies[1].phrase), "0");
}

TEST(MelodyFile, SaysWhatIsWrongWithWhichMelody) {
    const char* const lines[] = {"Up\tC\t90\tC4:1",     "Up\t\tC\t0\tC4:1",  "Up\t\tC\tfast\tC4:1",
                                 "Up\t\tC\tinf\tC4:1",  "Up\t\tC\t90\t",     "Up\t\tC\t90\tC4:1 |",
                                 "Up\t\tC\t90\tH4:1",   "Up\t\tC\t90\tC:1",  "Up\t\tC\t90\tC4",
                                 "Up\t\tC\t90\tC4.5:1", "Up\t\tC\t90\tC4:0", "Up\t\tC\t90\tC4:1x"};
    for (const char* const line : lines) {
        SCOPED_TRACE(line);
        for (const char* const names : {"name\n", ""}) {
            const std::string message = fatalMessage([&] { melodyRead(file(std::string(names) + line)); });
            EXPECT_NE(message.find(": melody \"Up\": "), std::string::npos) << message;
        }
    }
}

} // namespace
