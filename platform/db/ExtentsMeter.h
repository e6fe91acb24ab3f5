#pragma once

#include "platform/db/AcDbExtents.h"
#include "platform/gi/ExtentsWorldDraw.h"

class AcDbEntity;

namespace db {
/// False for coordinates that mean none, as programs write them for the box of an empty drawing.
bool IsSomewhere(const AcGePoint3d& p);
}  // namespace db

/// Measures entities one after the other, in a time that the file's size has to do with: blocks in
/// blocks can multiply to more than anybody draws.
class ExtentsMeter {
public:
    /// Adds the box of an entity that is open for read; a box out of the world is left out. False
    /// when it cannot be told, or not wholly.
    bool add(const AcDbEntity& entity, AcDbExtents& box);

private:
    std::size_t stepsLeft_ = ExtentsWorldDraw::kMostSteps;
};
