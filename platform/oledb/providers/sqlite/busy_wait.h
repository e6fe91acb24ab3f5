#pragma once

namespace oledb::sqlite {

/// A busy handler of the library's: waits for a database that another program has locked as long
/// as lock_wait.h says.
int WaitForLock(void* data, int tries);

}  // namespace oledb::sqlite
