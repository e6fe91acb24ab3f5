#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/oledb/Accessor.h"
#include "platform/oledb/ComObject.h"
#include "platform/oledb/Provider.h"
#include "platform/oledb/RowsetProperties.h"
#include "platform/oledb/Transaction.h"
#include "platform/oledb/oledb.h"

namespace oledb {

/// A walk over a selection. A row handle is the row's number from 1.
class Rowset final : public ComObject<IRowset, IRowsetChange, IAccessor> {
public:
    Rowset(std::shared_ptr<Transaction> transaction, std::unique_ptr<Selection> selection,
           const RowsetProperties& properties)
        : transaction_(std::move(transaction)),
          selection_(std::move(selection)),
          properties_(properties) {}

    HRESULT GetData(HROW row, HACCESSOR accessor, void* data) override;
    HRESULT GetNextRows(HCHAPTER chapter, DBROWOFFSET offset, DBROWCOUNT count,
                        DBCOUNTITEM* obtained, HROW** rows) override;
    HRESULT ReleaseRows(DBCOUNTITEM count, const HROW* rows, DWORD* options, ULONG* references,
                        DWORD* statuses) override;
    HRESULT RestartPosition(HCHAPTER chapter) override;

    HRESULT DeleteRows(HCHAPTER chapter, DBCOUNTITEM count, const HROW* rows,
                       DWORD* statuses) override;
    HRESULT SetData(HROW row, HACCESSOR accessor, void* data) override;
    HRESULT InsertRow(HCHAPTER chapter, HACCESSOR accessor, void* data, HROW* row) override;

    HRESULT CreateAccessor(DBACCESSORFLAGS flags, DBCOUNTITEM count, const DBBINDING* bindings,
                           DBLENGTH rowSize, HACCESSOR* accessor, DBBINDSTATUS* statuses) override;
    HRESULT ReleaseAccessor(HACCESSOR accessor, ULONG* references) override;

protected:
    IUnknown* Find(REFIID riid) override;

private:
    /// Values taken from a consumer's buffer, and the texts that they point to.
    struct Taken {
        std::vector<ColumnValue> values;
        std::vector<std::string> texts;
    };

    const Accessor* FindAccessor(HACCESSOR accessor) const;
    /// Why a row cannot be used, or S_OK.
    HRESULT CheckRow(HROW row) const;
    HRESULT CheckChange(LONG kind) const;
    HRESULT DeleteRow(HROW row);
    /// "table, KEY=value, …", as the accessor made last has the keys.
    std::string RowName(HROW row);
    /// Every cell that is not null must fit its binding; the first that does not is told.
    HRESULT CheckCells(const Accessor& accessor);
    DBSTATUS Deliver(const DBBINDING& binding, std::byte* data) const;
    /// True when the consumer's place holds what the row gives for the column.
    bool Unchanged(const DBBINDING& binding, const std::byte* data);
    /// All bound values, or with `changedOnly` those that differ from the row in `values_`.
    HRESULT Take(const Accessor& accessor, std::byte* data, bool changedOnly, Taken& taken);
    /// Tell that a cell of the row in `values_` cannot be read, or not be written.
    HRESULT Unreadable(const Accessor& accessor, const DBBINDING& binding, DBSTATUS status) const;
    HRESULT Unwritable(const Accessor& accessor, const DBBINDING& binding, DBSTATUS status) const;

    std::shared_ptr<Transaction> transaction_;
    std::unique_ptr<Selection> selection_;
    RowsetProperties properties_;
    std::map<HACCESSOR, Accessor> accessors_;
    HACCESSOR lastAccessor_ = DB_NULL_HACCESSOR;
    std::unordered_map<HROW, ULONG> held_;  ///< rows handed out, with their references
    std::unordered_set<HROW> deleted_;
    std::size_t next_ = 0;  ///< rows before the position
    bool restarted_ = true;
    std::vector<Value> values_;       ///< the row read last, or the new one
    std::vector<std::byte> scratch_;  ///< a place to compare with
};

}  // namespace oledb
