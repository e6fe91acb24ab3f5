#pragma once

#include "platform/win32/win_types.h"

// The driver manager's interface. Its headers bring base types of their own unless somebody else
// has them; these are the ones that the system's own do not have.

#define ALREADY_HAVE_WINDOWS_TYPE
#define FAR
#define CALLBACK
#define SQL_API
using UCHAR = unsigned char;
using SCHAR = signed char;
using SQLSCHAR = signed char;
using SDWORD = int;
using UDWORD = unsigned int;
using SWORD = signed short;
using UWORD = unsigned short;
using SLONG = signed long;
using SSHORT = signed short;
using SDOUBLE = double;
using LDOUBLE = double;
using SFLOAT = float;
using PTR = void*;
using RETCODE = signed short;
using SQLHWND = void*;

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

namespace oledb::odbc {

/// A number as the interface takes it where others are pointers.
inline SQLPOINTER AsPointer(SQLULEN number) {
    return reinterpret_cast<SQLPOINTER>(number);  // NOLINT(performance-no-int-to-ptr)
}

}  // namespace oledb::odbc
