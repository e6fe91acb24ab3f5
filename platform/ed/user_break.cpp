#include "platform/ed/user_break.h"

#include <utility>

namespace {
ed::BreakCheck& Check() {
    static ed::BreakCheck check;
    return check;
}
}  // namespace

int acedUsrBrk() {
    return Check() && Check()() ? 1 : 0;
}

ed::BreakCheck ed::SetBreakCheck(BreakCheck check) {
    return std::exchange(Check(), std::move(check));
}
