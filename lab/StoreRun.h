#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "lab/MarkRemoval.h"
#include "lab/Project.h"
#include "platform/oledb/SqlDatabase.h"

namespace lab {

/// What storing has done, or would do.
struct StoreSummary {
    std::size_t added = 0;
    std::size_t unchanged = 0;
    std::vector<std::string> changed;  ///< by name; their stored results and marks are gone
    std::vector<std::string> notes;    ///< what the user should know besides
};

struct StoreOptions {
    bool dryRun = false;  ///< only tells
    /// Hears now and then how much has been stored, from 0 to 1. What it throws ends the storing,
    /// and nothing is stored.
    std::function<void(double done)> progress;
};

/// One storing into the open suite's project: everything of it or nothing.
class StoreRun {
public:
    /// Failure when project or database cannot be opened, or stays locked.
    explicit StoreRun(const StoreOptions& options);

    const Project& OfProject() const { return project_; }
    /// The project's number as profiles have it (GBK).
    std::string ProjectNumber() const;
    oledb::SqlDatabase& Database() { return database_; }
    /// False when it only tells.
    bool Writes() const { return transaction_ != nullptr; }
    void Report(std::size_t done, std::size_t all) const;
    /// Writes what the marks have lost and then the data, both or neither.
    void Commit(MarkRemoval& marks);

private:
    const StoreOptions& options_;
    Project project_;
    oledb::SqlDatabase database_;
    std::unique_ptr<oledb::SqlTransaction> transaction_;
};

}  // namespace lab
