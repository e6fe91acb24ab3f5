#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/oledb/CComPtr.h"
#include "platform/oledb/oledb.h"

/// A query of fixed columns over one table of the project database: a walk over its rows with the
/// current row in the record, and changes of that row. The six classes differ in statement and
/// record. Its destructor closes it at the latest.
class CProjectTable {
public:
    CProjectTable(const CProjectTable&) = delete;
    CProjectTable& operator=(const CProjectTable&) = delete;
    virtual ~CProjectTable();

    /// The statement with the filter (table_filters.h) inserted; GBK.
    std::string BuildQuery(const std::string& filter) const;
    /// True when the statement was executed and every cell of its rows fits the record; nothing is
    /// read yet. Opens the project database when that has not happened. Shows nothing.
    bool Open(const std::string& statement);
    /// S_OK when the first or next row is in the record; DB_S_ENDOFROWSET or a failure when not.
    /// A row that cannot be read, such as one with a null in a column without status, is a failure:
    /// the rows after it are not known then, and what was read is not all there is.
    HRESULT MoveFirst();
    HRESULT MoveNext();
    /// Opens the table with the filter and moves to the first row; a failure when it does not open.
    HRESULT OpenFirst(const std::string& filter);
    /// Writes the record into the current row at once.
    HRESULT SetData();
    /// Makes a new row of the record at once; the current row stays current.
    HRESULT Insert();
    /// Deletes the current row at once; MoveNext goes on with the row after it.
    HRESULT Delete();
    /// Sends changes that a row set in deferred mode would hold back; with these row sets, which
    /// change at once, it gives E_NOINTERFACE and there is nothing to do.
    HRESULT Update();
    void Close();

    /// One bound column. Columns stand in the order of the statement.
    struct Column {
        DBTYPE type;
        std::size_t value;   ///< offset in the record
        std::size_t bytes;   ///< size of its place
        std::size_t status;  ///< offset in the record, or kNoStatus
    };
    static constexpr std::size_t kNoStatus = static_cast<std::size_t>(-1);
    using Bindings = std::vector<DBBINDING>;
    static Bindings MakeBindings(const std::vector<Column>& columns);

protected:
    /// `statement` has "%s" where the filter goes. All three must live as long as the table.
    CProjectTable(const char* statement, const Bindings& bindings, void* record)
        : statement_(statement), bindings_(bindings), record_(record) {}

private:
    void ReleaseRow();

    const char* statement_;
    const Bindings& bindings_;
    void* record_;
    CComPtr<ICommandText> command_;
    CComPtr<IRowset> rowset_;
    CComPtr<IAccessor> accessors_;
    HACCESSOR accessor_ = DB_NULL_HACCESSOR;
    HROW row_ = DB_NULL_HROW;
};
