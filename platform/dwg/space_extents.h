#pragma once

#include "platform/db/AcDbExtents.h"

class AcDbDatabase;

/// The box around what stands in model space, for the header variables by which programs zoom to a
/// drawing. Entities of classes that modules bring are passed over: `ofModules` is their box. The
/// box that the drawing has stays within, when an entity cannot tell its own. Empty for nothing.
AcDbExtents ModelSpaceExtents(const AcDbDatabase& database, const AcDbExtents& ofModules);
