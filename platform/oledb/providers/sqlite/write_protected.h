#pragma once

#include <string>

struct sqlite3;

/// Reading where nothing can be written. Beside a database with a write-ahead log every reader
/// needs a file that the readers share; on a write-protected disk, or in a folder of somebody
/// else, the library cannot make it and reads nothing at all.
namespace oledb::sqlite {

/// Whether the library's result may come from such a place.
bool MayBeWriteProtected(int code);
/// Whether the first question to the file, which has a write-ahead log and cannot be written, would
/// leave an empty log beside it.
bool WouldLeaveLog(const std::string& path);

/// The file's database as it stands now, copied into memory, where it can be read and not written
/// to: a new handle. Null when not all of its changes are in the file itself, as somebody is
/// writing or was cut short, and when the file cannot be read.
sqlite3* OpenSnapshot(const std::string& path);

}  // namespace oledb::sqlite
