#include "host/complaint.h"

#include "platform/ed/command_line.h"

namespace host {

bool Complain(Phrase phrase, std::initializer_list<std::string> values) {
    return ComplainAsTold(phrase.Text(values));
}

bool ComplainAsTold(const std::string& reason) {
    acutPrintf("\n%s", reason.c_str());
    return false;
}

}  // namespace host
