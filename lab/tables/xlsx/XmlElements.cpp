#include "lab/tables/xlsx/XmlElements.h"

#include <algorithm>
#include <utility>

#include "lab/Failure.h"

namespace lab {

namespace {
constexpr std::size_t kLargestElement = 64 << 20;
constexpr std::size_t kDeepest = 64;
}  // namespace

std::string_view LocalName(std::string_view name) {
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

XmlElements::XmlElements(std::string file, PackagePart part,
                         std::initializer_list<std::string_view> names)
    : file_(std::move(file)), part_(std::move(part)), names_(names) {}

void XmlElements::Fail(const char* reason) const {
    throw Failure(file_ + ": the workbook is broken: " + reason);
}

double XmlElements::Progress() const {
    return part_.Size() == 0
               ? 1.0
               : static_cast<double>(part_.Done()) / static_cast<double>(part_.Size());
}

bool XmlElements::Next(std::string_view& element) {
    Tag tag;
    for (Forget(); NextTag(tag); Forget()) {
        if (!tag.opens || std::find(names_.begin(), names_.end(), tag.name) == names_.end()) {
            continue;
        }
        const std::size_t start = tag.start;
        const std::size_t depth = depth_ - (tag.closes ? 0 : 1);
        while (depth_ > depth) {
            if (!NextTag(tag)) {
                Fail("it ends within an element");
            }
        }
        element = std::string_view(text_).substr(start, position_ - start);
        return true;
    }
    return false;
}

/// Drops what has been passed, now and then.
void XmlElements::Forget() {
    constexpr std::size_t kEnough = 256 << 10;
    if (position_ > kEnough) {
        text_.erase(0, position_);
        position_ = 0;
    }
}

/// Has so many bytes at hand, if the text goes on so long.
bool XmlElements::Fill(std::size_t size) {
    while (text_.size() < size && part_.Read(text_)) {
        if (text_.size() > kLargestElement) {
            Fail("an element is too large");
        }
    }
    return text_.size() >= size;
}

bool XmlElements::Find(std::string_view what, std::size_t from, std::size_t& found) {
    while ((found = text_.find(what, from)) == std::string::npos) {
        from = std::max(from, text_.size() - std::min(text_.size(), what.size() - 1));
        if (!Fill(text_.size() + 1)) {
            return false;
        }
    }
    return true;
}

/// Position behind the tag's '>', which quotes may hide.
std::size_t XmlElements::EndOfTag(std::size_t start) {
    char quote = 0;
    for (std::size_t i = start;; ++i) {
        if (i >= text_.size() && !Fill(i + 1)) {
            Fail("it ends within a tag");
        }
        const char c = text_[i];
        if (quote != 0) {
            quote = c == quote ? '\0' : quote;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '>') {
            return i + 1;
        }
    }
}

/// Goes behind the next tag of an element; false at the end of the text.
bool XmlElements::NextTag(Tag& tag) {
    while (Find("<", position_, tag.start)) {
        Fill(tag.start + 9);
        const std::string_view text = std::string_view(text_).substr(tag.start);
        const char* const end = text.starts_with("<!--")        ? "-->"
                                : text.starts_with("<![CDATA[") ? "]]>"
                                : text.starts_with("<?")        ? "?>"
                                                                : nullptr;
        if (end != nullptr) {
            if (!Find(end, tag.start + 2, position_)) {
                Fail("it ends within a comment");
            }
            position_ += std::string_view(end).size();
            continue;
        }
        if (text.starts_with("<!")) {
            Fail("it has a document type");
        }
        position_ = EndOfTag(tag.start);
        tag.end = position_;
        const std::string_view inside =
            std::string_view(text_).substr(tag.start + 1, tag.end - tag.start - 2);
        tag.opens = !inside.starts_with('/');
        tag.closes = !tag.opens || inside.ends_with('/');
        const std::string_view name = inside.substr(tag.opens ? 0 : 1);
        tag.name = LocalName(name.substr(0, name.find_first_of(" \t\r\n/")));
        if (!tag.opens && depth_ == 0) {
            Fail("an element ends that never began");
        }
        if (tag.opens && !tag.closes && ++depth_ > kDeepest) {
            Fail("elements within elements without end");
        }
        depth_ -= tag.opens ? 0 : 1;
        return true;
    }
    if (depth_ > 0) {
        Fail("it ends within an element");
    }
    return false;
}

}  // namespace lab
