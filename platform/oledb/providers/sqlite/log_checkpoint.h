#pragma once

struct sqlite3;

namespace oledb::sqlite {

/// Brings what is in the write-ahead log into the file of a database that is about to be closed,
/// when this connection has written. The last one to close a database does so by itself, but of
/// programs that end at the same moment each may find the others still there, and the file copied
/// without its log would lack their changes. Waits for nobody: what a reader still needs, or
/// another program is bringing in, stays in the log, where it is as safe.
void EmptyLogIfWritten(sqlite3* database);

}  // namespace oledb::sqlite
