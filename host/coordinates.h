#pragma once

#include <optional>
#include <string>

#include "platform/ge/AcArray.h"
#include "platform/ge/AcGePoint3d.h"

namespace host {

// Values as they are typed. Nothing for a text of any other form.

/// A point "x,y" in the plane z = 0.
std::optional<AcGePoint3d> ParsePoint(const std::string& text);
/// "i,j,…", from 0 up.
std::optional<AcDbIntArray> ParseIndexes(const std::string& text);

}  // namespace host
