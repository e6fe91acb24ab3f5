#include "host/phrase.h"

#include "platform/win32/code_page.h"

namespace host {

namespace {
Language language = Language::kEnglish;

consteval bool PlacesAgree() {
    for (const PhraseTexts& texts : kPhrases) {
        for (const char* const place : {"%1", "%2", "%3", "%4"}) {
            const auto isIn = [place](std::string_view text) {
                return text.find(place) != std::string_view::npos;
            };
            if (isIn(texts.english) != isIn(texts.chinese)) {
                return false;
            }
        }
    }
    return true;
}
static_assert(PlacesAgree(), "a value of one language would be lost in the other");
}  // namespace

void SetLanguage(Language spoken) {
    language = spoken;
}

std::string Phrase::Text(std::initializer_list<std::string> values) const {
    const std::string text = language == Language::kChinese ? win32::GbkFromUtf8(texts_->chinese)
                                                            : std::string(texts_->english);
    std::string said;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%') {  // no byte of a double-byte character
            said += values.begin()[text[++i] - '1'];
        } else {
            said += text[i];
        }
    }
    return said;
}

}  // namespace host
