#pragma once

#include <string>

namespace host {

/// Prints why something is refused (GBK) on the command line. Always false, so that a refusal is
/// one statement.
bool Complain(const std::string& reason);

}  // namespace host
