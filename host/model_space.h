#pragma once

#include <functional>

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbExtents.h"

namespace host {

/// Calls `visit` with every entity of the drawing's model space, in drawing order, open for read;
/// erased ones and those that somebody else writes to are passed over.
void ForEachModelSpaceEntity(AcDbDatabase& database,
                             const std::function<void(AcDbEntity& entity)>& visit);

/// The box around everything drawn in model space; empty for an empty drawing.
AcDbExtents ModelSpaceExtents(AcDbDatabase& database);

}  // namespace host
