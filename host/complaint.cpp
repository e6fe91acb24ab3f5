#include "host/complaint.h"

#include "platform/ed/command_line.h"

namespace host {

bool Complain(const std::string& reason) {
    acutPrintf("\n%s", reason.c_str());
    return false;
}

}  // namespace host
