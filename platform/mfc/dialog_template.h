#pragma once

#include <cstddef>
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
    DWORD style;              ///< WS_CHILD and WS_VISIBLE are added
    DialogRect rect;          ///< within the dialog
    std::string text;         ///< GBK
};

/// A dialog, as it is written down in a module's sources and as it is read from a template.
struct DialogDescription {
    WORD number;
    std::string caption;  ///< GBK; of a page: the text of its tab
    DWORD style;
    DialogRect rect;
    std::vector<ControlDescription> controls;  ///< in tab order
};

/// The dialog as a template in memory, in the published extended form (texts in UTF-16, items at
/// multiples of four bytes); the number stands in the dialog's help field.
/// std::logic_error for a window class that this layer does not have.
std::vector<std::byte> MakeDialogTemplate(const DialogDescription& dialog);
/// The other way. The template must be one that MakeDialogTemplate made, or a copy of it.
DialogDescription ReadDialogTemplate(const void* dialogTemplate);

}  // namespace mfc
