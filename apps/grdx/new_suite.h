#pragma once

#include <string>

#include "apps/grdx/project_schema.h"

namespace console {

/// Makes `folder` (UTF-8) a suite folder with an empty project whose data count as checked. A
/// folder that is there already must be empty. Failure when something cannot be made; what was made
/// is then removed again.
void MakeSuiteFolder(const std::string& folder, const ProjectEntry& project);

}  // namespace console
