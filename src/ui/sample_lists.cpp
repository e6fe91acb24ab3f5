#include "src/ui/sample_lists.h"

#include <algorithm>
#include <climits>
#include <string_view>

#include "src/common/module_state.h"
#include "src/core/gbk_text.h"
#include "src/core/sort_keys.h"
#include "src/db/project_database.h"
#include "src/db/project_tables.h"
#include "src/db/table_filters.h"

namespace {

template <class Values, class Value>
void AddUnlessLast(Values& values, const Value& value) {
    if (values.empty() || values.back() != value) {
        values.push_back(value);
    }
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
    for (std::size_t pos = 0; pos < text.size(); pos += CharLength(text, pos)) {
        last = pos;
    }
    return text.substr(0, last);
}

std::string LayerLabel(int mainLayer, int subLayer) {
    const std::string label = std::to_string(mainLayer);
    return subLayer == 0 ? label : label + "-" + std::to_string(subLayer);
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

bool ReadSampleKeys(const std::string& filter, std::vector<SampleKey>& keys) {
    CKeFenItemTable table;
    HRESULT row = table.OpenFirst(filter);
    for (; row == S_OK; row = table.MoveNext()) {
        AddUnlessLast(keys,
                      SampleKey{NarrowText(table.record.ZKBH), NarrowText(table.record.QYBH)});
    }
    if (FAILED(row)) {
        ReportTableOpenError(kTestItemTableError);
    }
    return SUCCEEDED(row);
}

bool ReadProjectSamples(std::vector<SampleKey>& samples) {
    return ReadSampleKeys(ProjectItemsFilter(ProjectContext.GCSY), samples);
}

bool ReadSamplesNamedAsLayers(std::vector<SampleKey>& samples) {
    return ReadSampleKeys(BoreholesItemsFilter(ProjectContext.GCSY, std::string(kLayerSheets)),
                          samples);
}

bool ReadLayers(std::vector<std::string>& layers) {
    CSheJiLayerTable table;
    HRESULT row = table.OpenFirst(LayersWithFractionsFilter(ProjectContext.GCSY));
    for (; row == S_OK; row = table.MoveNext()) {
        layers.push_back(LayerLabel(table.record.ZCBH, table.record.YCBH));
    }
    return SUCCEEDED(row);
}

std::vector<std::string> BoreholesOf(const std::vector<SampleKey>& samples) {
    std::vector<std::string> boreholes;
    for (const SampleKey& key : samples) {
        AddUnlessLast(boreholes, key.borehole);
    }
    return boreholes;
}

bool ReadSamples(const std::string& borehole, std::vector<std::string>& samples) {
    std::vector<SampleKey> keys;
    const bool complete = ReadSampleKeys(BoreholeItemsFilter(ProjectContext.GCSY, borehole), keys);
    for (const SampleKey& key : keys) {
        AddUnlessLast(samples, key.sample);
    }
    return complete;
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
