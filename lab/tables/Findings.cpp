#include "lab/tables/Findings.h"

#include <algorithm>

#include "lab/Failure.h"

namespace lab {

namespace {
constexpr std::size_t kMostTold = 100;
constexpr std::size_t kLongestQuote = 80;
}  // namespace

void Findings::Refuse(const std::string& place, const std::string& reason) {
    if (++count_ <= kMostTold) {
        refusals_.push_back(place + ": " + reason);
    }
}

void Findings::Note(const std::string& text) {
    if (std::find(notes_.begin(), notes_.end(), text) == notes_.end()) {
        notes_.push_back(text);
    }
}

void Findings::ThrowIfRefused() const {
    std::string text;
    for (const std::string& refusal : refusals_) {
        text += (text.empty() ? "" : "\n") + refusal;
    }
    if (count_ > refusals_.size()) {
        text += "\nand " + std::to_string(count_ - refusals_.size()) + " more";
    }
    if (!text.empty()) {
        throw Failure(text);
    }
}

std::string Quoted(std::string_view text) {
    if (text.size() <= kLongestQuote) {
        return "\"" + std::string(text) + "\"";
    }
    std::size_t end = kLongestQuote;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
        --end;  // not within a character
    }
    return "\"" + std::string(text.substr(0, end)) + "…\"";
}

}  // namespace lab
