#pragma once

#include <string>

#include <nlohmann/json_fwd.hpp>

#include "lab/ProjectData.h"
#include "lab/checks/Finding.h"

namespace console {

/// What a project holds, for people: a line for the project and for each borehole, sample, layer.
std::string DescribeSuite(const lab::ProjectData& data);
/// The same for programs, with what can be computed of the samples and what the checks found. A
/// number that the database has no value for is null.
nlohmann::ordered_json SuiteAsJson(const lab::ProjectData& data, const lab::FindingList& findings);

}  // namespace console
