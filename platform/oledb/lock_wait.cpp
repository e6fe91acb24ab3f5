#include "platform/oledb/lock_wait.h"

#include <utility>

namespace oledb {
namespace {
LockWaitListener& Listener() {
    static LockWaitListener listener;
    return listener;
}
}  // namespace

LockWaitListener SetLockWaitListener(LockWaitListener listener) {
    return std::exchange(Listener(), std::move(listener));
}

bool GoesOnWaiting() {
    return !Listener() || Listener()();
}

}  // namespace oledb
