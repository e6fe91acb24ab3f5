#include "platform/oledb/providers/KeyedSelection.h"

#include "platform/oledb/last_error.h"
#include "platform/oledb/row_text.h"

namespace oledb {

std::string KeyedSelection::ColumnName(std::size_t column) const {
    const std::string& origin = shape_->origins[column];
    if (origin.empty()) return std::to_string(column + 1);
    return shape_->names.empty() ? origin : shape_->names[column];
}

std::string KeyedSelection::ChangeFault() const {
    if (!shape_->fromOneTable) return "rows that do not come from one table";
    const std::string& reader = shape_->reader;
    return reader.empty() ? reader : "a table that the user " + reader + " may only read";
}

// Reading

void KeyedSelection::ReadKnown(std::size_t row, std::vector<Value>& values) const {
    const auto changed = changed_.find(row);
    if (changed == changed_.end()) {
        rows_.Read(row, values);
    } else {
        changed->second.row.Read(0, values);
    }
}

HRESULT KeyedSelection::ReadAgain(Changed& changed, std::string& reason) {
    std::vector<Value> key;
    changed.row.Read(0, key);
    RowBuffer row;
    const HRESULT result = access_->ReadRows(shape_->rowStatement, key, row, reason);
    if (FAILED(result)) return result;
    if (row.RowCount() != 1) {
        reason = "the row does not exist any more";
        return DB_E_DELETEDROW;
    }
    changed = {std::move(row), true};
    return S_OK;
}

HRESULT KeyedSelection::ReadWhole(std::size_t row, std::vector<Value>& values,
                                  std::string& reason) {
    const auto changed = changed_.find(row);
    if (changed != changed_.end() && !changed->second.complete) {
        const HRESULT result = ReadAgain(changed->second, reason);
        if (FAILED(result)) return result;
    }
    ReadKnown(row, values);
    return S_OK;
}

HRESULT KeyedSelection::Read(std::size_t row, std::vector<Value>& values) {
    std::string reason;
    const HRESULT result = ReadWhole(row, values, reason);
    if (FAILED(result)) return SetLastError(result, shape_->title + ": " + reason);
    values.resize(ColumnCount());
    return S_OK;
}

// Changing

HRESULT KeyedSelection::CheckIdentified(std::string& reason) const {
    if (!shape_->keys.empty()) return S_OK;
    reason = "the rows are no single rows of the table";
    return DB_E_NOTSUPPORTED;
}

HRESULT KeyedSelection::CheckColumns(const std::vector<ColumnValue>& values,
                                     std::string& reason) const {
    for (const ColumnValue& value : values) {
        if (!shape_->origins[value.column].empty()) continue;
        reason = "column " + ColumnName(value.column) + " is a computed value";
        return DB_E_ERRORSOCCURRED;
    }
    return S_OK;
}

std::vector<Value> KeyedSelection::KeyOf(const std::vector<Value>& known) const {
    return {known.begin() + static_cast<std::ptrdiff_t>(ColumnCount()), known.end()};
}

std::string KeyedSelection::Differences(const std::vector<Value>& known,
                                        const std::vector<Value>& now) const {
    std::string text;
    for (std::size_t column = 0; column < ColumnCount(); ++column) {
        if (known[column] == now[column]) continue;
        text += (text.empty() ? "" : ", ") + ColumnName(column) + " was " +
                ValueText(known[column]) + ", is " + ValueText(now[column]);
    }
    return text;
}

HRESULT KeyedSelection::ChangeKnown(const std::string& statement,
                                    const std::vector<Value>& parameters,
                                    const std::vector<Value>& known, RowBuffer& key,
                                    std::string& reason) {
    const std::string byKey = statement + " WHERE " + shape_->KeyCondition();
    std::string sql = byKey;
    std::vector<Value> keyed = parameters;
    for (const Value& value : KeyOf(known)) keyed.push_back(value);
    std::vector<Value> all = keyed;
    for (std::size_t column = 0; column < ColumnCount(); ++column) {
        if (shape_->origins[column].empty()) continue;
        const bool isNull = known[column].kind == Value::Kind::Null;
        sql += " AND " + access_->Quoted(shape_->origins[column]) + (isNull ? " IS NULL" : "=?");
        if (!isNull) all.push_back(known[column]);
    }
    HRESULT result = access_->ChangeOne(sql + shape_->returning, all, key, reason);
    if (result != DB_E_DELETEDROW) return result;
    RowBuffer rows;
    result = access_->ReadRows(shape_->rowStatement, KeyOf(known), rows, reason);
    if (FAILED(result)) return result;
    if (rows.RowCount() == 0) {
        // An identity that changes with its row does not find a changed one.
        if (!shape_->returning.empty()) reason = "the row was changed or deleted by somebody else";
        return DB_E_DELETEDROW;
    }
    std::vector<Value> now;
    rows.Read(0, now);
    const std::string differences = Differences(known, now);
    // A value need not be equal to itself as it is written, as binary fractions of some servers.
    if (differences.empty()) {
        return access_->ChangeOne(byKey + shape_->returning, keyed, key, reason);
    }
    reason = "somebody else has changed the row meanwhile: " + differences;
    return DB_E_CONCURRENCYVIOLATION;
}

void KeyedSelection::NoteChanged(std::size_t row, const RowBuffer& returned, std::vector<Value> key,
                                 const std::vector<ColumnValue>& values) {
    for (std::size_t i = 0; i < key.size(); ++i) {
        for (const ColumnValue& value : values) {
            if (shape_->origins[value.column] == shape_->keyOrigins[i]) key[i] = value.value;
        }
    }
    if (returned.RowCount() == 1) returned.Read(0, key);
    Changed changed;
    changed.row.BeginRow();
    for (const Value& value : key) changed.row.Append(value);
    changed_.insert_or_assign(row, std::move(changed));
}

HRESULT KeyedSelection::Update(std::size_t row, const std::vector<ColumnValue>& values,
                               std::string& reason) {
    HRESULT result = CheckIdentified(reason);
    if (SUCCEEDED(result)) result = CheckColumns(values, reason);
    if (FAILED(result) || values.empty()) return result;
    std::vector<Value> known;
    result = ReadWhole(row, known, reason);
    if (FAILED(result)) return result;
    std::string sql = "UPDATE " + shape_->table + " SET ";
    std::vector<Value> parameters;
    for (const ColumnValue& value : values) {
        if (!parameters.empty()) sql += ',';
        sql += access_->Quoted(shape_->origins[value.column]) + "=?";
        parameters.push_back(value.value);
    }
    RowBuffer key;
    result = ChangeKnown(sql, parameters, known, key, reason);
    if (SUCCEEDED(result)) NoteChanged(row, key, KeyOf(known), values);
    return result;
}

HRESULT KeyedSelection::Delete(std::size_t row, std::string& reason) {
    HRESULT result = CheckIdentified(reason);
    std::vector<Value> known;
    if (SUCCEEDED(result)) result = ReadWhole(row, known, reason);
    if (FAILED(result)) return result;
    RowBuffer key;
    return ChangeKnown("DELETE FROM " + shape_->table, {}, known, key, reason);
}

HRESULT KeyedSelection::Insert(const std::vector<ColumnValue>& values, std::string& reason) {
    HRESULT result = CheckIdentified(reason);
    if (SUCCEEDED(result)) result = CheckColumns(values, reason);
    if (FAILED(result)) return result;
    std::string columns;
    std::string places;
    std::vector<Value> parameters;
    for (const ColumnValue& value : values) {
        if (!columns.empty()) columns += ',';
        columns += access_->Quoted(shape_->origins[value.column]);
        places += places.empty() ? "?" : ",?";
        parameters.push_back(value.value);
    }
    RowBuffer key;
    return access_->ChangeOne(
        "INSERT INTO " + shape_->table + "(" + columns + ") VALUES(" + places + ")", parameters,
        key, reason);
}

}  // namespace oledb
