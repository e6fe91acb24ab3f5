#pragma once

#include <string>
#include <vector>

#include "lab/ProjectData.h"
#include "lab/checks/CheckSettings.h"
#include "lab/checks/Finding.h"

namespace lab {

/// What the checks find in a project, sample by sample, then layer by layer. With names in
/// `boreholes` (UTF-8) only of the samples of these, and of the project.
FindingList CheckProject(const ProjectData& data, const CheckSettings& settings,
                         const std::vector<std::string>& boreholes = {});

}  // namespace lab
