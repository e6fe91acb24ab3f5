#pragma once

#include <ctime>

#include "platform/mfc/WindowModel.h"

namespace mfc {

/// State of a date picker. A new one shows the present.
class DatePickerModel : public WindowModel {
public:
    DatePickerModel(WindowModel* parent, int id, DWORD style, const DialogRect& rect);

    /// The moment, with the time of day that code gave.
    std::time_t Time() const { return time_; }
    void SetTime(std::time_t time);

    /// The user picks a date, month and day from 1. False also when there is no such date.
    bool PickDate(int year, int month, int day);

private:
    std::time_t time_;
};

}  // namespace mfc
