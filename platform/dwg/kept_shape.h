#pragma once

#include "platform/db/AcDbKeptEntity.h"
#include "platform/gi/AcGiWorldDraw.h"

/// Draws an entity that is kept undecoded by what its type in the format says of its fields: arcs,
/// ellipses, points, solids, faces, polylines of both older kinds, leaders, texts of several lines,
/// attributes and their definitions, block references with attributes or in rows and columns,
/// dimensions by their blocks. The fields stay as they are. False for other types, and for
/// fields that do not make sense: nothing is drawn then.
bool DrawKeptShape(const AcDbKeptEntity& entity, AcGiWorldDraw& context);

/// The part of DrawKeptShape for what is drawn by nothing but its own fields and vertices.
bool DrawKeptCurve(const AcDbKeptEntity& entity, AcGiWorldDraw& context);
