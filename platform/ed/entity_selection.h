#pragma once

#include <functional>

#include "platform/db/AcDbObjectId.h"
#include "platform/ed/adesk_results.h"
#include "platform/rx/Acad.h"

/// Name of an entity for the time of a session, and a point: x, y, z.
using ads_name = long[2];
using ads_point = double[3];

/// Lets the user pick one object; `point` receives where. RTNORM, else nothing was picked.
int acedEntSel(const char* prompt, ads_name entityName, ads_point point);
/// The object id behind an entity name; eInvalidInput for a name that no pick has given,
/// eNullObjectId when the drawing has no such object.
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name entityName);

namespace ed {
/// How picks are answered: gets the prompt (GBK), fills id and point, false for nothing picked.
/// Hosts set it; without one nothing is ever picked.
using PickSource = std::function<bool(const char* prompt, AcDbObjectId& id, ads_point point)>;
PickSource SetPickSource(PickSource source);
}  // namespace ed
