#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/oledb/Provider.h"
#include "platform/oledb/RowBuffer.h"
#include "platform/oledb/providers/KeyedRows.h"

namespace oledb {

/// The rows of a select, read to the end when it is executed, so that no walk holds a lock. A row
/// is changed by its identity, and only while it holds what was read: what somebody else has
/// written meanwhile is told, and stays.
class KeyedSelection final : public Selection {
public:
    KeyedSelection(std::shared_ptr<RowAccess> access, std::shared_ptr<const KeyedRows> shape,
                   RowBuffer rows)
        : access_(std::move(access)), shape_(std::move(shape)), rows_(std::move(rows)) {}

    std::size_t RowCount() const override { return rows_.RowCount(); }
    std::size_t ColumnCount() const override { return shape_->origins.size(); }
    std::string Title() const override { return shape_->title; }
    std::string ColumnName(std::size_t column) const override;
    std::string ChangeFault() const override;
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
    /// The same, once the row is complete.
    HRESULT ReadWhole(std::size_t row, std::vector<Value>& values, std::string& reason);
    HRESULT ReadAgain(Changed& changed, std::string& reason);
    HRESULT CheckIdentified(std::string& reason) const;
    HRESULT CheckColumns(const std::vector<ColumnValue>& values, std::string& reason) const;
    /// Runs "UPDATE …" or "DELETE …" with its parameters on exactly this row while it holds what
    /// is known; `key` becomes the row's new identity where the change gives one.
    HRESULT ChangeKnown(const std::string& statement, const std::vector<Value>& parameters,
                        const std::vector<Value>& known, RowBuffer& key, std::string& reason);
    /// "COLUMN was …, is …" of what differs.
    std::string Differences(const std::vector<Value>& known, const std::vector<Value>& now) const;
    std::vector<Value> KeyOf(const std::vector<Value>& known) const;
    void NoteChanged(std::size_t row, const RowBuffer& returned, std::vector<Value> key,
                     const std::vector<ColumnValue>& values);

    std::shared_ptr<RowAccess> access_;
    std::shared_ptr<const KeyedRows> shape_;
    RowBuffer rows_;
    std::unordered_map<std::size_t, Changed> changed_;
};

}  // namespace oledb
