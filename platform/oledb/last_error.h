#pragma once

#include <string>

namespace oledb {
/// Why the last call that failed did: provider, table or file, and the database's own words, as
/// UTF-8. Empty when Initialize or Execute has succeeded since.
const std::string& LastErrorText();

/// Gets every call that a provider makes to its database library, one line a call:
/// "sqlite3_step(…) = 101". A null function, the default, switches it off.
using TraceFunction = void (*)(const char* line);
void SetTrace(TraceFunction trace);
}  // namespace oledb
