#include "src/ui/settings.h"

#include <array>
#include <cstdlib>
#include <string_view>

#include "platform/win32/private_profile.h"
#include "src/common/module_state.h"
#include "src/facts/curve_form.h"
#include "src/facts/mark_keys.h"

namespace {

std::string ReadSetting(const char* key, const char* absent) {
    std::array<char, 50> buffer{};
    GetPrivateProfileString(kSettingsSection, key, absent, buffer.data(), buffer.size(),
                            SettingsProfilePath.c_str());
    return buffer.data();
}

}  // namespace

bool ReadSettingFlag(const char* key) {
    return std::atoi(ReadSetting(key, "0").c_str()) != 0;
}

std::string ReadSettingText(const char* key) {
    return ReadSetting(key, "");
}

bool ReadGuardedCurves() {
    if (const char* const form = std::getenv(kCurveFormVariable)) {
        return std::string_view(form) == kGuardedForm;
    }
    return GetPrivateProfileInt(kCurveSection, kGuardKey, 0, SettingsProfilePath.c_str()) == 1;
}

void WriteSettingFlag(const char* key, bool on) {
    WriteSettingText(key, on ? "1" : "0");
}

void WriteSettingText(const char* key, const std::string& text) {
    WritePrivateProfileString(kSettingsSection, key, text.c_str(), SettingsProfilePath.c_str());
}

std::string ReadProfileText(const char* section, const std::string& key, const std::string& path) {
    std::string buffer(512, '\0');
    for (;;) {
        const DWORD bytes =
            GetPrivateProfileString(section, key.c_str(), "", buffer.data(),
                                    static_cast<DWORD>(buffer.size()), path.c_str());
        // A cut value fills the buffer, up to the byte of a double-byte character left out.
        if (bytes + 2 < buffer.size()) {
            buffer.resize(bytes);
            return buffer;
        }
        buffer.resize(buffer.size() * 2);
    }
}
