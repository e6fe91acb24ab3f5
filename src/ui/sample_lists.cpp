#include "src/ui/sample_lists.h"

#include <algorithm>
#include <climits>
#include <string_view>

#include "platform/win32/code_page.h"
#include "src/common/module_state.h"
#include "src/core/sort_keys.h"
#include "src/db/CKeFenItemTable.h"
#include "src/db/table_filters.h"
#include "src/db/table_open_error.h"

namespace {

/// Walks the test items and takes one text column, each run of equal texts once. A walk that does
/// not come to its end is told like a table that does not open.
template <std::size_t size>
bool ReadColumn(const std::string& filter, WCHAR (CKeFenItemTable::Record::*column)[size],
                std::vector<std::string>& texts) {
    CKeFenItemTable table;
    HRESULT row = table.OpenFirst(filter);
    for (; row == S_OK; row = table.MoveNext()) {
        std::string text = win32::GbkFromUtf16(table.record.*column);
        if (texts.empty() || texts.back() != text) {
            texts.push_back(std::move(text));
        }
    }
    if (FAILED(row)) {
        ReportTableOpenError(kTestItemTableError);
    }
    return SUCCEEDED(row);
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool EndsWithDigit(const std::string& text) {
    return !text.empty() && IsDigit(text.back());
}

/// The digits at the end of a text. No byte of a double-byte character is a digit's.
std::string_view TrailingDigits(std::string_view text) {
    std::size_t begin = text.size();
    while (begin > 0 && IsDigit(text[begin - 1])) {
        --begin;
    }
    return text.substr(begin);
}

std::string_view WithoutLastCharacter(std::string_view text) {
    std::size_t last = 0;
    for (std::size_t pos = 0; pos < text.size(); pos += win32::CharLength(text, pos)) {
        last = pos;
    }
    return text.substr(0, last);
}

/// Value of a run of digits, no more than an int holds.
long long ValueOf(std::string_view digits) {
    long long value = 0;
    for (const char digit : digits) {
        value = std::min<long long>(value * 10 + (digit - '0'), INT_MAX);
    }
    return value;
}

}  // namespace

bool ReadBoreholes(std::vector<std::string>& boreholes) {
    return ReadColumn(ProjectItemsFilter(ProjectContext.GCSY), &CKeFenItemTable::Record::ZKBH,
                      boreholes);
}

bool ReadSamples(const std::string& borehole, std::vector<std::string>& samples) {
    return ReadColumn(BoreholeItemsFilter(ProjectContext.GCSY, borehole),
                      &CKeFenItemTable::Record::QYBH, samples);
}

int SampleSortKey(const std::string& sample) {
    const std::string_view number = TrailingDigits(sample);
    const std::string_view before =
        std::string_view(sample).substr(0, sample.size() - number.size());
    const std::string_view group = TrailingDigits(WithoutLastCharacter(before));
    return static_cast<int>(std::min<long long>(ValueOf(group) * 10000 + ValueOf(number), INT_MAX));
}

std::vector<std::string> OrderedSamples(const std::vector<std::string>& samples) {
    std::vector<std::string> ordered;
    std::vector<std::string> numbered(1);  // the sort counts from 1
    std::vector<int> keys(1);
    for (const std::string& sample : samples) {
        if (EndsWithDigit(sample)) {
            numbered.push_back(sample);
            keys.push_back(SampleSortKey(sample));
        } else {
            ordered.push_back(sample);
        }
    }
    SortKeysWithStrings(static_cast<int>(keys.size()) - 1, keys.data(), numbered.data());
    ordered.insert(ordered.end(), numbered.begin() + 1, numbered.end());
    return ordered;
}
