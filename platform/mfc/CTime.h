#pragma once

#include <compare>
#include <ctime>

#include "platform/mfc/CString.h"

/// A moment, to the second, seen in the local time zone.
class CTime {
public:
    /// 1970-01-01 00:00 UTC.
    CTime() = default;
    explicit CTime(std::time_t time) : time_(time) {}
    /// Local date (month and day from 1) and time of day.
    CTime(int year, int month, int day, int hour, int minute, int second);

    /// The clock of platform/win32/clock.h.
    static CTime GetCurrentTime();

    std::time_t GetTime() const { return time_; }
    int GetYear() const;
    int GetMonth() const;
    int GetDay() const;
    int GetHour() const;

    /// The format's conversions are those of strftime, one letter each; all other characters, of
    /// one byte or two, stand for themselves.
    CString Format(const char* format) const;

    friend bool operator==(const CTime& left, const CTime& right) = default;
    friend auto operator<=>(const CTime& left, const CTime& right) {
        return left.time_ <=> right.time_;
    }

private:
    std::time_t time_ = 0;
};
