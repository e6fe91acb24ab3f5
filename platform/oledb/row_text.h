#pragma once

#include <string>
#include <vector>

#include "platform/oledb/Accessor.h"
#include "platform/oledb/Provider.h"

// How messages write rows and their values, so that a person finds them in the database. UTF-8.

namespace oledb {

/// A text stands in quotes when it could be mistaken for something else.
std::string ValueText(const Value& value);

/// "COLUMN=value".
std::string CellText(const Selection& selection, const ColumnValue& cell);

/// "table, KEY=value, …" of a row: as keys count the columns bound in front of the first one that
/// has a status, since these are the ones that hold a value in every row.
std::string RowText(const Selection& selection, const Accessor& accessor,
                    const std::vector<Value>& row);

/// "table, KEY=value, …: COLUMN=value, …" of a row and what is to stand in it.
std::string ChangeText(const Selection& selection, const Accessor& accessor,
                       const std::vector<Value>& row, const std::vector<ColumnValue>& cells);

}  // namespace oledb
