#pragma once

#include "platform/oledb/IUnknown.h"

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
