#include "lab/tables/ColumnNames.h"

#include <algorithm>
#include <iterator>

#include <nlohmann/json.hpp>

#include "lab/Failure.h"
#include "lab/tables/Findings.h"

namespace lab {

namespace {
struct ColumnForm {
    const char* name;
    Unit unit;
    std::initializer_list<const char*> others;
};

/// In the order of Column.
const ColumnForm kForms[] = {
    {"borehole", Unit::kNone, {"钻孔编号", "孔号"}},
    {"sample", Unit::kNone, {"试样编号", "土样编号", "样号"}},
    {"depth", Unit::kMetre, {"取样深度", "深度"}},
    {"thickness", Unit::kMetre, {"厚度"}},
    {"method", Unit::kNone, {"试验方法"}},
    {"total", Unit::kGram, {"总质量", "试样总质量"}},
    {"size", Unit::kMillimetre, {"孔径", "粒径"}},
    {"mass", Unit::kGram, {"筛余质量", "留筛质量"}},
    {"passing", Unit::kPercent, {"小于某粒径百分数"}},
    {"cumulative", Unit::kGram, {"累计筛余质量", "累计留筛质量"}},
    {"main", Unit::kNone, {"主层"}},
    {"sub", Unit::kNone, {"亚层"}},
    {"percent", Unit::kPercent, {"百分含量"}},
    {"type", Unit::kNone, {"密度计类型"}},
    {"dry_mass", Unit::kGram, {"干土质量"}},
    {"gs", Unit::kNone, {"土粒比重"}},
    {"time_min", Unit::kMinute, {"时间"}},
    {"reading", Unit::kNone, {"读数"}},
    {"temperature", Unit::kCelsius, {"温度"}},
    {"meniscus", Unit::kNone, {"弯液面校正"}},
    {"dispersant", Unit::kNone, {"分散剂校正"}},
    {"depth0", Unit::kCentimetre, {}},
    {"depth_per_unit", Unit::kCentimetre, {}},
};
static_assert(std::size(kForms) == kColumnCount);

const ColumnForm& FormOf(Column column) {
    return kForms[static_cast<std::size_t>(column)];
}

/// Takes the bracketed text off the end; empty when there is none.
std::string TakeBrackets(std::string& folded) {
    for (const auto& [open, close] :
         {std::pair("(", ")"), std::pair("[", "]"), std::pair("【", "】"), std::pair("〔", "〕")}) {
        const std::size_t start = folded.rfind(open);
        if (folded.ends_with(close) && start != std::string::npos && start > 0) {
            const std::size_t first = start + std::string_view(open).size();
            std::string inside =
                folded.substr(first, folded.size() - first - std::string_view(close).size());
            folded.resize(start);
            return inside;
        }
    }
    return {};
}

std::string NamesBoth(const std::string& file, const std::string& name, const std::string& one,
                      const std::string& other) {
    return file + ": " + Quoted(name) + " names both " + one + " and " + other;
}
}  // namespace

const char* ColumnName(Column column) {
    return FormOf(column).name;
}

Unit ColumnUnit(Column column) {
    return FormOf(column).unit;
}

ColumnNames::ColumnNames() {
    for (std::size_t i = 0; i < kColumnCount; ++i) {
        byName_[kForms[i].name] = static_cast<Column>(i);
        for (const char* other : kForms[i].others) {
            byName_[other] = static_cast<Column>(i);
        }
    }
}

void ColumnNames::Add(const std::string& file, std::string_view json) {
    const auto map = nlohmann::json::parse(json, nullptr, false);
    if (!map.is_object()) {
        throw Failure(file + ": not of the form {\"borehole\": [\"Hole\"], …}");
    }
    for (const auto& item : map.items()) {
        const std::string& key = item.key();
        const nlohmann::json& value = item.value();
        const auto* const form = std::find_if(std::begin(kForms), std::end(kForms),
                                              [&](const ColumnForm& f) { return key == f.name; });
        if (form == std::end(kForms)) {
            throw Failure(file + ": there is no column " + Quoted(key));
        }
        const auto column = static_cast<Column>(form - kForms);
        for (const auto& name : value.is_array() ? value : nlohmann::json::array({value})) {
            if (!name.is_string() || FoldedHeader(name.get<std::string>()).empty()) {
                throw Failure(file + ": " + Quoted(key) + " needs a name, or a list of names");
            }
            const auto [known, added] =
                byName_.try_emplace(FoldedHeader(name.get<std::string>()), column);
            if (!added && known->second != column) {
                throw Failure(NamesBoth(file, name, ColumnName(known->second), key));
            }
        }
    }
}

ColumnNames::Match ColumnNames::Find(const std::string& folded) const {
    if (const auto whole = byName_.find(folded); whole != byName_.end()) {
        return {whole->second, {}};
    }
    std::string name = folded;
    const std::string unit = TakeBrackets(name);
    const auto found = byName_.find(name);
    if (unit.empty() || found == byName_.end()) {
        return {};
    }
    const Unit expected = ColumnUnit(found->second);
    if (expected != Unit::kNone && !NamesUnit(unit, expected)) {
        return {found->second, "in " + unit + " where " + UnitText(expected) + " is read"};
    }
    return {found->second, {}};
}

}  // namespace lab
