#pragma once

#include "apps/grdx/MessageStream.h"

namespace console {

/// While it lives, a database that another program has locked is waited for so long, which a
/// terminal shows.
class LockPatience {
public:
    LockPatience(MessageStream& messages, int seconds);
    ~LockPatience();
    LockPatience(const LockPatience&) = delete;
    LockPatience& operator=(const LockPatience&) = delete;
};

}  // namespace console
