// From where the programs take libraries, modules and each other: from their own folders only.

#include <gmock/gmock.h>

#include <fstream>
#include <set>

#include "tests/system/Program.h"

namespace {

using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::Not;
using testing::StartsWith;

namespace fs = std::filesystem;

/// Looks at the folders to search that the linked files of a folder name; gives the files' names.
std::set<std::string> CheckRunPaths(const fs::path& folder) {
    std::set<std::string> checked;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (!entry.is_regular_file() || !FileBytes(entry.path())
                                             .starts_with("\x7F"
                                                          "ELF")) {
            continue;
        }
        checked.insert(entry.path().filename());
        const std::string told = RunProgram({"readelf", "-d", "-W", entry.path()}).output;
        EXPECT_THAT(told, HasSubstr("(NEEDED)")) << entry;
        for (std::size_t at = 0; (at = told.find("PATH)", at)) != std::string::npos; ++at) {
            const std::size_t begin = told.find('[', at) + 1;
            std::istringstream path(told.substr(begin, told.find(']', begin) - begin) + ":");
            for (std::string searched; std::getline(path, searched, ':');) {
                EXPECT_THAT(searched, StartsWith("$ORIGIN")) << entry;
            }
        }
    }
    return checked;
}

/// A command of the shell in a folder that is searched for programs first, too; $1 is `bin`.
ProgramResult RunIn(const fs::path& folder, const fs::path& bin, const std::string& command) {
    const std::string set = "cd \"$0\" && PATH=.:$PATH QT_QPA_PLATFORM=offscreen ";
    return RunProgram({"sh", "-c", set + command, folder, bin});
}

TEST(RunPaths, NothingInTheCurrentFolderIsRun) {
    const ScratchFolder scratch;
    const fs::path planted = scratch.Path() / "planted";
    fs::create_directories(planted / "lib/grdx");
    for (const char* name : {"libsqlite3.so.0", "grdx.arx", "lib/grdx/grdx.arx", "grdx-plot"}) {
        std::ofstream(planted / name) << "#!/bin/sh\necho planted\n";
        fs::permissions(planted / name, fs::perms::owner_all);
    }
    const fs::path build = fs::path(GRDX_PROGRAM).parent_path().parent_path();
    const fs::path installed = scratch.Path() / "installed";
    ASSERT_EQ(RunProgram({"cmake", "--install", build, "--prefix", installed}).status, 0);
    for (const fs::path& tree : {build, installed}) {
        EXPECT_THAT(CheckRunPaths(tree / "bin"), IsSupersetOf({"grdx", "grdx-plot", "desk"}));
        EXPECT_THAT(CheckRunPaths(tree / "lib/grdx"),
                    IsSupersetOf({"grdx.arx", "libgrdx_platform.so"}));
        // Nor does a file's name make the window system load something.
        for (const char* drawing : {"no.dwg", "-- -platform own"}) {
            const ProgramResult plotted =
                RunIn(planted, tree / "bin", std::string("\"$1\"/grdx plot --to pdf ") + drawing);
            EXPECT_EQ(plotted.status, 1) << plotted.errors;
            EXPECT_THAT(plotted.output + plotted.errors, Not(HasSubstr("planted\n")));
        }
        constexpr int kStillThere = 124;
        EXPECT_EQ(RunIn(planted, tree / "bin", "timeout 2 \"$1\"/desk -- -platform own").status,
                  kStillThere);
    }
}

}  // namespace
