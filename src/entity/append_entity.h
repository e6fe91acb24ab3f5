#pragma once

#include <memory>

#include "platform/db/AcDbObjectId.h"
#include "platform/rx/Acad.h"

class AcDbEntity;

/// The drawing itself; for null the host's working drawing, which may be null too.
AcDbDatabase* DrawingOrWorking(AcDbDatabase* drawing);
/// Appends a free entity to the model space of a drawing and closes it: the drawing owns it from
/// then on. On any other status than eOk it is still the caller's; eNoDatabase for a null drawing.
Acad::ErrorStatus AppendToModelSpace(AcDbDatabase* drawing, AcDbEntity* entity, AcDbObjectId& id);
/// Appends to the drawing, or to the working drawing for null. An entity that is refused is
/// destroyed and gives a null id.
AcDbObjectId AppendOrDrop(AcDbDatabase* drawing, std::unique_ptr<AcDbEntity> entity);
