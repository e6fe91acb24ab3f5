#pragma once

#include <functional>

namespace oledb {

/// Called every few milliseconds while a database that another program has locked is waited for;
/// false to wait no longer. It must leave the database alone. Null: every wait lasts as long as the
/// provider has patience. Returns the listener before.
using LockWaitListener = std::function<bool()>;
LockWaitListener SetLockWaitListener(LockWaitListener listener);

/// For providers.
bool GoesOnWaiting();

}  // namespace oledb
