#pragma once

#include <string>
#include <vector>

#include "lab/ProjectData.h"
#include "lab/checks/CheckSettings.h"
#include "lab/checks/Finding.h"
#include "lab/sheet_curves.h"

namespace lab {

/// What the checks look at.
struct CheckScope {
    /// With names (UTF-8) only the samples of these boreholes, and the project.
    std::vector<std::string> boreholes = {};
    /// The sheets that samples are held against; null: none.
    const SheetCurves* sheets = nullptr;
};

/// What the checks find in a project, sample by sample, then layer by layer.
FindingList CheckProject(const ProjectData& data, const CheckSettings& settings,
                         const CheckScope& scope = {});
/// The cells among them that cannot be read, of samples and layers.
FindingList UnreadableCells(const ProjectData& data);
/// All that the checks find, with the settings and the sheets of the open suite folder, whose
/// project it is. Failure when the settings cannot be read. The plug-in must not be loaded.
FindingList CheckWithSheets(const ProjectData& data,
                            const std::vector<std::string>& boreholes = {});

}  // namespace lab
