#include "platform/mfc/CTime.h"

#include <array>
#include <string_view>

#include "platform/win32/clock.h"
#include "platform/win32/code_page.h"
#include "platform/win32/format_text.h"

CTime::CTime(int year, int month, int day, int hour, int minute, int second) {
    std::tm local{};
    local.tm_year = year - 1900;
    local.tm_mon = month - 1;
    local.tm_mday = day;
    local.tm_hour = hour;
    local.tm_min = minute;
    local.tm_sec = second;
    time_ = win32::TimeFromLocal(local);
}

CTime CTime::GetCurrentTime() {
    return CTime(win32::Now());
}

int CTime::GetYear() const {
    return win32::LocalTime(time_).tm_year + 1900;
}
int CTime::GetMonth() const {
    return win32::LocalTime(time_).tm_mon + 1;
}
int CTime::GetDay() const {
    return win32::LocalTime(time_).tm_mday;
}
int CTime::GetHour() const {
    return win32::LocalTime(time_).tm_hour;
}
CString CTime::Format(const char* format) const {
    const std::tm local = win32::LocalTime(time_);
    const std::string_view pattern = format;
    CString text;
    for (std::size_t pos = 0; pos < pattern.size();) {
        // The C library takes the bytes of a format for its own locale's characters, so it gets
        // the conversions alone.
        if (pattern[pos] == '%' && pos + 1 < pattern.size()) {
            const std::array<char, 3> conversion = {'%', pattern[pos + 1], '\0'};
            std::array<char, 128> converted{};
            if (strftime_l(converted.data(), converted.size(), conversion.data(), &local,
                           win32::PlainLocale()) > 0) {
                text += converted.data();
            }
            pos += 2;
            continue;
        }
        for (const std::size_t end = pos + win32::CharLength(pattern, pos); pos < end; ++pos) {
            text += pattern[pos];
        }
    }
    return text;
}
