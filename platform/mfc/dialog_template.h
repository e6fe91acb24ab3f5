#pragma once

#include <string>
#include <vector>

#include "platform/win32/win_types.h"

namespace mfc {

/// In dialog units: a quarter of the dialog font's mean character width, an eighth of its height.
struct DialogRect {
    short x = 0;
    short y = 0;
    short width = 0;
    short height = 0;

    friend bool operator==(const DialogRect&, const DialogRect&) = default;
};

struct ControlDescription {
    WORD id;                  ///< IDC_STATIC for a control that nobody addresses
    std::string windowClass;  ///< one of the WC_ names or DATETIMEPICK_CLASS
    DWORD style;              ///< that it is a visible child goes without saying
    DialogRect rect;          ///< within the dialog
    std::string text;         ///< GBK
};

/// A dialog, as it is written down in a module's sources.
struct DialogDescription {
    WORD number;
    std::string caption;  ///< GBK; of a page: the text of its tab
    DWORD style;
    DialogRect rect;
    std::vector<ControlDescription> controls;  ///< in tab order
};

}  // namespace mfc

/// What a dialog is made from, as FindResource and its companions hand it out: a block that may be
/// copied byte by byte. It refers to the description, which lives as long as the module is
/// registered.
struct DLGTEMPLATE {
    const mfc::DialogDescription* description;
};
using LPCDLGTEMPLATE = const DLGTEMPLATE*;
