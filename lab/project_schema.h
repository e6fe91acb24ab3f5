#pragma once

#include <span>
#include <string>

#include "platform/oledb/SqlDatabase.h"

namespace lab {

/// The project of a suite folder. Texts are UTF-8.
struct ProjectEntry {
    int index = 1;       ///< key of the project in every table
    std::string number;  ///< names the output folder too
    std::string name;
    int code = 0;         ///< 2: six charts on A3 sheets; 1: other bound of fine sand
    bool checked = true;  ///< the data check counts as passed
};

/// The names of all tables that hold a project's data, by its index in their column GCSY. The first
/// is that of the projects; the last one, of hydrometer readings, others need not have.
std::span<const char* const> ProjectTables();

/// Makes a project's table unless it is there.
void MakeProjectTable(oledb::SqlDatabase& database, const std::string& name);

/// Makes the tables that are missing and gives an index that no table has: `wanted`, else the one
/// after all that are there.
int MakeRoom(oledb::SqlDatabase& database, int wanted = 0);

/// Enters a project in a room made for it; `project.index` becomes its index.
void EnterProject(oledb::SqlDatabase& database, ProjectEntry& project);

/// The project of that index; Failure, which lists those that there are, when there is none.
ProjectEntry FindProject(oledb::SqlDatabase& database, int index);

}  // namespace lab
