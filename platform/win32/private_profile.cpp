#include "platform/win32/private_profile.h"

#include <charconv>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>

#include "platform/win32/ProfileText.h"
#include "platform/win32/code_page.h"
#include "platform/win32/file_fault.h"
#include "platform/win32/file_lock.h"
#include "platform/win32/file_replace.h"
#include "platform/win32/windows_path.h"

namespace {

/// The value of a key; false when file, section or key is missing.
bool ReadValue(LPCSTR section, LPCSTR key, LPCSTR fileName, std::string& value) {
    if (section == nullptr || key == nullptr || fileName == nullptr) {
        return false;
    }
    std::string content;
    std::string error;
    bool missing = false;
    if (!win32::ReadFileWhole(win32::FileSystemPath(fileName), content, error, &missing)) {
        if (!missing) {
            win32::NoteFileFault(error);
        }
        return false;
    }
    return win32::ProfileText(content).Find(section, key, value);
}

/// The base that a prefix names, which is taken off.
unsigned TakeBase(std::string_view& digits) {
    if (digits.size() < 2 || digits[0] != '0') {
        return 10;
    }
    const unsigned base = digits[1] == 'x' ? 16 : digits[1] == 'o' ? 8 : digits[1] == 'b' ? 2 : 10;
    if (base != 10) {
        digits.remove_prefix(2);
    }
    return base;
}

UINT ParseInteger(std::string_view text) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    const unsigned base = TakeBase(text);
    UINT number = 0;
    for (const char c : text) {
        const char small = static_cast<char>(c >= 'A' && c <= 'F' ? c - 'A' + 'a' : c);
        const unsigned digit = small >= '0' && small <= '9' ? static_cast<unsigned>(small - '0')
                               : small >= 'a' && small <= 'f'
                                   ? static_cast<unsigned>(small - 'a') + 10
                                   : base;
        if (digit >= base) {
            break;
        }
        number = number * base + digit;
    }
    return negative ? 0U - number : number;
}

/// Without the blanks at its end; empty for null.
std::string_view DefaultText(LPCSTR text) {
    std::string_view kept = text == nullptr ? "" : text;
    while (kept.ends_with(' ')) {
        kept.remove_suffix(1);
    }
    return kept;
}

/// Changes a profile's text, and tells whether there was anything to change.
using Change = std::function<bool(win32::ProfileText& profile)>;

/// The profile's text once it is changed; a missing file is an empty one. False, with the reason in
/// `error`, when it cannot be read.
bool ReadChanged(const std::string& path, const Change& change, std::string& text, bool& changed,
                 std::string& error) {
    std::string content;
    bool missing = false;
    if (!win32::ReadFileWhole(path, content, error, &missing) && !missing) {
        return false;
    }
    win32::ProfileText profile(content);
    changed = change(profile);
    text = profile.Text();
    return true;
}

/// Reads, changes and replaces the profile while no other process does. Nothing is locked, nor
/// written, where there is nothing to change.
bool ChangeProfile(const std::string& path, const Change& change, std::string& error) {
    std::string text;
    bool changed = false;
    if (!ReadChanged(path, change, text, changed, error)) {
        return false;
    }
    if (!changed) {
        return true;
    }
    const win32::FileLock lock(path);
    if (!lock.Fault().empty()) {
        error = lock.Fault();
        return false;
    }
    return ReadChanged(path, change, text, changed, error) &&
           (!changed || win32::ReplaceFileWhole(path, text, error));
}

}  // namespace

UINT GetPrivateProfileInt(LPCSTR section, LPCSTR key, INT defaultValue, LPCSTR fileName) {
    std::string value;
    if (!ReadValue(section, key, fileName, value) || value.empty()) {
        return static_cast<UINT>(defaultValue);
    }
    return ParseInteger(value);
}

DWORD GetPrivateProfileString(LPCSTR section, LPCSTR key, LPCSTR defaultValue, LPSTR buffer,
                              DWORD size, LPCSTR fileName) {
    if (size == 0 || buffer == nullptr) {
        return 0;
    }
    std::string value;
    if (!ReadValue(section, key, fileName, value)) {
        value = DefaultText(defaultValue);
    }
    const std::string_view fitting = win32::WholePrefix(value, size - 1);
    std::memcpy(buffer, fitting.data(), fitting.size());
    buffer[fitting.size()] = '\0';
    return static_cast<DWORD>(fitting.size());
}

std::string win32::TextInProfile(const std::string& fileName, const char* section,
                                 const std::string& key) {
    std::string value;
    ReadValue(section, key.c_str(), fileName.c_str(), value);
    return value;
}

BOOL WritePrivateProfileString(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR fileName) {
    if (section == nullptr || fileName == nullptr ||
        !win32::ProfileText::CanHold(section, key, value)) {
        return FALSE;
    }
    const auto change = [&](win32::ProfileText& profile) {
        return key == nullptr     ? profile.RemoveSection(section)
               : value == nullptr ? profile.Remove(section, key)
                                  : profile.Set(section, key, value);
    };
    std::string error;
    if (!ChangeProfile(win32::FileSystemPath(fileName), change, error)) {
        win32::NoteFileFault(error);
        return FALSE;
    }
    return TRUE;
}
