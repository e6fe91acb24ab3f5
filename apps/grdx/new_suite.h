#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "lab/project_schema.h"

namespace console {

/// Where the project of a new suite folder is kept.
struct ProjectPlace {
    std::string database;  ///< a server's initialisation string; empty: a file in the folder
    int index = 0;         ///< of the project that is there already; 0: a new one is entered
};

/// Puts a project into the database of a folder that is being made, and files of its own into the
/// folder; the project as it is then.
using ProjectFilling =
    std::function<lab::ProjectEntry(oledb::SqlDatabase&, const std::filesystem::path& folder)>;

/// Makes `folder` (UTF-8) a suite folder with a project that is put in, its database a file in the
/// folder or the server of that initialisation string. A folder that is there already must be
/// empty. Failure when something cannot be made; what was made in files is then removed again.
void MakeSuiteFolder(const std::string& folder, const std::string& database,
                     const ProjectFilling& fill);

/// Makes `folder` (UTF-8) a suite folder with the project that is at that place, or with an empty
/// one whose data count as checked.
void MakeSuiteFolder(const std::string& folder, const lab::ProjectEntry& project,
                     const ProjectPlace& place);

}  // namespace console
