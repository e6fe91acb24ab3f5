#include "platform/oledb/lock_wait.h"

#include <utility>

namespace oledb {
namespace {
constexpr auto kPatience = std::chrono::seconds(2);

LockWaitListener& Listener() {
    static LockWaitListener listener;
    return listener;
}

bool givenUp = false;
}  // namespace

LockWaitListener SetLockWaitListener(LockWaitListener listener) {
    givenUp = false;
    return std::exchange(Listener(), std::move(listener));
}

void ForgetGivenUpWait() {
    givenUp = false;
}

bool GoesOnWaiting(std::chrono::milliseconds waited) {
    if (!givenUp) {
        givenUp = Listener() ? !Listener()(waited) : waited >= kPatience;
    }
    return !givenUp;
}

void NoteLockHad() {
    givenUp = false;
}

}  // namespace oledb
