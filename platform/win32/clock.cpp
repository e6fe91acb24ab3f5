#include "platform/win32/clock.h"

#include <utility>

namespace win32 {
namespace {
Clock& TheClock() {
    static Clock clock;
    return clock;
}
}  // namespace

std::time_t Now() {
    return TheClock() ? TheClock()() : std::time(nullptr);
}

void SetClock(Clock clock) {
    TheClock() = std::move(clock);
}

std::tm LocalTime(std::time_t time) {
    std::tm local{};
    localtime_r(&time, &local);
    return local;
}

std::time_t TimeFromLocal(std::tm local) {
    local.tm_isdst = -1;
    return std::mktime(&local);
}

}  // namespace win32
