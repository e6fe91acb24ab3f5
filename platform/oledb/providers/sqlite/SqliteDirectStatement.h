#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/oledb/Provider.h"
#include "platform/oledb/providers/sqlite/SqliteConnection.h"
#include "platform/oledb/providers/sqlite/SqliteStatement.h"

namespace oledb::sqlite {

/// A statement as the program wrote it.
class SqliteDirectStatement final : public Statement {
public:
    explicit SqliteDirectStatement(std::shared_ptr<SqliteConnection> connection)
        : connection_(std::move(connection)) {}

    HRESULT Prepare(const std::string& sql, std::string& reason);

    HRESULT Execute(const std::vector<Value>& parameters, std::string& reason) override;
    HRESULT Fetch(bool& found, std::string& reason) override;
    std::int64_t ChangedRows() const override { return changed_; }
    Value Column(std::size_t column) const override;
    std::string ColumnName(std::size_t column) const override;

private:
    std::shared_ptr<SqliteConnection> connection_;
    SqliteStatement statement_;
    int stepped_ = 0;  ///< what the library said to the step that Fetch is to tell next; 0 for none
    std::int64_t changed_ = 0;
};

}  // namespace oledb::sqlite
