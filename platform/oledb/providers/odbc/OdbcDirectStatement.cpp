#include "platform/oledb/providers/odbc/OdbcDirectStatement.h"

#include "platform/oledb/providers/sql_tokens.h"

namespace oledb::odbc {

HRESULT OdbcDirectStatement::Prepare(std::string& reason) {
    // Drivers run several at once.
    std::size_t words = 0;
    for (const Token& token : Tokens(statement_.Sql())) {
        const bool behind = words > 0 && token.IsSign(';');
        words = behind ? 0 : words + 1;
        if (behind) break;
    }
    if (words == 0) {
        reason = "more than one statement, or none: " + statement_.Sql();
        return DB_E_ERRORSINCOMMAND;
    }
    return connection_->Database().Prepare(statement_, reason);
}

HRESULT OdbcDirectStatement::Execute(const std::vector<Value>& parameters, std::string& reason) {
    OdbcDatabase& database = connection_->Database();
    HRESULT result = database.Prepare(statement_, reason);
    if (FAILED(result)) return result;
    if (const int count = statement_.ParameterCount();
        count != static_cast<int>(parameters.size())) {
        reason = "the statement has " + std::to_string(count) + " parameters, and " +
                 std::to_string(parameters.size()) + " values were given";
        return DB_E_ERRORSINCOMMAND;
    }
    rows_ = RowBuffer();
    next_ = 0;
    return database.Run(statement_, parameters, rows_, reason);
}

HRESULT OdbcDirectStatement::Fetch(bool& found, std::string& /*reason*/) {
    found = next_ < rows_.RowCount();
    if (found) rows_.Read(next_++, row_);
    return S_OK;
}

}  // namespace oledb::odbc
