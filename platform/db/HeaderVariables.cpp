#include "platform/db/HeaderVariables.h"

#include "platform/win32/clock.h"

DrawingTime CurrentDrawingDay() {
    const std::tm now = win32::LocalTime(win32::Now());
    // The Julian count of days, by years that begin in March.
    const int beforeMarch = now.tm_mon < 2 ? 1 : 0;
    const int year = now.tm_year + 1900 + 4800 - beforeMarch;
    const int month = now.tm_mon - 2 + 12 * beforeMarch;
    const int days = now.tm_mday + (153 * month + 2) / 5 + 365 * year + year / 4 - year / 100 +
                     year / 400 - 32045;
    return {days, 0};
}
