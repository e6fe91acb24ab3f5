#pragma once

#include <QString>

namespace windows {

/// What the platform writes on a button of that id (IDOK, IDCANCEL, IDYES, IDNO). Chinese wherever
/// the program runs: the texts in the boxes name the buttons so.
QString StandardButtonText(int id);

}  // namespace windows
