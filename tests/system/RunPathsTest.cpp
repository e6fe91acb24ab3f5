// From where the programs take libraries, modules and each other: from their own folders only.

#include <gmock/gmock.h>

#include <fstream>
#include <map>

#include "tests/system/Program.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace fs = std::filesystem;

/// The folders to search for libraries that the linked files in `folder` name, by file name.
std::map<std::string, std::string> RunPaths(const fs::path& folder) {
    std::map<std::string, std::string> paths;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (!entry.is_regular_file() || !FileBytes(entry.path())
                                             .starts_with("\x7F"
                                                          "ELF")) {
            continue;
        }
        const ProgramResult read = RunProgram({"readelf", "-d", "-W", entry.path()});
        EXPECT_EQ(read.status, 0) << read.errors;
        std::string& path = paths[entry.path().filename()];
        for (std::size_t at = 0; (at = read.output.find("PATH)", at)) != std::string::npos; ++at) {
            const std::size_t begin = read.output.find('[', at) + 1;
            path += read.output.substr(begin, read.output.find(']', begin) - begin) + ":";
        }
    }
    return paths;
}

class RunPathsTest : public testing::Test {
protected:
    RunPathsTest() {
        const fs::path build = fs::path(GRDX_PROGRAM).parent_path().parent_path();
        const ProgramResult installed =
            RunProgram({"cmake", "--install", build, "--prefix", Installed()});
        EXPECT_EQ(installed.status, 0) << installed.errors;
        trees_ = {build, Installed()};
    }
    fs::path Installed() const { return scratch_.Path() / "installed"; }

    ScratchFolder scratch_;
    std::vector<fs::path> trees_;
};

TEST_F(RunPathsTest, LibrariesAreLookedForBesideTheProgramsOnly) {
    for (const fs::path& tree : trees_) {
        std::map<std::string, std::string> paths = RunPaths(tree / "bin");
        paths.merge(RunPaths(tree / "lib/grdx"));
        for (const char* name : {"grdx", "grdx-plot", "desk", "grdx.arx", "libgrdx_platform.so"}) {
            EXPECT_EQ(paths.count(name), 1U) << name << " in " << tree;
        }
        for (const auto& [name, path] : paths) {
            std::istringstream folders(path);
            for (std::string folder; std::getline(folders, folder, ':');) {
                EXPECT_THAT(folder, StartsWith("$ORIGIN")) << name << " in " << tree;
            }
        }
    }
}

TEST_F(RunPathsTest, NothingInTheCurrentFolderIsRun) {
    const fs::path planted = scratch_.Path() / "planted";
    fs::create_directories(planted / "lib/grdx");
    for (const char* name : {"libsqlite3.so.0", "libgrdx_platform.so", "grdx.arx",
                             "lib/grdx/grdx.arx", "libQt6Gui.so.6", "grdx-plot"}) {
        std::ofstream(planted / name) << "#!/bin/sh\necho planted\n";
        fs::permissions(planted / name, fs::perms::owner_all);
    }
    for (const fs::path& tree : trees_) {
        const ProgramResult plotted =
            RunProgram({"sh", "-c", "cd \"$0\" && PATH=.:$PATH exec \"$1\" plot no.dwg --to pdf",
                        planted, tree / "bin" / "grdx"});
        EXPECT_EQ(plotted.status, 1);
        EXPECT_THAT(plotted.errors, HasSubstr("no.dwg"));
        EXPECT_THAT(plotted.output, Not(HasSubstr("planted")));
        // No file's name makes the window system load something.
        const ProgramResult named =
            RunProgram({tree / "bin" / "grdx", "plot", "--to", "pdf", "--", "-platform", "own"});
        EXPECT_EQ(named.status, 1);
        EXPECT_THAT(named.errors, HasSubstr("-platform"));
        const ProgramResult opened =
            RunProgram({"sh", "-c", "QT_QPA_PLATFORM=offscreen timeout 2 \"$0\" -- -platform own",
                        tree / "bin" / "desk"});
        constexpr int kStillThere = 124;
        EXPECT_EQ(opened.status, kStillThere) << opened.errors;
    }
}

}  // namespace
