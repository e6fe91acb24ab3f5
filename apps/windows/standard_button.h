#pragma once

#include <QString>

namespace windows {

/// What the platform writes on a button of that id (IDOK, IDCANCEL, IDYES, IDNO).
QString StandardButtonText(int id, bool chinese);

}  // namespace windows
