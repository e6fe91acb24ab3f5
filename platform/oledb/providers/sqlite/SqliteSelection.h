#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/oledb/Provider.h"
#include "platform/oledb/RowBuffer.h"
#include "platform/oledb/providers/sqlite/SqliteConnection.h"

namespace oledb::sqlite {

/// The rows of a select, read to the end when it is executed, so that no walk holds a lock.
class SqliteSelection final : public Selection {
public:
    SqliteSelection(std::shared_ptr<SqliteConnection> connection, std::shared_ptr<SelectPlan> plan)
        : connection_(std::move(connection)), plan_(std::move(plan)) {}

    HRESULT Execute(const std::vector<Value>& parameters);

    std::size_t RowCount() const override { return rows_.RowCount(); }
    std::size_t ColumnCount() const override { return plan_->ColumnCount(); }
    std::string Title() const override { return plan_->Title(); }
    std::string ColumnName(std::size_t column) const override;
    bool FromOneTable() const override { return plan_->FromOneTable(); }
    HRESULT Read(std::size_t row, std::vector<Value>& values) override;
    HRESULT Update(std::size_t row, const std::vector<ColumnValue>& values,
                   std::string& reason) override;
    HRESULT Delete(std::size_t row, std::string& reason) override;
    HRESULT Insert(const std::vector<ColumnValue>& values, std::string& reason) override;

private:
    /// A row that was changed: its identity alone, or the whole row once it was read again.
    struct Changed {
        RowBuffer row;
        bool complete = false;
    };

    /// The row as it is known, identity at the end.
    void ReadKnown(std::size_t row, std::vector<Value>& values) const;
    std::vector<Value> Key(std::size_t row) const;
    HRESULT ReadAgain(Changed& changed);
    HRESULT CheckIdentified(std::string& reason) const;
    HRESULT CheckColumns(const std::vector<ColumnValue>& values, std::string& reason) const;
    void NoteChanged(std::size_t row, std::vector<Value> key,
                     const std::vector<ColumnValue>& values);

    std::shared_ptr<SqliteConnection> connection_;
    std::shared_ptr<SelectPlan> plan_;
    RowBuffer rows_;
    std::unordered_map<std::size_t, Changed> changed_;
};

}  // namespace oledb::sqlite
