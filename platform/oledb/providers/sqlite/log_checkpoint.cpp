#include "platform/oledb/providers/sqlite/log_checkpoint.h"

#include <sqlite3.h>

namespace oledb::sqlite {

void EmptyLogIfWritten(sqlite3* database) {
    if (sqlite3_total_changes(database) == 0) return;
    sqlite3_wal_checkpoint_v2(database, nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
}

}  // namespace oledb::sqlite
