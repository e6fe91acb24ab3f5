#pragma once

#include "platform/oledb/oledb_errors.h"
#include "platform/win32/win_types.h"

// Values and structures that pass through the interfaces, under their published names; fields and
// constants that nobody here uses are left out where the layout does not matter.

using DBLENGTH = ULONGLONG;      ///< bytes
using DBORDINAL = ULONGLONG;     ///< column, counted from 1
using DBCOUNTITEM = ULONGLONG;   ///< number of rows or bindings
using DBROWOFFSET = LONGLONG;    ///< rows to skip, backwards when negative
using DBROWCOUNT = LONGLONG;     ///< rows to fetch, backwards when negative
using DBBYTEOFFSET = ULONGLONG;  ///< bytes from the start of the consumer's buffer
using HROW = ULONG_PTR;
using HACCESSOR = ULONG_PTR;
using HCHAPTER = ULONG_PTR;
inline constexpr HROW DB_NULL_HROW = 0;
inline constexpr HACCESSOR DB_NULL_HACCESSOR = 0;
inline constexpr HCHAPTER DB_NULL_HCHAPTER = 0;

using DBTYPE = WORD;
inline constexpr DBTYPE DBTYPE_I2 = 2;
inline constexpr DBTYPE DBTYPE_I4 = 3;
inline constexpr DBTYPE DBTYPE_R4 = 4;
inline constexpr DBTYPE DBTYPE_UI1 = 17;
inline constexpr DBTYPE DBTYPE_STR = 129;   ///< zero-terminated text in the ANSI code page
inline constexpr DBTYPE DBTYPE_WSTR = 130;  ///< zero-terminated UTF-16

/// What became of one value. After a read the provider sets it; before a write the consumer sets
/// S_OK, S_ISNULL or S_TRUNCATED (the value as it was read).
using DBSTATUS = DWORD;
inline constexpr DBSTATUS DBSTATUS_S_OK = 0;
inline constexpr DBSTATUS DBSTATUS_E_CANTCONVERTVALUE = 2;
inline constexpr DBSTATUS DBSTATUS_S_ISNULL = 3;
inline constexpr DBSTATUS DBSTATUS_S_TRUNCATED = 4;
inline constexpr DBSTATUS DBSTATUS_E_DATAOVERFLOW = 6;
inline constexpr DBSTATUS DBSTATUS_E_BADSTATUS = 12;

using DBPART = DWORD;
inline constexpr DBPART DBPART_VALUE = 1;
inline constexpr DBPART DBPART_LENGTH = 2;
inline constexpr DBPART DBPART_STATUS = 4;
using DBMEMOWNER = DWORD;
inline constexpr DBMEMOWNER DBMEMOWNER_CLIENTOWNED = 0;
using DBPARAMIO = DWORD;
inline constexpr DBPARAMIO DBPARAMIO_NOTPARAM = 0;

/// Where one column goes in the consumer's buffer.
struct DBBINDING {
    DBORDINAL iOrdinal;
    DBBYTEOFFSET obValue;
    DBBYTEOFFSET obLength;
    DBBYTEOFFSET obStatus;
    void* pTypeInfo;
    void* pObject;
    void* pBindExt;
    DBPART dwPart;
    DBMEMOWNER dwMemOwner;
    DBPARAMIO eParamIO;
    DBLENGTH cbMaxLen;  ///< size of the value's place, terminator included
    DWORD dwFlags;
    DBTYPE wType;
    BYTE bPrecision;
    BYTE bScale;
};
using DBBINDSTATUS = DWORD;
inline constexpr DBBINDSTATUS DBBINDSTATUS_OK = 0;
inline constexpr DBBINDSTATUS DBBINDSTATUS_BADORDINAL = 1;
inline constexpr DBBINDSTATUS DBBINDSTATUS_UNSUPPORTEDCONVERSION = 2;
inline constexpr DBBINDSTATUS DBBINDSTATUS_BADBINDINFO = 3;

using DBACCESSORFLAGS = DWORD;
inline constexpr DBACCESSORFLAGS DBACCESSOR_ROWDATA = 2;

using VARTYPE = WORD;
inline constexpr VARTYPE VT_I4 = 3;
inline constexpr VARTYPE VT_BOOL = 11;
using VARIANT_BOOL = SHORT;
inline constexpr VARIANT_BOOL VARIANT_TRUE = -1;
inline constexpr VARIANT_BOOL VARIANT_FALSE = 0;
/// The two kinds of value that row-set properties have.
struct VARIANT {
    VARTYPE vt;
    union {
        LONG lVal;
        VARIANT_BOOL boolVal;
    };
};

using DBPROPID = DWORD;
inline constexpr DBPROPID DBPROP_CANFETCHBACKWARDS = 0x12;
inline constexpr DBPROPID DBPROP_CANHOLDROWS = 0x13;
inline constexpr DBPROPID DBPROP_UPDATABILITY = 0x75;
inline constexpr DBPROPID DBPROP_IRowsetChange = 0x7F;
inline constexpr DBPROPID DBPROP_IRowsetScroll = 0x85;
inline constexpr DBPROPID DBPROP_IRowsetUpdate = 0x86;
inline constexpr LONG DBPROPVAL_UP_CHANGE = 1;
inline constexpr LONG DBPROPVAL_UP_DELETE = 2;
inline constexpr LONG DBPROPVAL_UP_INSERT = 4;

using DBPROPOPTIONS = DWORD;
inline constexpr DBPROPOPTIONS DBPROPOPTIONS_REQUIRED = 0;
inline constexpr DBPROPOPTIONS DBPROPOPTIONS_OPTIONAL = 1;
using DBPROPSTATUS = DWORD;
inline constexpr DBPROPSTATUS DBPROPSTATUS_OK = 0;
inline constexpr DBPROPSTATUS DBPROPSTATUS_NOTSUPPORTED = 1;
inline constexpr DBPROPSTATUS DBPROPSTATUS_BADVALUE = 2;
inline constexpr DBPROPSTATUS DBPROPSTATUS_BADOPTION = 3;

/// Name of a column; DB_NULLID for "no column".
struct DBID {
    GUID guid;
    DWORD eKind;
    LPOLESTR pwszName;

    bool operator==(const DBID&) const = default;
};
inline constexpr DBID DB_NULLID{};

struct DBPROP {
    DBPROPID dwPropertyID;
    DBPROPOPTIONS dwOptions;
    DBPROPSTATUS dwStatus;  ///< set by the provider
    DBID colid;             ///< DB_NULLID: holds for all columns
    VARIANT vValue;
};
struct DBPROPSET {
    DBPROP* rgProperties;
    ULONG cProperties;
    GUID guidPropertySet;
};
inline constexpr GUID DBPROPSET_ROWSET{
    0xC8B522BE, 0x5CF3, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};
/// The provider's own dialect.
inline constexpr GUID DBGUID_DEFAULT{
    0xC8B521FB, 0x5CF3, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};

using ISOLEVEL = LONG;
inline constexpr ISOLEVEL ISOLATIONLEVEL_SERIALIZABLE = 0x00100000;

struct DBPARAMS;
struct ITransactionOptions;
