#pragma once

#include <QFont>
#include <QRect>

#include "platform/mfc/dialog_template.h"

namespace windows {

/// Pixels of dialog units: a unit is a quarter of the font's mean character width across and an
/// eighth of its height down.
class DialogUnits {
public:
    explicit DialogUnits(const QFont& font);

    QRect ToPixels(const mfc::DialogRect& rect) const;

private:
    double width_;   ///< mean width of the letters, pixels
    double height_;  ///< line height, pixels
};

}  // namespace windows
