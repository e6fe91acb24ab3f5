#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "host/phrases.h"
#include "platform/win32/Language.h"

namespace host {

using win32::Language;
/// The language in which the programs speak; English until set. The console program leaves it so in
/// every locale, as scripts may read what it says.
void SetLanguage(Language language);

/// One text of kPhrases, named by its English. A text that is not there does not compile.
class Phrase {
public:
    // NOLINTNEXTLINE(google-explicit-constructor): a phrase is written as its literal.
    consteval Phrase(const char* english) : texts_(Find(english)) {}

    /// In the language set, as GBK, with `values` (GBK) in its places.
    std::string Text(std::initializer_list<std::string> values = {}) const;

private:
    static consteval const PhraseTexts* Find(std::string_view english) {
        for (const PhraseTexts& texts : kPhrases) {
            if (texts.english == english) {
                return &texts;
            }
        }
        throw "the text is not in host/phrases.h";
    }

    const PhraseTexts* texts_;
};

}  // namespace host
