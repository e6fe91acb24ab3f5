#pragma once

#include <string>
#include <string_view>

#include "platform/oledb/providers/odbc/odbc_api.h"

/// Texts pass to drivers as UTF-16.
namespace oledb::odbc {

std::u16string WideText(std::string_view utf8);
std::string Utf8Text(const void* units, std::size_t count);

/// For calls that take a text without changing it.
inline SQLWCHAR* Units(const std::u16string& text) {
    return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(text.data()));
}

}  // namespace oledb::odbc
