#include "platform/mfc/CDateTimeCtrl.h"

#include <stdexcept>

#include "platform/mfc/DatePickerModel.h"

namespace {

mfc::DatePickerModel& PickerOf(mfc::WindowModel& window) {
    auto* picker = dynamic_cast<mfc::DatePickerModel*>(&window);
    if (picker == nullptr) {
        throw std::logic_error("control " + std::to_string(window.Id()) + " is no date picker");
    }
    return *picker;
}

}  // namespace

DWORD CDateTimeCtrl::GetTime(CTime& time) const {
    time = CTime(PickerOf(RequireModel()).Time());
    return GDT_VALID;
}

BOOL CDateTimeCtrl::SetTime(const CTime* time) {
    if (time == nullptr) {
        return FALSE;
    }
    PickerOf(RequireModel()).SetTime(time->GetTime());
    return TRUE;
}
