#include "platform/win32/window_message.h"

#include <gtest/gtest.h>

#include <string>

TEST(WindowMessage, CopyDataReachesTheWindow) {
    std::string received;
    HWND sender = nullptr;
    const HWND window = win32::CreateWindow([&](UINT message, WPARAM wParam, LPARAM lParam) {
        // NOLINTBEGIN(performance-no-int-to-ptr): messages carry pointers as numbers
        const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        if (message != WM_COPYDATA || data->dwData != 1) {
            return LRESULT{0};
        }
        sender = reinterpret_cast<HWND>(wParam);
        // NOLINTEND(performance-no-int-to-ptr)
        received.assign(static_cast<const char*>(data->lpData), data->cbData);
        return LRESULT{1};
    });
    char text[] = "\x03GoDBManage\n";
    COPYDATASTRUCT data{1, sizeof text, text};
    EXPECT_EQ(SendMessage(window, WM_COPYDATA, reinterpret_cast<WPARAM>(window),
                          reinterpret_cast<LPARAM>(&data)),
              1);
    EXPECT_EQ(received, std::string(text, sizeof text));
    EXPECT_EQ(sender, window);
    win32::DestroyWindow(window);
}

TEST(WindowMessage, AWindowThatIsGoneAnswersNothing) {
    HWND window = nullptr;
    std::string owned = "state of the procedure";
    window = win32::CreateWindow([&window, owned](UINT, WPARAM, LPARAM) {
        win32::DestroyWindow(window);
        return static_cast<LRESULT>(owned.size());
    });
    win32::SetMainWindow(window);
    EXPECT_EQ(SendMessage(window, WM_COMMAND, 0, 0), 22) << "also while it destroys itself";
    EXPECT_EQ(SendMessage(window, WM_COMMAND, 0, 0), 0);
    EXPECT_EQ(SendMessage(nullptr, WM_COMMAND, 0, 0), 0);
    EXPECT_EQ(win32::MainWindow(), nullptr);
}
