#include "lab/StoreRun.h"

#include "lab/suite_database.h"
#include "platform/win32/code_page.h"

namespace lab {

StoreRun::StoreRun(const StoreOptions& options)
    : options_(options),
      project_(ReadProject()),
      database_(OpenProjectDatabase(options.dryRun ? oledb::Access::Read : oledb::Access::Change)),
      transaction_(options.dryRun ? nullptr : std::make_unique<oledb::SqlTransaction>(database_)) {}

std::string StoreRun::ProjectNumber() const {
    return win32::GbkFromUtf8(project_.profile.number);
}

void StoreRun::Report(std::size_t done, std::size_t all) const {
    constexpr std::size_t kBetween = 256;
    if (options_.progress && done % kBetween == 0) {
        options_.progress(static_cast<double>(done) / static_cast<double>(all));
    }
}

void StoreRun::Commit(MarkRemoval& marks) {
    marks.Write();
    transaction_->Commit();
    marks.Keep();
}

}  // namespace lab
