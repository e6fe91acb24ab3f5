#pragma once

#include <chrono>
#include <functional>

namespace oledb {

/// Called every few milliseconds while a database that another program has locked is waited for,
/// with the time that this has lasted; false to wait no longer. It must leave the database alone.
/// Null: every wait may last two seconds. Returns the listener before.
using LockWaitListener = std::function<bool(std::chrono::milliseconds waited)>;
LockWaitListener SetLockWaitListener(LockWaitListener listener);

/// Who did not get a lock does not wait for it again, until it was free once or the next command
/// begins. For programs: this one has ended.
void ForgetGivenUpWait();

/// For providers: whether to wait on, and that something was written.
bool GoesOnWaiting(std::chrono::milliseconds waited);
void NoteLockHad();

}  // namespace oledb
