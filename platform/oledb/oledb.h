#pragma once

#include "platform/oledb/oledb_types.h"
#include "platform/win32/win_types.h"

inline constexpr IID IID_IUnknown{
    0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

/// An interface pointer that a call hands out counts as one reference of the receiver. Objects are
/// used on one thread only.
struct IUnknown {
    IUnknown() = default;
    IUnknown(const IUnknown&) = delete;
    IUnknown& operator=(const IUnknown&) = delete;

    /// E_NOINTERFACE with `*object` null when the object has no such interface.
    virtual HRESULT QueryInterface(REFIID riid, void** object) = 0;
    virtual ULONG AddRef() = 0;
    /// Destroys the object with the last reference. Returns the references left.
    virtual ULONG Release() = 0;

    virtual ~IUnknown() = default;
};

// The interfaces from data source to row set, reduced to the operations that are called.

inline constexpr IID IID_IDBInitialize{
    0x0C733A8B, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};
inline constexpr IID IID_IDBCreateSession{
    0x0C733A5D, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};
inline constexpr IID IID_IOpenRowset{
    0x0C733A69, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};
inline constexpr IID IID_IDBCreateCommand{
    0x0C733A1D, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};
inline constexpr IID IID_ICommand{
    0x0C733A63, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};
inline constexpr IID IID_ICommandText{
    0x0C733A27, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};
inline constexpr IID IID_ICommandProperties{
    0x0C733A79, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};
inline constexpr IID IID_IAccessor{
    0x0C733A8C, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};
inline constexpr IID IID_IRowset{
    0x0C733A7C, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};
inline constexpr IID IID_IRowsetChange{
    0x0C733A05, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};
inline constexpr IID IID_IRowsetUpdate{
    0x0C733A6D, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};

inline constexpr IID IID_ITransaction{
    0x0FB15084, 0xAF41, 0x11CE, {0xBD, 0x2B, 0x20, 0x4C, 0x4F, 0x4F, 0x50, 0x20}};
inline constexpr IID IID_ITransactionLocal{
    0x0C733A5F, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};

struct IDBInitialize : IUnknown {
    /// Opens the database. DB_E_ALREADYINITIALIZED when it is open; after a failure it may be
    /// called again.
    virtual HRESULT Initialize() = 0;
};

struct IDBCreateSession : IUnknown {
    /// E_UNEXPECTED before Initialize. The connection closes with the last object made from it.
    virtual HRESULT CreateSession(IUnknown* outer, REFIID riid, IUnknown** session) = 0;
};

/// What a session is asked for; tables are opened through commands, so it has no call of its own.
struct IOpenRowset : IUnknown {};

struct IDBCreateCommand : IUnknown {
    virtual HRESULT CreateCommand(IUnknown* outer, REFIID riid, IUnknown** command) = 0;
};

struct ITransaction : IUnknown {
    /// XACT_E_ABORTED, and nothing is written, when it cannot be or a change has failed for a
    /// reason that is not its row's. `retaining` must be FALSE: the next transaction is started by
    /// itself.
    virtual HRESULT Commit(BOOL retaining, DWORD controls, DWORD reserved) = 0;
    /// Takes back everything since StartTransaction. `reason` is not looked at.
    virtual HRESULT Abort(const void* reason, BOOL retaining, BOOL async) = 0;
};

/// Of a session: what its row sets change from StartTransaction to Commit is written together. A
/// row that the database refuses by itself leaves the others to be written.
struct ITransactionLocal : ITransaction {
    /// XACT_E_XTIONEXISTS within a transaction. Isolation is always that of the highest level;
    /// `flags` must be 0, `options` null, `level` (may be null) is set to 1.
    virtual HRESULT StartTransaction(ISOLEVEL isolation, ULONG flags, ITransactionOptions* options,
                                     ULONG* level) = 0;
};

struct ICommand : IUnknown {
    /// Runs the text, which is one select of one statement, and gives its row set. `params` must be
    /// null. `rowsAffected` (may be null) is set to -1. DB_E_MULTIPLESTATEMENTS when anything but
    /// blanks follows the statement, DB_E_NOTABLE when a table is missing, DB_E_ERRORSOCCURRED when
    /// a required property cannot hold for this statement, DB_E_TIMEOUT when the database stays
    /// locked by somebody else, DB_E_ERRORSINCOMMAND when the text is wrong otherwise.
    virtual HRESULT Execute(IUnknown* outer, REFIID riid, DBPARAMS* params,
                            DBROWCOUNT* rowsAffected, IUnknown** rowset) = 0;
};

struct ICommandText : ICommand {
    /// `dialect` must be DBGUID_DEFAULT. Null or empty text clears the command.
    virtual HRESULT SetCommandText(REFGUID dialect, LPCOLESTR text) = 0;
};

struct ICommandProperties : IUnknown {
    /// All or, when a required one cannot be granted, none: DB_E_ERRORSOCCURRED, each property's
    /// dwStatus says why. DB_S_ERRORSOCCURRED when only optional ones were left out.
    virtual HRESULT SetProperties(ULONG count, DBPROPSET* propertySets) = 0;
};

struct IAccessor : IUnknown {
    /// `statuses` (may be null) gets one DBBINDSTATUS a binding; DB_E_ERRORSOCCURRED when one is
    /// not OK. Bound are value and status; the types are those of oledb_types.h. Also
    /// DB_E_ERRORSOCCURRED when a row has a cell that cannot become the type bound to it, so that a
    /// walk never comes upon one; a null is none, nor is an empty text bound as a number, which
    /// counts as null.
    virtual HRESULT CreateAccessor(DBACCESSORFLAGS flags, DBCOUNTITEM count,
                                   const DBBINDING* bindings, DBLENGTH rowSize, HACCESSOR* accessor,
                                   DBBINDSTATUS* statuses) = 0;
    /// `references` may be null.
    virtual HRESULT ReleaseAccessor(HACCESSOR accessor, ULONG* references) = 0;
};

/// The rows are those of the moment of Execute. Changes and deletions made through the row set
/// show in it, inserted rows show in the next one.
struct IRowset : IUnknown {
    /// Reads a row's bound columns into `data`. A text too long for its place is cut at a whole
    /// character (DBSTATUS_S_TRUNCATED where status is bound). DB_E_ERRORSOCCURRED when a value
    /// cannot be converted, or is null in a column bound without status; the columns before and
    /// after it are read all the same.
    virtual HRESULT GetData(HROW row, HACCESSOR accessor, void* data) = 0;
    /// Moves by `offset`, then fetches |count| rows in the direction of `count` into `*rows`, an
    /// array of the caller's with that many places (a null pointer is refused). DB_S_ENDOFROWSET
    /// when fewer rows are there; `*obtained` tells how many. Deleted rows are passed over.
    virtual HRESULT GetNextRows(HCHAPTER chapter, DBROWOFFSET offset, DBROWCOUNT count,
                                DBCOUNTITEM* obtained, HROW** rows) = 0;
    /// The three arrays beside `rows` may be null.
    virtual HRESULT ReleaseRows(DBCOUNTITEM count, const HROW* rows, DWORD* options,
                                ULONG* references, DWORD* statuses) = 0;
    /// The next fetch starts before the first row again.
    virtual HRESULT RestartPosition(HCHAPTER chapter) = 0;
};

/// Offered when DBPROP_IRowsetChange or DBPROP_UPDATABILITY was set. Immediate: a call that
/// returns S_OK has changed the database, a failed one has changed nothing. DB_E_NOTSUPPORTED when
/// the rows stand for no single row of a table (DISTINCT) or the kind of change was not asked for.
struct IRowsetChange : IUnknown {
    /// `statuses` (may be null) gets a result for each row.
    virtual HRESULT DeleteRows(HCHAPTER chapter, DBCOUNTITEM count, const HROW* rows,
                               DWORD* statuses) = 0;
    /// Writes the bound columns that differ from what the row gives for them, so a column whose
    /// place the caller did not touch keeps its value to the last digit. DB_E_DELETEDROW when the
    /// row is gone.
    virtual HRESULT SetData(HROW row, HACCESSOR accessor, void* data) = 0;
    /// `row` must be null: no handle of the new row is kept.
    virtual HRESULT InsertRow(HCHAPTER chapter, HACCESSOR accessor, void* data, HROW* row) = 0;
};

/// Deferred mode, which a row set of this layer does not offer; callers look for it.
struct IRowsetUpdate : IUnknown {
    virtual HRESULT Update(HCHAPTER chapter, DBCOUNTITEM count, const HROW* rows,
                           DBCOUNTITEM* updated, HROW** updatedRows, DWORD** statuses) = 0;
};

inline constexpr CLSID CLSID_MSDAINITIALIZE{
    0x2206CDB0, 0x19C1, 0x11D1, {0x89, 0xE0, 0x00, 0xC0, 0x4F, 0xD7, 0xA8, 0x29}};
inline constexpr IID IID_IDataInitialize{
    0x2206CCB1, 0x19C1, 0x11D1, {0x89, 0xE0, 0x00, 0xC0, 0x4F, 0xD7, 0xA8, 0x29}};
inline constexpr DWORD CLSCTX_INPROC_SERVER = 1;

/// Turns an initialisation string into a data source.
struct IDataInitialize : IUnknown {
    /// The string is `Keyword=Value;…`; "Provider" chooses the provider by name, the other
    /// keywords are looked at when the data source is initialised. REGDB_E_CLASSNOTREG when no
    /// provider has the name, DB_E_BADINITSTRING when the string cannot be taken apart or names
    /// none. `*dataSource` must be null on entry.
    virtual HRESULT GetDataSource(IUnknown* outer, DWORD clsContext, LPCOLESTR initString,
                                  REFIID riid, IUnknown** dataSource) = 0;
};

/// Makes an object of a class. The only class there is is CLSID_MSDAINITIALIZE; any other gives
/// REGDB_E_CLASSNOTREG. No aggregation.
HRESULT CoCreateInstance(REFCLSID rclsid, IUnknown* outer, DWORD clsContext, REFIID riid,
                         void** object);
