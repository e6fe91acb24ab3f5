#include "host/picture/text_characters.h"

#include <algorithm>
#include <string>

#include "platform/win32/code_page.h"

namespace picture {

namespace {

constexpr int kByte = 256;

// Numbers that shape fonts give to the signs of the codes.
constexpr int kDegree = 127;
constexpr int kPlusMinus = 128;
constexpr int kDiameter = 129;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

class Reader {
public:
    Reader(std::string_view gbk, bool raw) : gbk_(gbk), raw_(raw) {}

    std::vector<TextCharacter> read() {
        while (position_ < gbk_.size()) {
            if (raw_ || !readCode()) {
                readPlain();
            }
        }
        return std::move(characters_);
    }

private:
    void add(char32_t unicode, int gbk, bool doubleByte) {
        characters_.push_back({unicode, gbk, doubleByte, underlined_, overlined_});
    }

    void readPlain() {
        const std::size_t bytes = win32::CharLength(gbk_, position_);
        const std::string_view character = gbk_.substr(position_, bytes);
        position_ += bytes;
        const auto lead = static_cast<unsigned char>(character[0]);
        if (bytes == 1 && lead < 0x80) {
            add(lead, lead, false);
            return;
        }
        const int code =
            bytes == 2 ? lead * kByte + static_cast<unsigned char>(character[1]) : lead;
        const std::u16string unicode = win32::Utf16FromGbk(character);
        add(unicode.empty() ? U'\uFFFD' : unicode[0], code, bytes == 2);
    }

    /// False when no code stands here.
    bool readCode() {
        const std::string_view rest = gbk_.substr(position_);
        if (rest.size() < 3 || rest.substr(0, 2) != "%%") {
            return false;
        }
        switch (rest[2]) {
            case 'd':
            case 'D':
                add(U'\u00B0', kDegree, false);
                break;
            case 'p':
            case 'P':
                add(U'\u00B1', kPlusMinus, false);
                break;
            case 'c':
            case 'C':
                add(U'\u2205', kDiameter, false);
                break;
            case 'u':
            case 'U':
                underlined_ = !underlined_;
                break;
            case 'o':
            case 'O':
                overlined_ = !overlined_;
                break;
            case '%':
                add(U'%', '%', false);
                break;
            default:
                return readNumber(rest);
        }
        position_ += 3;
        return true;
    }

    bool readNumber(std::string_view rest) {
        constexpr std::size_t kLength = 5;
        if (rest.size() < kLength ||
            !std::all_of(rest.begin() + 2, rest.begin() + kLength, IsDigit)) {
            return false;
        }
        const int number = (rest[2] - '0') * 100 + (rest[3] - '0') * 10 + (rest[4] - '0');
        if (number > 0 && number < kByte) {
            add(static_cast<char32_t>(number), number, false);
        }
        position_ += kLength;
        return true;
    }

    std::string_view gbk_;
    bool raw_;
    std::size_t position_ = 0;
    bool underlined_ = false;
    bool overlined_ = false;
    std::vector<TextCharacter> characters_;
};

}  // namespace

std::vector<TextCharacter> CharactersOf(std::string_view gbk, bool raw) {
    return Reader(gbk, raw).read();
}

}  // namespace picture
