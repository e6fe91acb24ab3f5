#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/db/AcDbObjectId.h"

class AcDbDatabase;

namespace dwg {

/// Reads of a drawing file (path of the file system, UTF-8) only the model space's objects of a
/// class that modules register, into an empty database, which is no drawing then: what the objects
/// refer to is not there. Reading all of a sheet takes several times as long. None where the file,
/// or one of these objects, cannot be read.
std::vector<AcDbObjectId> ReadObjectsOfClass(AcDbDatabase& database, const std::string& path,
                                             std::string_view className);

}  // namespace dwg
