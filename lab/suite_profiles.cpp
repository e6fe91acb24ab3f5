#include "lab/suite_profiles.h"

#include "lab/Failure.h"
#include "platform/suite/orvik8.h"

namespace lab {

namespace {
constexpr std::size_t kProfilePathSize = 256;

template <class Function>
std::string PathOf(Function function) {
    char path[kProfilePathSize] = "";
    function(path);
    if (*path == '\0') {
        throw Failure("no suite folder is open");
    }
    return path;
}
}  // namespace

std::string ProjectProfilePath() {
    return PathOf(GetProjectProfilePath);
}

std::string MarkProfilePath() {
    return PathOf(GetMarkProfilePath);
}

std::string SettingsProfilePath() {
    return PathOf(GetSettingsProfilePath);
}

}  // namespace lab
