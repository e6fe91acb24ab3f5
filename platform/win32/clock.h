#pragma once

#include <ctime>
#include <functional>

/// The time of day as everything in the system sees it.
namespace win32 {

/// Gives seconds since 1970-01-01 00:00 UTC.
using Clock = std::function<std::time_t()>;

std::time_t Now();
/// Replaces the clock, for hosts and tests that need a fixed date; an empty one restores the
/// system's.
void SetClock(Clock clock);

/// Calendar date and time of day in the local time zone; month 0 to 11, year since 1900.
std::tm LocalTime(std::time_t time);
/// The other way; fields out of range are carried over. -1 when not representable.
std::time_t TimeFromLocal(std::tm local);

}  // namespace win32
