#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "lab/tables/xlsx/Package.h"

namespace lab {

/// The elements of some names in an XML text, one after the other as the text is unpacked, so that
/// no more than one of them is held. What stands within one is not looked for. Throws Failure when
/// the text is no XML, or ends too early; a document type is refused.
class XmlElements {
public:
    /// Names without prefix. `file` is told in messages.
    XmlElements(std::string file, PackagePart part, std::initializer_list<std::string_view> names);

    /// The next element with its tags, which lives until the next call; false at the end.
    bool Next(std::string_view& element);
    double Progress() const;

private:
    struct Tag {
        std::size_t start = 0;
        std::size_t end = 0;
        std::string_view name;
        bool opens = false;
        bool closes = false;  ///< both of an empty element
    };
    bool NextTag(Tag& tag);
    void Forget();
    bool Find(std::string_view what, std::size_t from, std::size_t& found);
    bool Fill(std::size_t size);
    std::size_t EndOfTag(std::size_t start);
    [[noreturn]] void Fail(const char* reason) const;

    std::string file_;
    PackagePart part_;
    std::vector<std::string_view> names_;
    std::string text_;
    std::size_t position_ = 0;
    std::size_t depth_ = 0;
};

/// The name of a tag or attribute without its prefix.
std::string_view LocalName(std::string_view name);

}  // namespace lab
