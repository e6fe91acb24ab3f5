#pragma once

#include "lab/project_schema.h"

namespace console {

/// Opens the suite folder for a call that reads profiles by itself: from then on one that cannot be
/// read is a Failure instead of an empty one. Failure when the folder cannot be opened.
void OpenSuite(const std::string& folder);

/// The project that the open suite folder's project profile names; Failure when it names none.
lab::ProjectEntry CurrentProject();

/// The Windows paths of its profiles.
std::string ProjectProfile();
std::string MarkProfile();

}  // namespace console
