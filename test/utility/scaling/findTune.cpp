#include "support/audio.hpp"
#include "support/utilityTest.hpp"
#include "utility/scaling/plain.hpp"

namespace {

std::string linesOf(const Matches& matches) {
    std::ostringstream lines;
    lines << std::hexfloat;
    for (const TUNEMATCH& m : matches)
        lines << m.tune << " at " << m.position << " scale " << m.scale << ": " << m.distance << ' '
              << m.ratio << ' ' << m.shift << '\n';
    return lines.str();
}

Matches found(const Doubles& query, const std::vector<TUNE>& tunes, const TUNESEARCH& search, int most) {
    Matches matches(static_cast<size_t>(most));
    const int count =
        findTune(query.data(), lengthOf(query), tunes.data(), lengthOf(tunes), search, matches.data(), most);
    matches.resize(static_cast<size_t>(count));
    return matches;
}

/// A walk in few whole steps: many distances are equal.
Doubles melody(std::mt19937& random, size_t length) {
    Doubles pitch;
    double value = 60;
    for (size_t i = 0; i < length; ++i) {
        if (random() % 4 == 0) value += static_cast<double>(random() % 5) - 2;
        pitch.push_back(value);
    }
    return pitch;
}

TEST(FindTune, IsThePlainLoopOverEveryPlace) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    for (int round = 0; round < 60; ++round) {
        std::vector<Doubles> pitches;
        const size_t length = round == 0 ? 350 : 2 + random() % 40;
        for (int i = 0; i < 12; ++i) pitches.push_back(melody(random, random() % (2 * length)));
        pitches.push_back(pitches[3]);
        const Doubles query = melody(random, length);
        Doubles& near = pitches.emplace_back(melody(random, 255));
        for (const size_t wrong : {length / 7 + 1, length / 7}) // close to what their bounds are
            for (size_t i = 0; i < length; ++i) near.push_back(i < wrong ? query[i] + 1 : query[i]);
        const int starts[] = {0, 30, 7, -1, 7, 200};
        for (const int* start : {starts, static_cast<const int*>(nullptr)})
            for (const int type : {1, 2}) {
                std::vector<TUNE> tunes;
                for (const Doubles& pitch : pitches)
                    tunes.push_back({pitch.data(), lengthOf(pitch), start, 6});
                const TUNESEARCH search{0.5, 1.7, 13, type};
                const Matches plain = plainMatches(query, tunes, search);
                const Matches three(plain.begin(), plain.begin() + std::min<int>(3, lengthOf(plain)));
                withEveryKernel([&](const char* kernel) {
                    SCOPED_TRACE(::testing::Message() << "round " << round << ", type " << type << ", "
                                                      << (start ? "starts" : "anywhere") << ", " << kernel);
                    EXPECT_EQ(linesOf(found(query, tunes, search, 99)), linesOf(plain));
                    EXPECT_EQ(linesOf(found(query, tunes, search, 3)), linesOf(three));
                });
            }
    }
}

TEST(FindTune, WithoutRoomOrPitchFindsNothing) {
    const Doubles pitch(20, 60);
    const std::vector<TUNE> tunes = {{pitch.data(), 20, nullptr, 0}};
    EXPECT_EQ(found({}, tunes, {}, 1).size(), 0U);
    EXPECT_EQ(found(pitch, {}, {}, 1).size(), 0U);
    EXPECT_EQ(found(pitch, tunes, {}, 0).size(), 0U);
    EXPECT_EQ(found(pitch, tunes, {1.1, 2, 3, 1}, 1).size(), 0U);
    EXPECT_EQ(fatalMessage([&] {
                  found(pitch, tunes, {0.5, 2, 3, 0}, 1);
              }),
              "Unknown distance type" + inUtility);
}

} // namespace
