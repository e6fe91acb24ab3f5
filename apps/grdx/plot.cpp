#include "apps/grdx/plot.h"

#include <unistd.h>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>

#include "apps/grdx/Failure.h"

namespace console {

namespace {
constexpr const char* kProgram = "grdx-plot";
}  // namespace

void HandOverToPlotting(char** arguments) {
    std::error_code ignored;
    const std::filesystem::path own = std::filesystem::read_symlink("/proc/self/exe", ignored);
    const std::string program = (own.parent_path() / kProgram).string();
    execv(program.c_str(), arguments);
    throw Failure(program + ": " + std::strerror(errno) +
                  "; the program that plots belongs beside this one");
}

}  // namespace console
