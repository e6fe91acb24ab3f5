#pragma once

#include <functional>

#include "platform/win32/win_types.h"

inline constexpr UINT WM_COPYDATA = 0x004A;
inline constexpr UINT WM_SETICON = 0x0080;
inline constexpr UINT WM_COMMAND = 0x0111;
inline constexpr WPARAM ICON_SMALL = 0;
inline constexpr WPARAM ICON_BIG = 1;

/// What WM_COPYDATA carries; its LPARAM points to it, its WPARAM is the sending window.
struct COPYDATASTRUCT {
    ULONG_PTR dwData;
    DWORD cbData;  ///< bytes at lpData
    LPVOID lpData;
};

/// Runs the window's procedure and returns its result; 0 for a handle that is no window.
LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

namespace win32 {
using WindowProcedure = std::function<LRESULT(UINT message, WPARAM wParam, LPARAM lParam)>;

/// A new window handle, valid until DestroyWindow. It is nothing but the address of messages.
HWND CreateWindow(WindowProcedure procedure);
void DestroyWindow(HWND window);

/// The program's main window, set by the host; null before that.
void SetMainWindow(HWND window);
HWND MainWindow();
}  // namespace win32
