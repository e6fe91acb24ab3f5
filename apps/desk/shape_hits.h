#pragma once

#include <optional>
#include <vector>

#include "host/picture/DisplayList.h"

namespace desk {

/// The entity drawn nearest to a point and no farther off than `reach` (drawing units), of several
/// the one drawn last. A point within a filled area or a character's cell is on it.
std::optional<AcDbObjectId> EntityAt(const picture::DisplayList& list, picture::Point point,
                                     double reach);

/// The entities of which everything lies in the box, or, with `crossing`, of which anything does.
std::vector<AcDbObjectId> EntitiesIn(const picture::DisplayList& list, const picture::Box& box,
                                     bool crossing);

}  // namespace desk
