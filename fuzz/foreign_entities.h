#pragma once

#include "platform/db/AcDbDatabase.h"

/// Adds entities that only other programs make, as their files have them: texts of several lines,
/// dimensions, arcs, attributes, older polylines, patterned hatches and some with proxy graphics.
void DrawForeignEntities(AcDbDatabase& drawing);
