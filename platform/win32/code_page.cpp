#include "platform/win32/code_page.h"

#include <iconv.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <vector>

namespace win32 {
namespace {

constexpr char16_t kReplacement = 0xFFFD;
constexpr char32_t kMalformed = 0xFFFFFFFF;

/// Both directions of the code page. All its characters lie in the first 65536 of Unicode.
/// The way back is the inverse of the way there, so that a text that converts exactly comes back
/// exactly.
class GbkTable {
public:
    static const GbkTable& Get() {
        static const GbkTable table;
        return table;
    }
    /// 0 when the pair is no character.
    char16_t ToUnicode(unsigned char lead, unsigned char trail) const {
        return toUnicode_[lead * 256U + trail];
    }
    /// 0 when the character is not in the code page.
    std::uint16_t FromUnicode(char32_t c) const { return c < 0x10000 ? fromUnicode_[c] : 0; }

private:
    GbkTable() : toUnicode_(0x10000), fromUnicode_(0x10000) {
        const iconv_t converter = iconv_open("UTF-16LE", "GBK");
        if (reinterpret_cast<std::intptr_t>(converter) == -1) {
            throw std::runtime_error("the C library's GBK conversion is not installed");
        }
        for (unsigned lead = 0x81; lead <= 0xFE; ++lead) {
            for (unsigned trail = 0x40; trail <= 0xFE; ++trail) {
                Enter(converter, lead, trail);
            }
        }
        iconv_close(converter);
    }

    void Enter(iconv_t converter, unsigned lead, unsigned trail) {
        char pair[2] = {static_cast<char>(lead), static_cast<char>(trail)};
        unsigned char unit[4];
        char* in = pair;
        char* out = reinterpret_cast<char*>(unit);
        std::size_t inLeft = sizeof pair;
        std::size_t outLeft = sizeof unit;
        iconv(converter, nullptr, nullptr, nullptr, nullptr);
        const std::size_t status = iconv(converter, &in, &inLeft, &out, &outLeft);
        if (status == static_cast<std::size_t>(-1) || outLeft != 2) {
            return;
        }
        const auto c = static_cast<char16_t>(unit[0] | unit[1] << 8U);
        toUnicode_[lead << 8U | trail] = c;
        fromUnicode_[c] = static_cast<std::uint16_t>(lead << 8U | trail);
    }

    std::vector<char16_t> toUnicode_;
    std::vector<std::uint16_t> fromUnicode_;
};

/// Takes one character from `utf8` at `pos` and moves on; kMalformed for a broken sequence, of
/// which as many bytes are taken as could have begun a character.
char32_t TakeUtf8(std::string_view utf8, std::size_t& pos) {
    const auto first = static_cast<unsigned char>(utf8[pos++]);
    if (first < 0x80) {
        return first;
    }
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    if (first < 0xC2 || first > 0xF4) {
        return kMalformed;
    }
    char32_t c = first & (0x3FU >> static_cast<unsigned>(more));
    for (int i = 0; i < more; ++i) {
        const auto next = pos < utf8.size() ? static_cast<unsigned char>(utf8[pos]) : 0U;
        const unsigned low = i > 0 ? 0x80U : first == 0xE0 ? 0xA0U : first == 0xF0 ? 0x90U : 0x80U;
        const unsigned high = i > 0 ? 0xBFU : first == 0xED ? 0x9FU : first == 0xF4 ? 0x8FU : 0xBFU;
        if (next < low || next > high) {
            return kMalformed;
        }
        c = c << 6U | (next & 0x3FU);
        ++pos;
    }
    return c;
}

/// Takes one character from `utf16`; kMalformed for half a surrogate pair.
char32_t TakeUtf16(std::u16string_view utf16, std::size_t& pos) {
    const char32_t unit = utf16[pos++];
    if (unit < 0xD800 || unit > 0xDFFF) {
        return unit;
    }
    if (unit > 0xDBFF || pos == utf16.size() || utf16[pos] < 0xDC00 || utf16[pos] > 0xDFFF) {
        return kMalformed;
    }
    return 0x10000U + ((unit - 0xD800U) << 10U) + (utf16[pos++] - 0xDC00U);
}

/// Takes one character from `gbk`; U+FFFD when its one or two bytes are none.
char16_t TakeGbk(std::string_view gbk, std::size_t& pos) {
    const auto first = static_cast<unsigned char>(gbk[pos]);
    const std::size_t length = CharLength(gbk, pos);
    char16_t c = kReplacement;
    if (first < 0x80) {
        c = first;
    } else if (length == 2) {
        const char16_t known =
            GbkTable::Get().ToUnicode(first, static_cast<unsigned char>(gbk[pos + 1]));
        c = known == 0 ? kReplacement : known;
    }
    pos += length;
    return c;
}

void AppendUtf8(std::string& utf8, char32_t c) {
    const auto byte = [&utf8](char32_t bits) { utf8 += static_cast<char>(bits); };
    if (c < 0x80) {
        byte(c);
    } else if (c < 0x800) {
        byte(0xC0U | c >> 6U);
        byte(0x80U | (c & 0x3FU));
    } else if (c < 0x10000) {
        byte(0xE0U | c >> 12U);
        byte(0x80U | (c >> 6U & 0x3FU));
        byte(0x80U | (c & 0x3FU));
    } else {
        byte(0xF0U | c >> 18U);
        byte(0x80U | (c >> 12U & 0x3FU));
        byte(0x80U | (c >> 6U & 0x3FU));
        byte(0x80U | (c & 0x3FU));
    }
}

void AppendUtf16(std::u16string& utf16, char32_t c) {
    if (c < 0x10000) {
        utf16 += static_cast<char16_t>(c);
    } else {
        utf16 += static_cast<char16_t>(0xD800U + ((c - 0x10000U) >> 10U));
        utf16 += static_cast<char16_t>(0xDC00U + ((c - 0x10000U) & 0x3FFU));
    }
}

/// False when `c` has no GBK form; nothing is appended then.
bool AppendGbk(std::string& gbk, char32_t c) {
    if (c < 0x80) {
        gbk += static_cast<char>(c);
        return true;
    }
    const std::uint16_t pair = GbkTable::Get().FromUnicode(c);
    if (pair == 0) {
        return false;
    }
    gbk += static_cast<char>(pair >> 8U);
    gbk += static_cast<char>(pair & 0xFFU);
    return true;
}

}  // namespace

bool IsUtf8(std::string_view bytes) {
    for (std::size_t pos = 0; pos < bytes.size();) {
        if (TakeUtf8(bytes, pos) == kMalformed) {
            return false;
        }
    }
    return true;
}

std::string GbkFromUtf8(std::string_view utf8) {
    std::string gbk;
    gbk.reserve(utf8.size());
    for (std::size_t pos = 0; pos < utf8.size();) {
        if (!AppendGbk(gbk, TakeUtf8(utf8, pos))) {
            gbk += '?';
        }
    }
    return gbk;
}

bool TryGbkFromUtf8(std::string_view utf8, std::string& gbk) {
    std::string converted;
    converted.reserve(utf8.size());
    for (std::size_t pos = 0; pos < utf8.size();) {
        if (!AppendGbk(converted, TakeUtf8(utf8, pos))) {
            return false;
        }
    }
    gbk = std::move(converted);
    return true;
}

std::string Utf8FromGbk(std::string_view gbk) {
    std::string utf8;
    utf8.reserve(gbk.size() + gbk.size() / 2);
    for (std::size_t pos = 0; pos < gbk.size();) {
        AppendUtf8(utf8, TakeGbk(gbk, pos));
    }
    return utf8;
}

std::u16string Utf16FromGbk(std::string_view gbk) {
    std::u16string utf16;
    utf16.reserve(gbk.size());
    for (std::size_t pos = 0; pos < gbk.size();) {
        utf16 += TakeGbk(gbk, pos);
    }
    return utf16;
}

std::string GbkFromUtf16(std::u16string_view utf16) {
    std::string gbk;
    gbk.reserve(utf16.size() * 2);
    for (std::size_t pos = 0; pos < utf16.size();) {
        if (!AppendGbk(gbk, TakeUtf16(utf16, pos))) {
            gbk += '?';
        }
    }
    return gbk;
}

std::u16string Utf16FromUtf8(std::string_view utf8) {
    std::u16string utf16;
    utf16.reserve(utf8.size());
    for (std::size_t pos = 0; pos < utf8.size();) {
        const char32_t c = TakeUtf8(utf8, pos);
        AppendUtf16(utf16, c == kMalformed ? kReplacement : c);
    }
    return utf16;
}

std::string Utf8FromUtf16(std::u16string_view utf16) {
    std::string utf8;
    utf8.reserve(utf16.size() * 2);
    for (std::size_t pos = 0; pos < utf16.size();) {
        const char32_t c = TakeUtf16(utf16, pos);
        AppendUtf8(utf8, c == kMalformed ? kReplacement : c);
    }
    return utf8;
}

std::size_t FindChar(std::string_view gbk, char c, std::size_t from) {
    for (std::size_t pos = from; pos < gbk.size(); pos += CharLength(gbk, pos)) {
        if (gbk[pos] == c && !IsDbcsLeadByte(static_cast<unsigned char>(c))) {
            return pos;
        }
    }
    return std::string_view::npos;
}

std::size_t FindLastChar(std::string_view gbk, char c) {
    std::size_t last = std::string_view::npos;
    for (std::size_t pos = FindChar(gbk, c); pos != std::string_view::npos;
         pos = FindChar(gbk, c, pos + 1)) {
        last = pos;
    }
    return last;
}

int CharacterCount(std::string_view gbk) {
    int count = 0;
    for (std::size_t pos = 0; pos < gbk.size(); pos += CharLength(gbk, pos)) {
        ++count;
    }
    return count;
}

std::string_view WholePrefix(std::string_view gbk, std::size_t maxBytes) {
    if (gbk.size() <= maxBytes) {
        return gbk;
    }
    std::size_t end = 0;
    while (end + CharLength(gbk, end) <= maxBytes) {
        end += CharLength(gbk, end);
    }
    return gbk.substr(0, end);
}

std::string_view TrimBlanks(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace win32
