#pragma once

#include <functional>
#include <string>

#include "platform/win32/win_types.h"

namespace oledb {

/// Why the last call that failed did: table or file, column, and the database's own words, as
/// UTF-8. Empty when a data source was initialised or a command executed since.
const std::string& LastErrorText();

/// Hears of every failure as it happens, with the same text: a write that fails is not always
/// reported by whoever made it. Null: nobody listens. Returns the listener before.
using ErrorListener = std::function<void(const std::string& text)>;
ErrorListener SetErrorListener(ErrorListener listener);

/// For providers. `SetLastError` returns `result`, so that a failure is one statement.
HRESULT SetLastError(HRESULT result, std::string text);
void ClearLastError();

}  // namespace oledb
