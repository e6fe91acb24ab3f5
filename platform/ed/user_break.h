#pragma once

#include <functional>

/// 1 when the person wants the work that runs to end, 0 otherwise. What may take long asks between
/// its steps, where everything done so far is whole.
int acedUsrBrk();

namespace ed {
/// Answers acedUsrBrk; true to end the work. It may show how far the work is and take input
/// meanwhile, but must not run commands. Null: nobody ever wants to.
using BreakCheck = std::function<bool()>;
BreakCheck SetBreakCheck(BreakCheck check);
}  // namespace ed
