#include "tests/system/Program.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "tests/platform/oledb/SqliteTestDatabase.h"

extern char** environ;

namespace {

constexpr const char* kNumber = "2026-017";

std::string ReadAll(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

int WaitFor(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

ProgramResult RunProgram(const std::vector<std::string>& arguments, int killAfterMicroseconds) {
    const ScratchFolder streams;
    const std::string output = streams.Path() / "output";
    const std::string errors = streams.Path() / "errors";
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    constexpr int kNew = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), kNew, 0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, errors.c_str(), kNew, 0600);
    std::vector<char*> words;
    words.reserve(arguments.size() + 1);
    for (const std::string& argument : arguments) {
        words.push_back(const_cast<char*>(argument.c_str()));
    }
    words.push_back(nullptr);
    pid_t child = 0;
    const int spawned = posix_spawnp(&child, words[0], &actions, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    ProgramResult result;
    if (spawned != 0) {
        ADD_FAILURE() << arguments.front() << " does not start";
        return result;
    }
    if (killAfterMicroseconds >= 0) {
        usleep(static_cast<useconds_t>(killAfterMicroseconds));
        kill(child, SIGKILL);
    }
    result.status = WaitFor(child);
    result.output = ReadAll(output);
    result.errors = ReadAll(errors);
    return result;
}

std::string FileBytes(const std::filesystem::path& path) {
    EXPECT_TRUE(std::filesystem::is_regular_file(path)) << path;
    return ReadAll(path);
}

SampleSuite::SampleSuite(const std::filesystem::path& folder, int standardCode) : folder_(folder) {
    const std::string code = std::to_string(standardCode);
    const ProgramResult made = RunProgram({GRDX_PROGRAM, "new", folder, "--number", kNumber,
                                           "--name", "滨江新城一期", "--code", code});
    EXPECT_EQ(made.status, 0) << made.errors;
    for (const char* kind : {"samples", "layers"}) {
        const std::string file = std::string(GRDX_SAMPLES) + "/" + kind + ".csv";
        const ProgramResult imported =
            RunProgram({GRDX_PROGRAM, "import", kind, file, "-s", folder});
        EXPECT_EQ(imported.status, 0) << imported.errors;
    }
}

ProgramResult SampleSuite::Draw(const std::string& borehole, int killAfterMicroseconds) const {
    return RunProgram({GRDX_PROGRAM, "draw", "samples", "-s", folder_, "--borehole", borehole,
                       "--all", "--unit", "滨江岩土试验室", "--tester", "王工", "--checker", "李工",
                       "--date", "2026-05-20", "--outer-frame", "--right-axis"},
                      killAfterMicroseconds);
}

std::vector<std::filesystem::path> SampleSuite::Sheets() const {
    std::vector<std::filesystem::path> sheets;
    const std::filesystem::path folder = folder_ / "output" / kNumber / "室内曲线";
    if (std::filesystem::is_directory(folder)) {
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            if (entry.path().extension() == ".dwg") {
                sheets.push_back(entry.path());
            }
        }
    }
    std::sort(sheets.begin(), sheets.end());
    return sheets;
}

std::string SampleSuite::Ask(const std::string& statement) const {
    std::string lines;
    for (const std::string& row : SqliteTestDatabase(Database().c_str()).RowList(statement)) {
        lines += row + "\n";
    }
    return lines;
}
