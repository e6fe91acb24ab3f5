#pragma once

#include "platform/win32/win_types.h"

// Result codes of the interfaces, under their published names and values.
namespace oledb::detail {
constexpr HRESULT Failure(std::uint32_t code) {
    return static_cast<HRESULT>(code);
}
}  // namespace oledb::detail

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_NOTIMPL = oledb::detail::Failure(0x80004001);
inline constexpr HRESULT E_NOINTERFACE = oledb::detail::Failure(0x80004002);
inline constexpr HRESULT E_FAIL = oledb::detail::Failure(0x80004005);
inline constexpr HRESULT E_UNEXPECTED = oledb::detail::Failure(0x8000FFFF);
inline constexpr HRESULT E_INVALIDARG = oledb::detail::Failure(0x80070057);
inline constexpr HRESULT CLASS_E_NOAGGREGATION = oledb::detail::Failure(0x80040110);
inline constexpr HRESULT REGDB_E_CLASSNOTREG = oledb::detail::Failure(0x80040154);

/// No row where the position stands: the end of a walk. A success code, but not S_OK.
inline constexpr HRESULT DB_S_ENDOFROWSET = 0x00040EC6;
/// Some optional properties were not set.
inline constexpr HRESULT DB_S_ERRORSOCCURRED = 0x00040EDA;

inline constexpr HRESULT DB_E_BADACCESSORHANDLE = oledb::detail::Failure(0x80040E00);
inline constexpr HRESULT DB_E_BADROWHANDLE = oledb::detail::Failure(0x80040E04);
inline constexpr HRESULT DB_E_BADBINDINFO = oledb::detail::Failure(0x80040E08);
inline constexpr HRESULT DB_SEC_E_PERMISSIONDENIED = oledb::detail::Failure(0x80040E09);
inline constexpr HRESULT DB_E_NOCOMMAND = oledb::detail::Failure(0x80040E0C);
inline constexpr HRESULT DB_E_ERRORSINCOMMAND = oledb::detail::Failure(0x80040E14);
inline constexpr HRESULT DB_E_DIALECTNOTSUPPORTED = oledb::detail::Failure(0x80040E16);
inline constexpr HRESULT DB_E_ERRORSOCCURRED = oledb::detail::Failure(0x80040E21);
inline constexpr HRESULT DB_E_DELETEDROW = oledb::detail::Failure(0x80040E23);
inline constexpr HRESULT DB_E_MULTIPLESTATEMENTS = oledb::detail::Failure(0x80040E2E);
inline constexpr HRESULT DB_E_CONCURRENCYVIOLATION = oledb::detail::Failure(0x80040E38);
inline constexpr HRESULT DB_E_INTEGRITYVIOLATION = oledb::detail::Failure(0x80040E2F);
inline constexpr HRESULT DB_E_NOTABLE = oledb::detail::Failure(0x80040E37);
inline constexpr HRESULT DB_E_ALREADYINITIALIZED = oledb::detail::Failure(0x80040E52);
inline constexpr HRESULT DB_E_NOTSUPPORTED = oledb::detail::Failure(0x80040E53);
inline constexpr HRESULT DB_E_BADORDINAL = oledb::detail::Failure(0x80040E55);
inline constexpr HRESULT DB_E_BADINITSTRING = oledb::detail::Failure(0x80040E73);
inline constexpr HRESULT DB_E_TIMEOUT = oledb::detail::Failure(0x80040E97);

/// No transaction runs, one runs already, or it came to nothing.
inline constexpr HRESULT XACT_E_NOTRANSACTION = oledb::detail::Failure(0x8004D00E);
inline constexpr HRESULT XACT_E_XTIONEXISTS = oledb::detail::Failure(0x8004D013);
inline constexpr HRESULT XACT_E_ABORTED = oledb::detail::Failure(0x8004D019);
