// Where results go to, and files that are none.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "tests/system/Program.h"

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {
class StreamsTest : public testing::Test {
protected:
    /// A shell runs it with the program as $0, the suite folder as $1 and `more` from $2 on.
    ProgramResult Shell(const std::string& script,
                        const std::vector<std::string>& more = {}) const {
        std::vector<std::string> words = {"timeout", "20",         "sh",   "-c",
                                          script,    GRDX_PROGRAM, folder_};
        words.insert(words.end(), more.begin(), more.end());
        return RunProgram(words);
    }
    std::string Path(const std::string& name) const { return scratch_.Path(name); }

    ScratchFolder scratch_;
    std::string folder_ = scratch_.Path() / "suite";
    SampleSuite suite_{folder_, 0};
};
}  // namespace

TEST_F(StreamsTest, ResultsThatCannotBeWrittenAreAFailure) {
    const std::string sheet = suite_.Draw("ZK1").output;
    scratch_.Write("script", "SAVEAS \"" + Path("made") + "\"\n");
    for (const char* call :
         {"list -s $1", "list --json -s $1", "draw layers --all -s $1", "script $3 -s $1",
          "import layers $4 -s $1", "info $2", "plot $2 --to svg -o $3.svg", "new $3.new", "--help",
          "plot --version"}) {
        const std::vector<std::string> files = {sheet.substr(0, sheet.find('\n')), Path("script"),
                                                std::string(GRDX_SAMPLES) + "/layers.csv"};
        const ProgramResult full = Shell(std::string("$0 ") + call + " > /dev/full", files);
        EXPECT_EQ(full.status, 1) << call;
        EXPECT_EQ(full.errors, "grdx: standard output: No space left on device\n") << call;
        fs::remove_all(Path("script.new"));
    }
    // The reader has gone before anything is written.
    const ProgramResult closed = Shell(
        "mkfifo $2; { read go < $2; $0 list -s $1; echo $? > $2.status; } | "
        "{ exec <&-; echo go > $2; }",
        {Path("gate")});
    EXPECT_EQ(scratch_.Read("gate.status"), "1\n");
    EXPECT_THAT(closed.errors, IsEmpty());
}

TEST_F(StreamsTest, WhatIsNoFileIsRefusedAtOnce) {
    mkfifo(Path("pipe").c_str(), 0600);
    for (const std::string& file : {Path("pipe"), std::string("/dev/zero"), folder_}) {
        const std::string reason =
            file + ": " + (file == folder_ ? "Is a directory" : "it is a pipe or a device");
        for (const char* call : {"import samples $2 -s $1", "script $2 -s $1", "info $2",
                                 "plot $2 --to svg -o $2.svg"}) {
            const ProgramResult run = Shell(std::string("$0 ") + call, {file});
            EXPECT_EQ(run.status, 1) << call << " " << file;
            EXPECT_THAT(run.errors, HasSubstr(reason)) << call;
        }
    }
    for (const char* given : {"-", "/dev/stdin", "/dev/fd/7"}) {
        const ProgramResult run = Shell("cat $3 | $0 import layers $2 -s $1 7<&0",
                                        {given, std::string(GRDX_SAMPLES) + "/layers.csv"});
        EXPECT_EQ(run.status, 0) << given << run.errors;
    }
}

TEST_F(StreamsTest, AProfileThatCannotBeReadIsNoEmptyOne) {
    for (const char* profile : {"marks.ini", "project.ini"}) {
        fs::rename(folder_ + "/" + profile, Path(profile));
        fs::create_directory(folder_ + "/" + profile);
        for (const char* call : {"list -s $1", "draw samples --borehole ZK1 --sample 1 -s $1"}) {
            const ProgramResult run = Shell(std::string("$0 ") + call);
            EXPECT_EQ(run.status, 1) << call;
            EXPECT_THAT(run.errors, HasSubstr(std::string(profile) + ": Is a directory")) << call;
        }
        fs::remove(folder_ + "/" + profile);
        fs::rename(Path(profile), folder_ + "/" + profile);
    }
}
