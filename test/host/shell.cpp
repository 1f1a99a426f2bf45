// The command wavepitch from the outside: one recording, bad ones, and a corpus.

#include "running.hpp"

#include <gtest/gtest.h>
#include <sndfile.hh>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace {

namespace fs = std::filesystem;

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
        EXPECT_TRUE(holds(list, "  " + name + " ")) << name;
        const std::string firstLine = text.substr(2, text.find('\n') - 2);
        EXPECT_TRUE(holds(bash("wavepitch help " + name).out, firstLine)) << name;
    }
}

TEST_F(Shell, ResultsStandInTheFormAskedFor) {
    const struct {
        std::string line, out;
    } cases[] = {
        {"wavepitch pitch2freq 69,81 --json", "{\"frequency\":[440.0,880.0]}\n"},
        {"wavepitch pitch2freq -.3", "frequency\n0\n"},
        {"wavepitch lrShiftDist -1,-2 3,2,9 --json", "{\"distance\":0.0,\"position\":1.0,\"shift\":-4.0}\n"},
        {"wavepitch ptParam 8000 --json | cut -d , -f 1-2", "{\"fs\":8000.0,\"nbits\":16.0\n"},
        {"timeout 9 env --ignore-signal=CHLD wavepitch pitch2freq 69 -o /dev/stdout", "frequency\n440\n"},
        {"wavepitch pitch2freq 69,70 -o x --png - | head -c 4 | tail -c 3", "PNG"},
        {"wavepitch setCover sets=@sets.csv", "chosen,coverage\n2,0.6\n1,1\n"},
        {"wavepitch findTune maxNum=1 @hum.csv:f0 tunes.tsv --json",
         "{\"rank\":[2.0],\"distance\":[0.0],\"name\":[\"b, c\"],\"position\":[0.01],\"ratio\":[0.85],"
         "\"transposition\":[7.0]}\n"},
        {"wavepitch findTune @hum.csv:f0 tunes.tsv resolution=1 lowerRatio=1",
         "rank,distance,name,position,ratio,transposition\n2,0,\"b, c\",0.01,1,7\n1,1,a,0,1,8\n"},
        {"wavepitch findTune 0 tunes.tsv", "rank,distance,name,position,ratio,transposition\n"},
        {"wavepitch setCover sets=@sets.csv maxSetNum=2 maxSetNum=1 --tsv", "chosen\tcoverage\n2\t0.6\n"},
        {"wavepitch wave2frames three.wav frameSize=2 overlap=1",
         "time,sample0,sample1\n0.001,0,0.5\n0.002,0.5,0.25\n"},
        {"wavepitch wave2frames pair.wav --mix frameSize=2 overlap=0",
         "time,sample0,sample1\n0.001,0.5,0.25\n"},
        {"wavepitch wave2pfMat three.wav frameSize=2 overlap=1 pfLen=1 pfType=acf pfMethod=1",
         "time,lag0\n0.001,0.125\n0.002,0.03125\n"},
        {"wavepitch wave2volume three.wav frameSize=2 overlap=1 nbits=8 --columns", "0.001 64\n0.002 32\n"},
        {"wavepitch wave2f0 $SPEECH --show strength --columns | sed -n 37p | head -c 9", "0.36 0.68"},
        {"wavepitch endPoints silence.wav method=character",
         "start,end,firstSample,lastSample\n0,0.426,1,426\n"},
        {"wavepitch endPoints silence.wav method=handset", "start,end,firstSample,lastSample\n"},
        {"wavepitch endPoints $SPEECH method=volume volRatio=2 | wc -l", "12\n"},
        {"wavepitch endPoints $SPEECH method=volume --show curve | tail -1", "5.496,52\n"},
        {"wavepitch endPoints silence.wav METHOD=character --labels", "0\t0.426\t1\n"},
        {"wavepitch absSpectrogram silence.wav frameSize=2 overlap=0 | head -1", "time,0,500\n"},
        {"wavepitch wave2f0 $SPEECH --show correlation | head -c 14", "time,0.001125,"},
        {"wavepitch waveResample three.wav newFs=500 --wav -o half.wav; "
         "wavepitch wave2frames half.wav frameSize=2 overlap=0",
         "time,sample0,sample1\n0.002,0,0.25\n"},
        {"wavepitch isWaveSilence -r . 2>&-",
         "file,silent\n\"./a\"\"b.wav\",1\n\"./a,b.wav\",1\n./half.wav,0\n./silence.wav,1\n./three.wav,0\n"},
        {"wavepitch isWaveSilence $EXAMPLES/reading16k.wav silence.wav -j 2 2>&- | tail -1",
         "silence.wav,1\n"},
        {"printf 'silence.wav\\0three.wav' | wavepitch isWaveSilence -0 - 2>&-",
         "file,silent\nsilence.wav,1\nthree.wav,0\n"},
        {"mkdir raw; cp silence.wav raw; head -c 999 /dev/zero >raw/x.PCM; "
         "wavepitch isWaveSilence -r raw --raw 8000:s8 2>&-",
         "file,silent\nraw/silence.wav,1\nraw/x.PCM,1\n"},
        {"wavepitch wave2zcr ../shellFiles/three.wav frameSize=3 overlap=0 --out-dir to; cat "
         "to/shellFiles/three.csv",
         "time,zcr\n0.0015,0\n"},
        {"for i in volume zcr; do wavepitch wave2$i three.wav frameSize=3 overlap=0 --out-dir to; done;"
         "touch -d '1 hour ago' three.wav; wavepitch wave2volume three.wav --out-dir to --resume; cat "
         "to/three.csv",
         "time,zcr\n0.0015,0\n"},
        {"touch -d 'next hour' three.wav;"
         "wavepitch wave2ashod three.wav frameSize=3 overlap=0 --out-dir to --resume; cat to/three.csv",
         "time,ashod\n0.0015,0\n"},
        {"cp three.wav a.aif; cp three.wav a.wav; wavepitch waveResample a.aif a.wav newFs=9 --wav --out-dir "
         ". "
         "2>&-; cmp three.wav a.wav",
         ""},
    };
    std::ofstream("hum.csv") << "time,f0\r\n0,0\r\n0.01,67\n0.02,69\n0.03,71\n";
    std::ofstream("tunes.tsv") << "name\torigin\tkey\ttempo\tnotes\na\t\t\t6000\tC4:1 B3:1 D#4:1\n"
                                  "b, c\t\t\t6000\tr:1 C4:1 D4:1 E4:1\n";
    std::ofstream("sets.csv") << "1 2 0\n3 4 5\n5 0 0\n";
    writeSound("three.wav", {0, 0.5, 0.25}, 1, 1000);
    writeSound("pair.wav", {0, 1, 0.25, 0.25}, 2, 1000);
    writeSound("silence.wav", std::vector<double>(500), 1, 1000);
    bash("cp silence.wav a,b.wav; cp silence.wav 'a\"b.wav'");
    for (const auto& [line, out] : cases) EXPECT_EQ(bash(line).out, out) << line;
}

TEST_F(Shell, PicturesShowWhatThePackageDraws) {
    const struct {
        std::string call, line; // of what gnuplot is told
    } cases[] = {
        {"endPoints $SPEECH", "first 76623 to graph 1"}, // the threshold
        {"wave2f0 $SPEECH", "array=(1096,73)"},          // the lower part of the spectrogram
        {"wave2pitch $SPEECH --show pfMat", "dx=0.032000000000000001 dy=0.125"}, // s, ms
        {"wave2pitch $SPEECH", "lc rgb '#000000'"}, // lags over the pitch function
        {"note2wave 69 0.5 8000", "set xrange [0:0.5]"},
        {"uvCut $SPEECH", "from first 0.432, graph 0"},
        {"absSpectrogram <(printf '\\0\\x80\\0\\0\\0\\0') --raw 1000:s8 frameSize=3 overlap=0",
         "T\xC0"}, // -80 dB
        {"findTune 0,60,62,64 $EXAMPLES/tunes/tunes.tsv",
         "set yrange [57.799999999999997:62.200000000000003]"},
        {"findTune 0,60,64,67,72 $EXAMPLES/tunes/tunes.tsv anywhere=1 frameRate=4", "xrange [26.875:27.375]"},
        {"findTune 0,60,64,67,72 $EXAMPLES/tunes/tunes.tsv",
         "binary record=(4)"},                                            // without the rest before it
        {"findTune 0,60 $EXAMPLES/tunes/tunes.tsv", "xrange [0.5:10.5]"}, // ranks
        {"findTune 0 $EXAMPLES/tunes/tunes.tsv", "1 x 0: empty"},
        {"note2pv 60,64 0.2,0.1 0.05", "set yrange [59.799999999999997:64.200000000000003]"},
    };
    bash("mkdir bin; printf '#!/bin/sh\ncat >script' >bin/gnuplot; chmod +x bin/gnuplot");
    for (const auto& [call, line] : cases) {
        bash("PATH=$PWD/bin:$PATH wavepitch " + call + " --png picture.png");
        EXPECT_TRUE(holds(contents("script"), line)) << call;
    }
}

TEST_F(Shell, BadInputIsOneLineThatSaysWhatAndWhy) {
    const struct {
        std::string line, message;
    } cases[] = {
        {"wavepitch wave2f0 missing.wav", "missing.wav: no such file"},
        {"wavepitch wave2f0 .", ".: is a folder: -r takes"},
        {"wavepitch wave2f0 -r empty", "empty: holds no recordings"},
        {"wavepitch wave2f0 empty.wav", "empty.wav: is empty"},
        {"wavepitch wave2f0 header.wav", "header.wav: not readable as audio"},
        {"wavepitch wave2f0 cut.wav", "cut.wav: truncated: ends before its header says"},
        {"wavepitch wave2f0 none.wav", "none.wav: holds no samples"},
        {"wavepitch wave2f0 fast.wav", "fast.wav: wave2f0: FS must be"},
        {"wavepitch wave2f0 eight.wav", "eight.wav: has 8 channels: --channel N"},
        {"wavepitch wave2f0 eight.wav --channel 9", "eight.wav: has no channel 9"},
        {"wavepitch wave2f0 nan.wav", "nan.wav: wave2f0: WAVE must be a real vector of finite numbers"},
        {"wavepitch wave2f0 $'a \\'\"\\a\\n'", "a '\"\\x07\\n: no such file"},
        {"wavepitch wave2f0 -- -f", "-f: no such file"},
        {"wavepitch wave2f0 - <$SPEECH", "standard input (-) must be names"},
        {"wavepitch wave2f0 $SPEECH fo=1", "no option is named \"fo\""},
        {"wavepitch wave2f0 $SPEECH fs=1", "fs comes from the recording"},
        {"wavepitch wave2f0 $SPEECH --raw 8:x", "\"8:x\" must be RATE:FORMAT"},
        {"wavepitch wave2f0 $SPEECH --raw 0:s8", "\"0:s8\" must be RATE:FORMAT"},
        {"wavepitch wave2f0 $SPEECH --show x", "no output is named \"x\"; there are f0"},
        {"wavepitch wave2f0 $SPEECH $SPEECH -o x", "-o and --png are for one recording"},
        {"wavepitch wave2f0 eight.wav --mix -o eight.wav", "eight.wav: would be overwritten"},
        {"wavepitch wave2f0 $SPEECH -o empty.wav/x", "empty.wav/x: cannot be written: Not a directory"},
        {"wavepitch wave2f0 empty.wav --png ./empty.wav", "empty.wav: would be overwritten"},
        {"wavepitch pitch2freq 69 --png -", "a picture on standard output wants a file"},
        {"wavepitch setCover 1,2 -o x --png ./x", "setCover: would write ./x twice"},
        {"wavepitch findTune 60 tunes -o ./tunes", "would write over the input ./tunes"},
        {"wavepitch wave2f0 $SPEECH -o y --png /proc/x", "x: cannot be written: the picture's file"},
        {"wavepitch wave2f0 $SPEECH -o /dev/full", "No space left on device"},
        {"wavepitch wave2f0 $SPEECH >/dev/full", "standard output cannot be written"},
        {"ulimit -f 20; wavepitch wave2f0 $SPEECH --show correlation -o x", "ended by a signal: File size"},
        {"trap '' XFSZ; ulimit -f 20; wavepitch wave2f0 $SPEECH --show correlation -o x",
         "x: cannot be written"},
        {"head -c 2000000 /dev/zero >z; wavepitch wave2frames z --raw 8000:s8 frameSize=1000000 "
         "overlap=999999",
         "room for 1000001000000 values is asked for, by FRAMESIZE and OVERLAP"},
        {"wavepitch wave2pv z --raw 1:s8", "room for 16000000000 values is asked for, by FS"},
        {"wavepitch findTune 0 $EXAMPLES/tunes/tunes.tsv names=a", "NAMES must be left out, TUNES is a file"},
        {"wavepitch setCover 1,2 --columns", "chosen has no times"},
        {"wavepitch pitch2freq 69,", "wavepitch: pitch2freq: PITCH must be"},
    };
    fs::create_directory("empty");
    std::ofstream("empty.wav");
    bash("head -c 30 $SPEECH >header.wav; head -c 9999 $SPEECH >cut.wav");
    writeSound("none.wav", {}, 1, 8000);
    writeSound("fast.wav", {0, 0}, 1, 192001);
    writeSound("eight.wav", std::vector<double>(80), 8, 8000);
    writeSound("nan.wav", {0, std::nan("")}, 1, 8000);
    for (const auto& [line, message] : cases) {
        const Result result = bash(line);
        EXPECT_EQ(result.status, 1) << line;
        EXPECT_EQ(result.out, "") << line;
        EXPECT_EQ(result.err.find('\n') + 1, result.err.size()) << line;
        EXPECT_TRUE(holds(result.err, message)) << line << ": " << result.err;
    }
    EXPECT_EQ(bash("find . -name '*.part'").out, "");
}

TEST_F(Shell, InterruptionEndsWhatIsRunning) {
    EXPECT_EQ(bash("mkfifo pipe; timeout -k 9 -s INT 0.3 wavepitch wave2f0 pipe").status, 124) << "waits";
    EXPECT_EQ(
        bash("timeout -k 1 -s INT 1 wavepitch wave2f0 $SPEECH --show correlation | sleep 3; exit $PIPESTATUS")
            .status,
        124)
        << "is not read";
    EXPECT_EQ(bash("(trap '' HUP; exec wavepitch isWaveSilence pipe) & sleep 0.3; kill -HUP $!; "
                   "timeout 5 cp $SPEECH pipe; wait $!")
                  .status,
              0)
        << "what is ignored ends nothing";
}

/// A folder that root, too, cannot write, and one that root cannot read, as any other user finds them.
TEST_F(Shell, WhatRightsRefuseIsNamedAndTheRestIsDone) {
    setenv("ANYBODY", geteuid() == 0 ? "setpriv --bounding-set=-dac_override,-dac_read_search" : "", 1);
    bash("mkdir -p in/closed in/open locked; cp $SPEECH in/open; chmod 000 in/closed; chmod 555 locked");
    if (bash("$ANYBODY true").status != 0) GTEST_SKIP() << "skipped: root cannot give up its rights";
    const Result locked = bash("$ANYBODY wavepitch wave2f0 $SPEECH --out-dir locked --pictures");
    EXPECT_EQ(locked.status, 1);
    EXPECT_TRUE(holds(locked.err, "speech8k.csv: cannot be written: Permission denied\n")) << locked.err;
    const Result closed = bash("$ANYBODY wavepitch wave2f0 -r in --out-dir done");
    bash("chmod 755 in/closed locked"); // to be removed
    EXPECT_EQ(closed.status, 1);
    EXPECT_TRUE(holds(closed.err, "in/closed: Permission denied\n")) << closed.err;
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
        EXPECT_TRUE(holds(result.err, ": cannot be written: ")) << file << ": " << result.err;
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

/// 20 recordings and a broken one, and what becomes of them one after the other.
class Corpus : public Shell {
protected:
    void SetUp() override {
        Shell::SetUp();
        bash("for i in {10..19}; do mkdir -p in/$i; cp $EXAMPLES/s*.wav in/$i; done; echo >in/15/broken.wav");
        const Result result = bash("wavepitch wave2f0 -r in --out-dir one -j 1");
        EXPECT_EQ(result.status, 1);
        EXPECT_TRUE(holds(result.err, "21 recordings: 20 done, 1 refused")) << result.err;
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
        bash("mkfifo wait; wavepitch wave2f0 wait -r in --out-dir cut -j 2 & until [[ -e cut/in/12 ]]; do "
             "sleep 0.01; done; kill -INT $!; wait $!");
    EXPECT_EQ(result.status, 130);
    EXPECT_EQ(bash("find cut -name '.*'").out, "");
    EXPECT_EQ(bash("diff -rq one cut | grep -v '^Only in one'").out, "");
    EXPECT_TRUE(holds(bash("wavepitch wave2f0 -r in --out-dir cut --resume").err, " there already"));
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
