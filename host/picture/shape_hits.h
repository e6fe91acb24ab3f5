#pragma once

#include <vector>

#include "host/picture/DisplayList.h"

namespace picture {

/// An entity at a point.
struct Hit {
    AcDbObjectId entity;
    double distance = 0.0;  ///< of the nearest it draws, drawing units; 0 on an area or a character
};

/// The entities that draw something no farther than `reach` from a point, nearest first, of several
/// as near the one drawn last first. Lines are hit where they are drawn, not in the gaps of their
/// line types; an area and the cell of a character are hit anywhere.
std::vector<Hit> EntitiesAt(const DisplayList& list, Point point, double reach);

/// The entities of which everything lies in the box, or, with `crossing`, of which anything does.
std::vector<AcDbObjectId> EntitiesIn(const DisplayList& list, const Box& box, bool crossing);

}  // namespace picture
