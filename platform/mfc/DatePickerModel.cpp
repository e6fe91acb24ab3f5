#include "platform/mfc/DatePickerModel.h"

#include <chrono>

#include "platform/win32/clock.h"

namespace mfc {

DatePickerModel::DatePickerModel(WindowModel* parent, int id, DWORD style, const DialogRect& rect)
    : WindowModel(WindowKind::DatePicker, parent, id, style, rect, ""), time_(win32::Now()) {}

void DatePickerModel::SetTime(std::time_t time) {
    if (time != time_) {
        time_ = time;
        Changed(Change::Date);
    }
}

bool DatePickerModel::PickDate(int year, int month, int day) {
    const std::chrono::year_month_day date(std::chrono::year(year),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day)));
    if (!Operable() || month < 1 || day < 1 || !date.ok()) {
        return false;
    }
    std::tm local = win32::LocalTime(time_);
    local.tm_year = year - 1900;
    local.tm_mon = month - 1;
    local.tm_mday = day;
    SetTime(win32::TimeFromLocal(local));
    return true;
}

}  // namespace mfc
