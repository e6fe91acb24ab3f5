#include "platform/oledb/providers/sqlite/busy_wait.h"

#include <chrono>
#include <thread>

#include "platform/oledb/lock_wait.h"

namespace oledb::sqlite {
namespace {
constexpr auto kBetweenTries = std::chrono::milliseconds(5);
}  // namespace

int WaitForLock(void* /*data*/, int tries) {
    using Clock = std::chrono::steady_clock;
    static Clock::time_point begin;
    if (tries == 0) begin = Clock::now();
    const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin);
    if (!GoesOnWaiting(waited)) return 0;
    std::this_thread::sleep_for(kBetweenTries);
    return 1;
}

}  // namespace oledb::sqlite
