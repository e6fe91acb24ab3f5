#include "platform/win32/window_message.h"

#include <map>
#include <memory>
#include <utility>

struct HWND__ {
    win32::WindowProcedure procedure;
};

namespace {

std::map<HWND, std::shared_ptr<HWND__>>& Windows() {
    static std::map<HWND, std::shared_ptr<HWND__>> windows;
    return windows;
}

HWND mainWindow = nullptr;

}  // namespace

LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto found = Windows().find(window);
    if (found == Windows().end()) {
        return 0;
    }
    // The procedure may destroy its window.
    const std::shared_ptr<HWND__> kept = found->second;
    return kept->procedure(message, wParam, lParam);
}

namespace win32 {

HWND CreateWindow(WindowProcedure procedure) {
    auto window = std::make_shared<HWND__>(HWND__{std::move(procedure)});
    HWND handle = window.get();
    Windows().emplace(handle, std::move(window));
    return handle;
}

void DestroyWindow(HWND window) {
    Windows().erase(window);
    if (mainWindow == window) {
        mainWindow = nullptr;
    }
}

void SetMainWindow(HWND window) {
    mainWindow = window;
}
HWND MainWindow() {
    return mainWindow;
}

}  // namespace win32
