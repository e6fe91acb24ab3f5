#pragma once

#include <functional>

#include "platform/db/AcDbExtents.h"

class AcDbDatabase;
class AcDbEntity;

namespace host {

/// Calls `visit` with every entity of the drawing's model space, in drawing order, open for read;
/// erased ones and those that somebody else writes to are passed over.
void ForEachModelSpaceEntity(AcDbDatabase& database,
                             const std::function<void(AcDbEntity& entity)>& visit);

/// False for an entity that is hidden or whose layer is frozen.
bool IsThere(const AcDbEntity& entity);

/// The box around everything in model space that is there, on layers that are off as well, as far
/// as it can be told in bounded time; empty for an empty drawing.
AcDbExtents ModelSpaceExtents(AcDbDatabase& database);

}  // namespace host
