#include "platform/win32/gbk_case.h"

#include "platform/win32/code_page.h"

namespace win32 {
namespace {

/// Large letters of one alphabet in the code page, and how far their small ones are.
struct Alphabet {
    unsigned first;
    unsigned last;
    int toSmall;
};

constexpr Alphabet kAlphabets[] = {
    {0xA3C1, 0xA3DA, 0x20},   // full-width Latin
    {0xA6A1, 0xA6B8, 0x20},   // Greek
    {0xA7A1, 0xA7C1, 0x30},   // Cyrillic
    {0xA2F1, 0xA2FA, -0x50},  // Roman numerals, small ones from one to ten only
};

unsigned char Byte(char c) {
    return static_cast<unsigned char>(c);
}

}  // namespace

std::string FoldCase(std::string_view gbk) {
    std::string folded(gbk);
    for (std::size_t pos = 0; pos < folded.size();) {
        const std::size_t length = CharLength(folded, pos);
        if (length == 1) {
            if (folded[pos] >= 'A' && folded[pos] <= 'Z') {
                folded[pos] = static_cast<char>(folded[pos] + ('a' - 'A'));
            }
        } else {
            const unsigned pair = Byte(folded[pos]) << 8U | Byte(folded[pos + 1]);
            for (const Alphabet& letters : kAlphabets) {
                if (pair >= letters.first && pair <= letters.last) {
                    folded[pos + 1] = static_cast<char>(folded[pos + 1] + letters.toSmall);
                }
            }
        }
        pos += length;
    }
    return folded;
}

bool EqualNoCase(std::string_view left, std::string_view right) {
    return left.size() == right.size() && FoldCase(left) == FoldCase(right);
}

int CompareNoCase(std::string_view left, std::string_view right) {
    return FoldCase(left).compare(FoldCase(right));
}

}  // namespace win32
