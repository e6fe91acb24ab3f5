#include "src/db/registered_folder.h"

#include "platform/suite/orvik8.h"

bool QueryRegisteredFolder(std::string& folder) {
    char buffer[260] = "";
    if (GetRegisteredFolder(buffer) != 1) return false;
    folder = buffer;
    return true;
}
