#include "platform/oledb/row_text.h"

#include "platform/win32/number_text.h"

namespace oledb {
namespace {

bool IsKey(const DBBINDING& binding) {
    return (binding.dwPart & DBPART_STATUS) == 0;
}

/// Whether RowText tells the cell.
bool StandsInRowText(const Accessor& accessor, const std::vector<Value>& row,
                     const ColumnValue& cell) {
    for (const DBBINDING& binding : accessor.Bindings()) {
        if (!IsKey(binding)) break;
        if (binding.iOrdinal - 1 == cell.column) {
            return ValueText(row[cell.column]) == ValueText(cell.value);
        }
    }
    return false;
}

}  // namespace

std::string ValueText(const Value& value) {
    switch (value.kind) {
        case Value::Kind::Null:
            return "null";
        case Value::Kind::Integer:
            return std::to_string(value.integer);
        case Value::Kind::Real:
            return win32::ShortestText(value.real);
        case Value::Kind::Blob:
            return "(binary data)";
        case Value::Kind::Text:
            break;
    }
    const bool plain = !value.text.empty() && value.text != "null" &&
                       value.text.find_first_of(" \t\r\n\",:;=()") == std::string_view::npos;
    return plain ? std::string(value.text) : '"' + std::string(value.text) + '"';
}

std::string CellText(const Selection& selection, const ColumnValue& cell) {
    return selection.ColumnName(cell.column) + "=" + ValueText(cell.value);
}

std::string RowText(const Selection& selection, const Accessor& accessor,
                    const std::vector<Value>& row) {
    std::string text = selection.Title();
    for (const DBBINDING& binding : accessor.Bindings()) {
        if (!IsKey(binding)) break;
        const std::size_t column = binding.iOrdinal - 1;
        text += ", " + CellText(selection, {column, row[column]});
    }
    return text;
}

std::string ChangeText(const Selection& selection, const Accessor& accessor,
                       const std::vector<Value>& row, const std::vector<ColumnValue>& cells) {
    std::string text = RowText(selection, accessor, row);
    const char* separator = ": ";
    for (const ColumnValue& cell : cells) {
        if (StandsInRowText(accessor, row, cell)) continue;
        text += separator + CellText(selection, cell);
        separator = ", ";
    }
    return text;
}

}  // namespace oledb
