#pragma once

#include <string_view>
#include <vector>

namespace picture {

/// A character of a text to be drawn.
struct TextCharacter {
    char32_t unicode = 0;
    int gbk = 0;  ///< lead byte × 256 + trail byte, or the single byte
    bool doubleByte = false;
    bool underlined = false;
    bool overlined = false;
};

/// The characters of a GBK text. Unless `raw`, codes after "%%" are followed, whatever their case:
/// d degree, p plus-minus, c diameter, three digits a character by number, u and o begin and end a
/// line below and above, % itself; with any other character the code stands as it is.
std::vector<TextCharacter> CharactersOf(std::string_view gbk, bool raw);

}  // namespace picture
