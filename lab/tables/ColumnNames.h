#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "lab/tables/cell_text.h"

namespace lab {

/// What a column of a table holds.
enum class Column : unsigned char {
    kBorehole,
    kSample,
    kDepth,
    kThickness,
    kMethod,
    kTotal,
    kSize,
    kMass,
    kPassing,
    kCumulative,
    kMain,
    kSub,
    kPercent,
    kType,
    kDryMass,
    kGravity,
    kTime,
    kReading,
    kTemperature,
    kMeniscus,
    kDispersant,
    kDepth0,
    kDepthPerUnit
};
inline constexpr std::size_t kColumnCount = static_cast<std::size_t>(Column::kDepthPerUnit) + 1;

/// The column's own name, which messages tell and tables of ours carry.
const char* ColumnName(Column column);
Unit ColumnUnit(Column column);

/// What columns are called in tables: their own names, the Chinese ones of laboratory forms, and
/// what a user's file adds.
class ColumnNames {
public:
    ColumnNames();

    /// Adds names: `{"borehole": ["Hole", …], …}`, a single name also without brackets. `file` is
    /// told in messages. Failure when the text is not of this form, names no column, or gives a
    /// name to two columns.
    void Add(const std::string& file, std::string_view json);

    /// What a header is a name of.
    struct Match {
        std::optional<Column> column;
        std::string fault;  ///< set when its unit is not the column's
    };
    /// `folded` is a header as FoldedHeader gives it; a unit may stand in brackets behind the name.
    Match Find(const std::string& folded) const;

private:
    std::unordered_map<std::string, Column> byName_;
};

}  // namespace lab
