#pragma once

#include <cstddef>
#include <string>

#include "platform/oledb/Value.h"
#include "platform/oledb/oledb_types.h"

namespace oledb {

/// True for the types that can be bound.
bool IsBindableType(DBTYPE type);
/// Smallest place a value of the type needs, in bytes.
DBLENGTH MinimumLength(DBTYPE type);

/// True for a null, and for an empty text bound as a number: so databases import tables that leave
/// a number out.
bool CountsAsNull(const Value& value, DBTYPE type);
/// What ToPlace would answer for a value that does not count as null, leaving aside that a text may
/// be too long. A text that is no UTF-8 cannot be converted.
DBSTATUS CheckConversion(const Value& value, DBTYPE type);

/// Writes `value`, which does not count as null, into `place` as the binding's type. S_OK,
/// S_TRUNCATED (a text cut at a whole character, a number's fraction dropped), or why it cannot be:
/// E_CANTCONVERTVALUE, E_DATAOVERFLOW; the place is then as before. Texts become numbers when the
/// whole text is one, blanks around it aside. Infinite numbers and NaN stay what they are.
DBSTATUS ToPlace(const Value& value, const DBBINDING& binding, std::byte* place);

/// The value in `place`. A 32-bit float becomes the double of its shortest decimal text, so that
/// 161.6 is kept as 161.6 and reads back as the same float; one that is no finite number gives
/// E_CANTCONVERTVALUE. A text ends at its terminator or with its place; `storage` keeps it.
DBSTATUS FromPlace(const DBBINDING& binding, const std::byte* place, Value& value,
                   std::string& storage);

/// True when both places hold the same value of the binding's type; texts up to their ends.
bool SamePlaces(const DBBINDING& binding, const std::byte* left, const std::byte* right);

}  // namespace oledb
