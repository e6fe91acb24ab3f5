#pragma once

#include "platform/mfc/CTime.h"
#include "platform/mfc/CWnd.h"

inline constexpr DWORD GDT_VALID = 0;

/// A date picker. It keeps the time of day it was given while the user changes the date.
class CDateTimeCtrl : public CWnd {
public:
    /// GDT_VALID, with the moment shown.
    DWORD GetTime(CTime& time) const;
    BOOL SetTime(const CTime* time);
};
