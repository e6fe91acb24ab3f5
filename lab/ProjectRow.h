#pragma once

#include <optional>

#include "lab/Project.h"
#include "platform/oledb/SqlDatabase.h"

namespace lab {

/// A project's row in the table x_GongCheng of the open suite's database.
class ProjectRow {
public:
    /// Failure when the database cannot be read; no such row is none.
    explicit ProjectRow(int index);

    /// A number or name that the table has none for is empty, a missing code 0, and without a flag
    /// the data count as unchecked.
    const std::optional<ProjectFacts>& Facts() const { return facts_; }
    /// Changes what differs, in one statement: Failure leaves the row as it is. There must be a
    /// row.
    void Write(const ProjectFacts& facts);

private:
    int index_;
    oledb::SqlDatabase database_;
    std::optional<ProjectFacts> facts_;
};

}  // namespace lab
