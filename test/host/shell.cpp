// The command wavepitch from the outside: one recording, bad ones, and a corpus.

#include <gtest/gtest.h>
#include <sndfile.hh>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Result {
    int status;
    std::string out, err;
};

std::string contents(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Runs a line of bash, where $SPEECH is a recording and $EXAMPLES the folder of several.
Result bash(const std::string& line) {
    setenv("LINE", line.c_str(), 1);
    const int status = std::system("bash -c \"$LINE\" >out 2>err </dev/null");
    return {WEXITSTATUS(status), contents("out"), contents("err")};
}

void writeSound(const std::string& path, std::vector<double> samples, int channels, int rate) {
    SndfileHandle file(path, SFM_WRITE, SF_FORMAT_WAV | SF_FORMAT_FLOAT, channels, rate);
    file.write(samples.data(), static_cast<sf_count_t>(samples.size()));
}

class Shell : public testing::Test {
protected:
    void SetUp() override {
        setenv("PATH", (WAVEPITCH_FOLDER ":" + std::string(getenv("PATH"))).c_str(), 1);
        setenv("EXAMPLES", WAVEPITCH_EXAMPLES, 1);
        setenv("SPEECH", WAVEPITCH_EXAMPLES "/speech8k.wav", 1);
        fs::remove_all("shellFiles");
        fs::create_directory("shellFiles");
        fs::current_path("shellFiles");
    }
    void TearDown() override { fs::current_path(".."); }
};

TEST_F(Shell, EveryFunctionOfThePackageIsThereWithItsHelp) {
    const std::string list = bash("wavepitch").out;
    for (const auto& entry : fs::directory_iterator(WAVEPITCH_PACKAGE "/inst")) {
        if (entry.is_directory()) continue;
        const std::string name = entry.path().stem();
        const std::string text = contents(entry.path());
        EXPECT_NE(list.find("  " + name + " "), std::string::npos) << name;
        const std::string firstLine = text.substr(2, text.find('\n') - 2);
        EXPECT_NE(bash("wavepitch help " + name).out.find(firstLine), std::string::npos) << name;
    }
}

TEST_F(Shell, ResultsStandInTheFormAskedFor) {
    const struct {
        std::string call, out;
    } cases[] = {
        {"pitch2freq 69,81 --json", "{\"frequency\":[440.0,880.0]}\n"},
        {"lrShiftDist -1,-2 3,2,9 --json", "{\"distance\":0.0,\"position\":1.0,\"shift\":-4.0}\n"},
        {"ptParam 8000 --json | cut -d , -f 1-2", "{\"fs\":8000.0,\"nbits\":16.0\n"},
        {"pitch2freq 69 -o /dev/stdout", "frequency\n440\n"},
        {"setCover sets=@sets.csv", "chosen,coverage\n2,0.6\n1,1\n"},
        {"setCover sets=@sets.csv maxSetNum=1 --tsv", "chosen\tcoverage\n2\t0.6\n"},
        {"wave2frames three.wav frameSize=2 overlap=1",
         "time,sample0,sample1\n0.001,0,0.5\n0.002,0.5,0.25\n"},
        {"wave2volume three.wav frameSize=2 overlap=1 nbits=8 --columns", "0.001 64\n0.002 32\n"},
        {"endPoints silence.wav method=character", "start,end,firstSample,lastSample\n0,0.426,1,426\n"},
        {"endPoints silence.wav METHOD=character --labels", "0\t0.426\t1\n"},
        {"absSpectrogram silence.wav frameSize=2 overlap=0 | head -1", "time,0,500\n"},
        {"isWaveSilence silence.wav 'a,b.wav' 2>&-", "file,silent\nsilence.wav,1\n\"a,b.wav\",1\n"},
    };
    std::ofstream("sets.csv") << "1 2 0\n3 4 5\n5 0 0\n";
    writeSound("three.wav", {0, 0.5, 0.25}, 1, 1000);
    writeSound("silence.wav", std::vector<double>(500), 1, 1000);
    fs::copy("silence.wav", "a,b.wav");
    for (const auto& [call, out] : cases) EXPECT_EQ(bash("wavepitch " + call).out, out) << call;
}

TEST_F(Shell, BadInputIsOneLineThatSaysWhatAndWhy) {
    const struct {
        std::string call, message;
    } cases[] = {
        {"missing.wav", "missing.wav: no such file"},
        {".", ".: is a folder: -r takes"},
        {"-r empty", "empty: holds no recordings"},
        {"empty.wav", "empty.wav: is empty"},
        {"header.wav", "header.wav: not readable as audio"},
        {"cut.wav", "cut.wav: truncated: ends before its header says"},
        {"none.wav", "none.wav: holds no samples"},
        {"fast.wav", "fast.wav: wave2f0: FS must be"},
        {"eight.wav", "eight.wav: has 8 channels: --channel N"},
        {"eight.wav --channel 9", "eight.wav: has no channel 9"},
        {"nan.wav", "nan.wav: wave2f0: WAVE must be a real vector of finite numbers"},
        {"$'a \\'\"\\n'", "a '\"\\n: no such file"},
        {"-- -f", "-f: no such file"},
        {"$SPEECH fo=1", "no option is named \"fo\""},
        {"$SPEECH fs=1", "fs comes from the recording"},
        {"$SPEECH --raw 8:x", "\"8:x\" must be RATE:FORMAT"},
        {"$SPEECH --show x", "no output is named \"x\"; there are f0"},
        {"$SPEECH -o empty.wav/x", "empty.wav/x: cannot be written: Not a directory"},
        {"empty.wav --png ./empty.wav", "empty.wav: would be overwritten"},
        {"$SPEECH -o x --png x", "would write x"},
        {"$SPEECH -o /dev/full", "No space left on device"},
        {"$SPEECH >/dev/full", "standard output cannot be written"},
    };
    fs::create_directory("empty");
    std::ofstream("empty.wav");
    bash("head -c 30 $SPEECH >header.wav; head -c 9999 $SPEECH >cut.wav");
    writeSound("none.wav", {}, 1, 8000);
    writeSound("fast.wav", {0, 0}, 1, 192001);
    writeSound("eight.wav", std::vector<double>(80), 8, 8000);
    writeSound("nan.wav", {0, std::nan("")}, 1, 8000);
    for (const auto& [call, message] : cases) {
        const Result result = bash("wavepitch wave2f0 " + call);
        EXPECT_EQ(result.status, 1) << call;
        EXPECT_EQ(result.out, "") << call;
        EXPECT_EQ(result.err.find('\n') + 1, result.err.size()) << call;
        EXPECT_NE(result.err.find(message), std::string::npos) << call << ": " << result.err;
    }
}

/// A folder that root, too, cannot write, and one that root cannot read, as any other user finds them.
TEST_F(Shell, WhatRightsRefuseIsNamedAndTheRestIsDone) {
    setenv("ANYBODY", geteuid() == 0 ? "setpriv --bounding-set=-dac_override,-dac_read_search" : "", 1);
    bash("mkdir -p in/closed in/open locked; cp $SPEECH in/open; chmod 000 in/closed; chmod 555 locked");
    if (bash("$ANYBODY true").status != 0) GTEST_SKIP() << "skipped: root cannot give up its rights";
    const Result locked = bash("$ANYBODY wavepitch wave2f0 $SPEECH --out-dir locked --pictures");
    EXPECT_EQ(locked.status, 1);
    EXPECT_NE(locked.err.find("speech8k.csv: cannot be written: Permission denied\n"), std::string::npos)
        << locked.err;
    const Result closed = bash("$ANYBODY wavepitch wave2f0 -r in --out-dir done");
    bash("chmod 755 in/closed locked"); // to be removed
    EXPECT_EQ(closed.status, 1);
    EXPECT_NE(closed.err.find("in/closed: Permission denied\n"), std::string::npos) << closed.err;
    EXPECT_TRUE(fs::exists("done/in/open/speech8k.csv")) << closed.err;
}

TEST_F(Shell, NothingStandsOnAFullDiskThatIsNotWhole) {
    fs::create_directory("disk");
    const auto onDisk = [](const std::string& line) {
        return bash("unshare -rm bash -c 'mount -t tmpfs -o size=16k none disk && " + line + "; ls -A disk'");
    };
    if (onDisk("echo here").out != "here\n") GTEST_SKIP() << "skipped: no disk can be mounted";
    for (const char* file : {"--show correlation -o disk/a.csv", "--png disk/a.png"}) {
        const Result result = onDisk("wavepitch wave2f0 $SPEECH " + std::string(file) + " >/dev/null");
        EXPECT_NE(result.err.find(": cannot be written: "), std::string::npos) << file << ": " << result.err;
        EXPECT_EQ(result.out, "") << file;
    }
}

TEST_F(Shell, NamesMayHoldAnything) {
    const std::string names[] = {"a b=c.wav", "q'\".wav", "new\nline.wav", "-f.wav", "-1.wav", "$x`.wav"};
    fs::create_directory("in");
    for (const std::string& name : names) fs::copy(WAVEPITCH_EXAMPLES "/speech8k.wav", "in/" + name);
    bash("find in -type f -print0 | wavepitch wave2f0 -0 - --out-dir listed");
    bash("wavepitch wave2f0 -r in --out-dir found --pictures");
    bash("cd in; wavepitch wave2f0 --out-dir ../given/in -- *");
    const std::string expected = bash("wavepitch wave2f0 $SPEECH").out;
    for (const std::string& name : names) {
        for (const char* folder : {"listed/in", "found/in", "given/in"})
            EXPECT_EQ(contents(fs::path(folder) / fs::path(name).replace_extension(".csv")), expected)
                << folder << ": " << name;
        EXPECT_TRUE(fs::exists("found/in" / fs::path(name).replace_extension(".png"))) << name;
    }
}

TEST_F(Shell, PictureOfThePitchIsTheSameInEitherUnit) {
    bash("wavepitch wave2f0 $SPEECH --png a.png; wavepitch wave2f0 $SPEECH unit=semitone --png b.png");
    EXPECT_EQ(bash("cmp a.png b.png").out, "");
}

TEST_F(Shell, EachOptionOfAFunctionIsCompleted) {
    for (const char* function : {"wave2f0", "wave2volume", "absSpectrogram"}) {
        const std::string call = "wavepitch " + std::string(function) + " $SPEECH ";
        const Result result = bash("source " WAVEPITCH_COMPLETION "; compopt() { :; }\n"
                                   "for name in $(" +
                                   call +
                                   "x=1 |& sed 's/.*there are//; s/[,\"]//g'); do\n"
                                   "COMP_WORDS=(" +
                                   call +
                                   "${name%?}); COMP_CWORD=3; _wavepitch\n"
                                   "[[ \" ${COMPREPLY[*]} \" == *\" $name= \"* ]] || echo $name; done");
        EXPECT_EQ(result.out, "") << function << ": not completed";
    }
}

/// 60 recordings and a broken one, and what becomes of them one after the other.
class Corpus : public Shell {
protected:
    void SetUp() override {
        Shell::SetUp();
        bash("for i in {10..29}; do mkdir -p in/$i; cp $EXAMPLES/*.wav in/$i; done; echo >in/20/broken.wav");
        const Result result = bash("wavepitch wave2f0 -r in --out-dir one -j 1");
        EXPECT_EQ(result.status, 1);
        EXPECT_NE(result.err.find("61 recordings: 60 done, 1 refused"), std::string::npos) << result.err;
    }
    void expectSame(const std::string& folder) {
        const Result result = bash("diff -r one " + folder);
        EXPECT_EQ(result.status, 0) << result.out;
    }
};

TEST_F(Corpus, IsTheSameSideBySide) {
    bash("wavepitch wave2f0 -r in --out-dir many -j 8");
    expectSame("many");
    bash("touch linked.csv; ln -s linked.csv alone.csv; wavepitch wave2f0 $SPEECH -o alone.csv");
    EXPECT_EQ(contents("linked.csv"), contents("one/in/10/speech8k.csv"));
}

TEST_F(Corpus, IsWholeOrAbsentWhenInterruptedAndIsResumed) {
    const Result result =
        bash("wavepitch wave2f0 -r in --out-dir cut -j 2 & until [[ -e cut/in/12 ]]; do :; done; "
             "kill -INT $!; wait $!");
    EXPECT_EQ(result.status, 130);
    EXPECT_EQ(bash("find cut -name '.*'").out, "");
    EXPECT_EQ(bash("diff -rq one cut | grep -v '^Only in one'").out, "");
    EXPECT_EQ(bash("test -e cut/in/29/speech8k.csv").status, 1);
    EXPECT_NE(bash("wavepitch wave2f0 -r in --out-dir cut --resume").err.find(" there already"),
              std::string::npos);
    expectSame("cut");
}

TEST_F(Corpus, IsTheSameByGnuParallel) {
    if (bash("parallel --version | grep GNU").status != 0)
        GTEST_SKIP() << "GNU parallel (package parallel) not found";
    const std::string call =
        "find in -name '*.wav' | sort | parallel --bar --joblog log --resume -N 10 --sshlogin 2/: "
        "wavepitch wave2f0 --resume --out-dir spread {}";
    EXPECT_EQ(bash(call).status, 1) << "of the broken recording";
    expectSame("spread");
}

TEST_F(Corpus, IsTheSameByAJobArray) {
    setenv("SLURM_ARRAY_TASK_MIN", "5", 1);
    setenv("SLURM_ARRAY_TASK_COUNT", "3", 1);
    for (const char* task : {"5", "6", "7"}) {
        setenv("SLURM_ARRAY_TASK_ID", task, 1);
        bash("$EXAMPLES/slurm/corpus.sbatch in array wave2f0");
    }
    expectSame("array");
}

} // namespace
