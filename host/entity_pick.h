#pragma once

#include <functional>
#include <string>

#include "platform/ap/AcApDocument.h"
#include "platform/db/AcDbObjectId.h"
#include "platform/ge/AcGePoint3d.h"

namespace host {

/// The entity of the document's model space that a pick names: "#HANDLE" (hexadecimal), or "x,y"
/// for the one seen nearest to that point, of several the one drawn last. A point must be no
/// farther off than a hundredth of the view's height. `point` receives where was picked, (0, 0, 0)
/// for a handle. False, with the reason on the command line, when the pick names nothing.
bool PickEntity(AcApDocument& document, const std::string& pick, AcDbObjectId& id,
                AcGePoint3d& point);

/// Calls `change` with each pick of a list "#HANDLE,#HANDLE...", or with the one that stands alone,
/// also after one that failed. False when one did.
bool ForEachPick(const std::string& picks, const std::function<bool(const std::string&)>& change);

}  // namespace host
