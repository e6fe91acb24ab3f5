#include "src/core/sample_and_sheet_names.h"

#include <algorithm>

#include "src/core/gbk_text.h"

namespace {

using Kind = NameFault::Kind;

/// The single-byte characters that do not do: of files, of marks and their keys, of filters.
constexpr std::string_view kForbidden = "/\\:*?\"'<>|@=";
/// What stands between the first and the last sample of a sheet, by its format.
constexpr std::string_view kSheetSeparators = "~_";

bool IsControl(char c) {
    return (c >= 0 && c < 0x20) || c == 0x7F;
}

bool IsBlank(std::string_view character) {
    return character == " " || character == "　"_gbk;
}

}  // namespace

NameFault FindNameFault(std::string_view name, std::size_t mostCharacters) {
    if (name.empty()) {
        return {Kind::kEmpty};
    }
    std::size_t characters = 0;
    std::size_t length = 0;
    for (std::size_t pos = 0; pos < name.size(); pos += length) {
        length = CharLength(name, pos);
        const std::string_view character = name.substr(pos, length);
        if (IsBlank(character) && (pos == 0 || pos + length == name.size())) {
            return {Kind::kBlankAtEnd};
        }
        if (length == 1 && IsControl(name[pos])) {
            return {Kind::kControlCharacter};
        }
        if (length == 1 && kForbidden.find(name[pos]) != std::string_view::npos) {
            return {Kind::kCharacter, name[pos]};
        }
        ++characters;
    }
    return {characters > mostCharacters ? Kind::kTooLong : Kind::kNone};
}

SheetNames::SheetNames(const std::vector<SampleKey>& samples) {
    byName_.reserve(samples.size());
    for (const SampleKey& sample : samples) {
        byName_.emplace(FoldCase(KeyOf(sample)), sample);
    }
}

std::string SheetNames::KeyOf(const SampleKey& sample) {
    return sample.borehole + "-" + sample.sample;
}

std::string SheetNames::FileName(const SampleKey& sample) {
    return "KF" + KeyOf(sample) + ".dwg";
}

const SampleKey* SheetNames::FindOther(const std::string& folded, const SampleKey& sample) const {
    const auto [first, last] = byName_.equal_range(folded);
    for (auto entry = first; entry != last; ++entry) {
        if (entry->second != sample) {
            return &entry->second;
        }
    }
    return nullptr;
}

const SampleKey* SheetNames::FindRival(const SampleKey& sample) const {
    const std::string name = FoldCase(KeyOf(sample));
    const SampleKey* rival = FindOther(name, sample);
    // "ZK1-1~ZK1-2" is also how a sheet of two is named. A split within a double-byte character
    // does no harm: no name ends with half of one.
    for (std::size_t pos = name.find_first_of(kSheetSeparators);
         rival == nullptr && pos != std::string::npos;
         pos = name.find_first_of(kSheetSeparators, pos + 1)) {
        const SampleKey* const first = FindOther(name.substr(0, pos), sample);
        if (first != nullptr &&
            std::string_view(name).substr(pos + 1).starts_with(FoldCase(first->borehole) + "-")) {
            rival = first;
        }
    }
    return rival;
}

bool IsNamedAsLayers(const std::string& borehole) {
    return FoldCase(borehole.substr(0, kLayerSheets.size())) == FoldCase(std::string(kLayerSheets));
}

const std::string* FindRivalLayer(const SampleKey& sample, const std::vector<std::string>& layers) {
    if (!IsNamedAsLayers(sample.borehole)) {
        return nullptr;
    }
    const auto find = [&](const std::string& label) {
        return std::find(layers.begin(), layers.end(), label);
    };
    const std::string labels = SheetNames::KeyOf(sample).substr(kLayerSheets.size());
    const std::size_t split = labels.find_first_of(kSheetSeparators);
    const auto first = find(labels.substr(0, split));
    const bool isSheet =
        split == std::string::npos || find(labels.substr(split + 1)) != layers.end();
    return first != layers.end() && isSheet ? &*first : nullptr;
}
