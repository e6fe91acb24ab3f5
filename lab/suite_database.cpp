#include "lab/suite_database.h"

#include "lab/Failure.h"
#include "platform/suite/orvik8.h"
#include "platform/win32/code_page.h"

namespace lab {

namespace {
constexpr std::size_t kInitStringSize = 1024;
}  // namespace

oledb::SqlDatabase OpenProjectDatabase(oledb::Access access) {
    char text[kInitStringSize] = "";
    if (GetDatabaseInitString(text) == 0) {
        throw Failure("the suite names no project database");
    }
    return oledb::SqlDatabase(win32::Utf8FromGbk(text), access);
}

}  // namespace lab
