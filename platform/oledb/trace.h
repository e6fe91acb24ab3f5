#pragma once

namespace oledb {

/// Gets every call that a provider makes to its database library, one line a call:
/// `sqlite3_step(...) = 101`. Null, the default, switches it off.
using TraceFunction = void (*)(const char* line);
void SetTrace(TraceFunction trace);
TraceFunction Trace();

}  // namespace oledb
