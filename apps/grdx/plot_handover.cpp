#include "apps/grdx/plot_handover.h"

#include <unistd.h>
#include <cerrno>
#include <cstring>
#include <string>

#include "apps/grdx/Failure.h"
#include "host/Host.h"

namespace console {

namespace {
constexpr const char* kProgram = "grdx-plot";
}  // namespace

void HandOverToPlotting(char** arguments) {
    const std::filesystem::path folder = host::Host::ProgramFolder();
    if (folder.empty()) {
        throw Failure(std::string(kProgram) +
                      " cannot be found: the system does not tell this program's own folder");
    }
    const std::string program = (folder / kProgram).string();
    execv(program.c_str(), arguments);
    throw Failure(program + ": " + std::strerror(errno) +
                  "; the program that plots belongs beside this one");
}

}  // namespace console
