#include "apps/grdx/LockPatience.h"

#include <chrono>
#include <string>

#include "apps/grdx/Interrupt.h"
#include "platform/oledb/lock_wait.h"

namespace console {

LockPatience::LockPatience(MessageStream& messages, int seconds) {
    const std::chrono::seconds patience(seconds);
    oledb::SetLockWaitListener([&messages, patience](std::chrono::milliseconds waited) {
        const bool goesOn = waited < patience && !Interrupt::Asked();
        const auto second = std::chrono::floor<std::chrono::seconds>(waited).count();
        if (second > 0) {  // a shorter wait is not worth a word
            messages.ShowProgress(
                goesOn
                    ? "waiting for the database, which another program has locked: " +
                          std::to_string(second) + " of " + std::to_string(patience.count()) + " s"
                    : std::string());
        }
        return goesOn;
    });
}

LockPatience::~LockPatience() {
    oledb::SetLockWaitListener(nullptr);
}

}  // namespace console
