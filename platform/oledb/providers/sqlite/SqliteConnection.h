#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/oledb/Provider.h"
#include "platform/oledb/providers/KeyedRows.h"
#include "platform/oledb/providers/sqlite/SelectPlan.h"
#include "platform/oledb/providers/sqlite/SqliteDatabase.h"

namespace oledb::sqlite {

/// A database file. Selects keep their prepared statement, so that the same question about another
/// key costs no new preparation.
class SqliteConnection final : public Connection,
                               public RowAccess,
                               public std::enable_shared_from_this<SqliteConnection> {
public:
    HRESULT Open(const std::string& path, Access access) { return database_.Open(path, access); }

    std::string Name() const override { return database_.Path(); }
    HRESULT Select(std::string_view statement, std::unique_ptr<Selection>& selection) override;

    HRESULT Prepare(std::string_view sql, std::unique_ptr<Statement>& statement,
                    std::string& reason) override;
    HRESULT Columns(const std::string& table, std::vector<std::string>& names,
                    std::string& reason) override;
    HRESULT Begin(std::string& reason) override { return database_.Begin(reason); }
    HRESULT Commit(std::string& reason) override { return database_.Commit(reason); }
    void Rollback() override { database_.Rollback(); }

    std::string Quoted(const std::string& name) const override { return QuotedName(name); }
    HRESULT ReadRows(const std::string& sql, const std::vector<Value>& parameters, RowBuffer& rows,
                     std::string& reason) override;
    HRESULT ChangeOne(const std::string& sql, const std::vector<Value>& parameters,
                      RowBuffer& /*returned*/, std::string& reason) override {
        return database_.ChangeOne(sql, parameters, reason);
    }

    SqliteDatabase& Database() { return database_; }

private:
    HRESULT MakePlan(const SelectText& text, const std::string& key,
                     std::shared_ptr<SelectPlan>& plan);
    HRESULT Execute(const std::shared_ptr<SelectPlan>& plan, const SelectText& text,
                    std::unique_ptr<Selection>& selection);

    SqliteDatabase database_;
    std::unordered_map<std::string, std::shared_ptr<SelectPlan>> plans_;  ///< by SelectText::Key
};

/// The properties are "Data Source", the path of the file as a Windows path, and nothing else.
HRESULT Connect(const InitString& properties, Access access,
                std::shared_ptr<Connection>& connection);

}  // namespace oledb::sqlite
