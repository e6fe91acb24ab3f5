#pragma once

#include <string>

#include "platform/win32/win_types.h"

/// Private profiles: INI files in GBK, named by Windows paths. A relative path counts from the
/// current folder. Sections and keys are compared without regard to case, double-byte letters
/// included. Of several sections of one name the first is used, likewise of keys. A line that
/// starts with ';' is a comment; a line without '=' holds no key.

/// The integer at the start of the value: sign, then decimal digits, or hexadecimal, octal or
/// binary ones after 0x, 0o, 0b; 0 when there is none, modulo 2^32 when there are too many.
/// A missing file, section or key and an empty value give `defaultValue`.
UINT GetPrivateProfileInt(LPCSTR section, LPCSTR key, INT defaultValue, LPCSTR fileName);

/// Copies the value, without blanks around it and without one pair of quotes (" or ') around that,
/// cut to size - 1 bytes at a whole character. Missing: `defaultValue` (null counts as empty)
/// without the blanks at its end. Returns the number of bytes without the terminating zero.
/// Nothing is done for a size of 0. A null section or key, by which all names could be listed,
/// counts as missing.
DWORD GetPrivateProfileString(LPCSTR section, LPCSTR key, LPCSTR defaultValue, LPSTR buffer,
                              DWORD size, LPCSTR fileName);

namespace win32 {
/// The same value, of any length; empty when it is missing.
std::string TextInProfile(const std::string& fileName, const char* section, const std::string& key);
}  // namespace win32

/// Sets the key's value; a null value deletes the key, a null key the whole section. A file or
/// section that is missing is made. All other lines stay byte for byte, as other processes have
/// left them, which wait with their changes meanwhile; the file is replaced whole. FALSE when the
/// file cannot be read or written, or another process keeps it locked, which are file faults, or
/// when a text has a line break in it.
BOOL WritePrivateProfileString(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR fileName);
