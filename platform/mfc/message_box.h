#pragma once

#include "platform/win32/win_types.h"

inline constexpr UINT MB_OK = 0x0;
inline constexpr UINT MB_OKCANCEL = 0x1;
inline constexpr UINT MB_YESNOCANCEL = 0x3;
inline constexpr UINT MB_YESNO = 0x4;
inline constexpr UINT MB_ICONHAND = 0x10;
inline constexpr UINT MB_ICONSTOP = MB_ICONHAND;
inline constexpr UINT MB_ICONQUESTION = 0x20;
inline constexpr UINT MB_ICONEXCLAMATION = 0x30;
inline constexpr UINT MB_ICONWARNING = MB_ICONEXCLAMATION;
inline constexpr UINT MB_ICONINFORMATION = 0x40;
inline constexpr UINT MB_DEFBUTTON1 = 0x0;
inline constexpr UINT MB_DEFBUTTON2 = 0x100;
inline constexpr UINT MB_DEFBUTTON3 = 0x200;

inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;

/// Shows a box with the program's name as caption and waits for the answer: IDOK, IDCANCEL, IDYES
/// or IDNO. `text` is GBK. `helpId` is not used.
int AfxMessageBox(const char* text, UINT type = MB_OK, UINT helpId = 0);
/// The same with a caption (GBK; null or empty: the program's name) and an owner (may be null).
int MessageBox(HWND owner, const char* text, const char* caption, UINT type);
