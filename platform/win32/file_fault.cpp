#include "platform/win32/file_fault.h"

#include <utility>

namespace win32 {

namespace {
FileFaultListener& Listener() {
    static FileFaultListener listener;
    return listener;
}
}  // namespace

void SetFileFaultListener(FileFaultListener listener) {
    Listener() = std::move(listener);
}

void NoteFileFault(const std::string& text) {
    if (Listener()) {
        Listener()(text);
    }
}

}  // namespace win32
