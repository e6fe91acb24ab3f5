#include "src/ui/profile_text.h"

#include "platform/win32/private_profile.h"

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
