#pragma once

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbEntity.h"

/// Appends a free entity to the model space of a drawing and closes it: the drawing owns it from
/// then on. On any other status than eOk it is still the caller's; eNoDatabase for a null drawing.
Acad::ErrorStatus AppendToModelSpace(AcDbDatabase* drawing, AcDbEntity* entity, AcDbObjectId& id);
/// The same for the host's working drawing.
Acad::ErrorStatus AppendToWorkingModelSpace(AcDbEntity* entity, AcDbObjectId& id);
