#pragma once

#include <functional>
#include <string>

namespace win32 {

/// Hears which files and folders could not be written, of the calls that themselves only say that
/// they failed and whose callers seldom ask: path and reason, UTF-8.
using FileFaultListener = std::function<void(const std::string& text)>;
/// Null: nobody listens.
void SetFileFaultListener(FileFaultListener listener);
/// For such calls.
void NoteFileFault(const std::string& text);

}  // namespace win32
