#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/oledb/SqlDatabase.h"

namespace lab {

struct CopiedTable {
    std::string name;
    std::size_t rows = 0;
    std::vector<std::string> leftOut;  ///< columns that the other table does not have
};

struct CopiedProject {
    int index = 0;  ///< the same, or the next free one where others have it
    std::vector<CopiedTable> tables;
};

/// Copies all rows of a project into another database, whose tables are made where they are
/// missing, and reads them there again: Failure, which names table, row and values, when a row is
/// refused or is not what it was, and nothing is copied then.
CopiedProject CopyProject(oledb::SqlDatabase& from, int index, oledb::SqlDatabase& to);

}  // namespace lab
