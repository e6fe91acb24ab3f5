#pragma once

#include <string>

#include "host/phrase.h"

namespace host {

// Print on the command line why something is refused. Always false, so that a refusal is one
// statement.

bool Complain(Phrase phrase, std::initializer_list<std::string> values = {});

/// A reason that others have put into words (GBK).
bool ComplainAsTold(const std::string& reason);

}  // namespace host
