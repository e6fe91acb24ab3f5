#pragma once

#include <QString>

namespace desk {

/// What the user is told of a picture that is not whole (DisplayList::isWhole).
QString PartMissing();

}  // namespace desk
