#pragma once

#include "platform/win32/win_types.h"

inline constexpr UINT CP_ACP = 0;
inline constexpr UINT CP_UTF8 = 65001;

/// Bytes before the terminating zero; 0 for null.
int lstrlenA(LPCSTR text);

/// Converts `bytes` bytes of GBK, or of UTF-8 (-1: up to and including the terminating zero) to
/// UTF-16. Returns the units written; with `size` 0 the units needed; 0 when `size` is too small or
/// the code page is neither CP_ACP nor CP_UTF8. `flags` must be 0.
int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int bytes, LPWSTR wide, int size);
/// The other way, to CP_ACP only. A character outside GBK becomes `*defaultChar` ('?' when null),
/// and
/// `*usedDefault` is then TRUE; both may be null.
int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR wide, int units, LPSTR text, int size,
                        LPCSTR defaultChar, BOOL* usedDefault);

/// Makes the letters among so many bytes of GBK small, double-byte ones too. Returns the bytes.
DWORD CharLowerBuffA(LPSTR text, DWORD length);

/// Compares two GBK texts by whole characters: below, at or above 0. Case matters.
int _mbscmp(const unsigned char* left, const unsigned char* right);
