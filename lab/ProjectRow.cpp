#include "lab/ProjectRow.h"

#include "lab/Failure.h"
#include "lab/suite_database.h"

namespace lab {

ProjectRow::ProjectRow(int index)
    : index_(index), database_(OpenProjectDatabase(oledb::Access::Change)) {
    oledb::SqlStatement row(database_,
                            "SELECT GCBH, GCMC, GCBZ, GCSJ FROM x_GongCheng WHERE GCSY = ?");
    row.Bind(1, index);
    if (row.Step()) {
        const bool checked = !row.IsNull(3) && row.Integer(3) <= 0;
        facts_ = ProjectFacts{row.Text(0), row.Text(1), row.Integer(2), checked};
    }
}

void ProjectRow::Write(const ProjectFacts& facts) {
    if (facts == *facts_) {
        return;
    }
    oledb::SqlTransaction transaction(database_);
    const auto write = [&](const char* column, const auto& before, const auto& now) {
        if (before == now) {
            return;
        }
        oledb::SqlStatement update(
            database_, std::string("UPDATE x_GongCheng SET ") + column + " = ? WHERE GCSY = ?");
        update.Bind(1, now);
        update.Bind(2, index_);
        if (update.Run() == 0) {
            throw Failure("x_GongCheng: the row does not exist any more");
        }
    };
    write("GCBH", facts_->number, facts.number);
    write("GCMC", facts_->name, facts.name);
    write("GCBZ", facts_->code, facts.code);
    write("GCSJ", facts_->checked ? 0 : 1, facts.checked ? 0 : 1);
    transaction.Commit();
    facts_ = facts;
}

}  // namespace lab
