#pragma once

#include <string>
#include <vector>

#include "lab/Sample.h"
#include "platform/oledb/SqlDatabase.h"

namespace lab {

/// A sample as the project database has it, in one or more of its three tables.
struct StoredSample {
    /// A cell whose text is no number though one belongs there; the number is missing then.
    struct Unreadable {
        std::string table;
        std::string column;
        std::string text;
    };

    Sample data;  ///< items in the order of their numbers
    bool hasSampleRow = false;
    bool hasResultRow = false;
    std::vector<Unreadable> unreadable;
};

/// The project's samples in the order of boreholes and samples, or those of one borehole (UTF-8).
/// Numbers are as the charts read them.
std::vector<StoredSample> ReadStoredSamples(oledb::SqlDatabase& database, int projectIndex,
                                            const std::string* borehole = nullptr);

}  // namespace lab
