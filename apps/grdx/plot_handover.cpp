#include "apps/grdx/plot_handover.h"

#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>
#include <cerrno>
#include <cstring>
#include <string>

#include "apps/grdx/Failure.h"
#include "host/Host.h"
#include "platform/win32/open_file.h"

namespace console {

namespace {
constexpr const char* kProgram = "grdx-plot";

std::string PlottingProgram() {
    const std::filesystem::path folder = host::Host::ProgramFolder();
    if (folder.empty()) {
        throw Failure(std::string(kProgram) +
                      " cannot be found: the system does not tell this program's own folder");
    }
    return (folder / kProgram).string();
}

[[noreturn]] void FailToStart(const std::string& program, int code) {
    throw Failure(program + ": " + std::strerror(code) +
                  "; the program that plots belongs beside this one");
}

/// A file without a name that holds the texts, a line each, to be read from its start.
win32::OpenFile LinesFile(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\n";
    }
    win32::OpenFile file(memfd_create("drawings", MFD_CLOEXEC));
    const auto size = static_cast<ssize_t>(text.size());
    if (file.Get() < 0 || pwrite(file.Get(), text.data(), text.size(), 0) != size) {
        throw Failure(std::string("the list of drawings to plot: ") + std::strerror(errno));
    }
    return file;
}
}  // namespace

void HandOverToPlotting(char** arguments) {
    const std::string program = PlottingProgram();
    execv(program.c_str(), arguments);
    FailToStart(program, errno);
}

bool PlotToPdf(const std::vector<std::string>& drawings, const std::string& pdf,
               const std::string& suiteFolder) {
    const std::string program = PlottingProgram();
    // More names than a command line has room for.
    const win32::OpenFile list = LinesFile(drawings);
    std::string words[] = {"plot", "-", "--to", "pdf", "-o", pdf, "-s", suiteFolder};
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, list.Get(), STDIN_FILENO);
    pid_t child = 0;
    const int fault =
        posix_spawn(&child, program.c_str(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (fault != 0) {
        FailToStart(program, fault);
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace console
