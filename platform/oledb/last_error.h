#pragma once

#include <string>

#include "platform/win32/win_types.h"

namespace oledb {

/// Why the last call that failed did: table or file, column, and the database's own words, as
/// UTF-8. Empty when a data source was initialised or a command executed since.
const std::string& LastErrorText();

/// For providers. `SetLastError` returns `result`, so that a failure is one statement.
HRESULT SetLastError(HRESULT result, std::string text);
void ClearLastError();

}  // namespace oledb
