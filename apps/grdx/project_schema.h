#pragma once

#include <string>

#include "platform/oledb/SqlDatabase.h"

namespace console {

/// The project of a suite folder. Texts are UTF-8.
struct ProjectEntry {
    int index = 1;       ///< key of the project in every table
    std::string number;  ///< names the output folder too
    std::string name;
    int code = 0;  ///< 2: six charts on A3 sheets; 1: other bound of fine sand
};

/// Makes the five tables in an empty database and enters the project.
void MakeProjectTables(oledb::SqlDatabase& database, const ProjectEntry& project);

}  // namespace console
