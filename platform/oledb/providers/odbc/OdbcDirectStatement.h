#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/oledb/Provider.h"
#include "platform/oledb/providers/odbc/OdbcConnection.h"

namespace oledb::odbc {

/// A statement as the program wrote it. Its rows are read to the end when it is run.
class OdbcDirectStatement final : public Statement {
public:
    OdbcDirectStatement(std::shared_ptr<OdbcConnection> connection, std::string sql)
        : connection_(std::move(connection)), statement_(std::move(sql)) {}

    HRESULT Prepare(std::string& reason);

    HRESULT Execute(const std::vector<Value>& parameters, std::string& reason) override;
    HRESULT Fetch(bool& found, std::string& reason) override;
    std::int64_t ChangedRows() const override {
        return statement_.Reads() ? 0 : statement_.ChangedRows();
    }
    Value Column(std::size_t column) const override { return row_[column]; }
    std::string ColumnName(std::size_t column) const override {
        return statement_.ColumnName(column);
    }

private:
    std::shared_ptr<OdbcConnection> connection_;
    OdbcStatement statement_;
    RowBuffer rows_;
    std::size_t next_ = 0;
    std::vector<Value> row_;
};

}  // namespace oledb::odbc
