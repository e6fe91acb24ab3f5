#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/oledb/Provider.h"
#include "platform/oledb/providers/KeyedRows.h"
#include "platform/oledb/providers/SelectText.h"
#include "platform/oledb/providers/odbc/OdbcDatabase.h"

namespace oledb::odbc {

/// A database on a server. Selects and changes keep their prepared statements.
class OdbcConnection final : public Connection,
                             public RowAccess,
                             public std::enable_shared_from_this<OdbcConnection> {
public:
    HRESULT Open(const InitString& properties, Access access) {
        return database_.Open(properties, access);
    }

    std::string Name() const override { return database_.Name(); }
    const char* BinaryOrder() const override { return database_.Server().binaryOrder; }
    HRESULT Select(std::string_view statement, std::unique_ptr<Selection>& selection) override;
    HRESULT Prepare(std::string_view sql, std::unique_ptr<Statement>& statement,
                    std::string& reason) override;
    HRESULT Columns(const std::string& table, std::vector<std::string>& names,
                    std::string& reason) override {
        return database_.Columns(table, names, reason);
    }
    HRESULT Begin(std::string& reason) override { return database_.Begin(reason); }
    HRESULT Commit(std::string& reason) override { return database_.Commit(reason); }
    void Rollback() override { database_.Rollback(); }

    std::string Quoted(const std::string& name) const override { return database_.Quoted(name); }
    HRESULT ReadRows(const std::string& sql, const std::vector<Value>& parameters, RowBuffer& rows,
                     std::string& reason) override;
    HRESULT ChangeOne(const std::string& sql, const std::vector<Value>& parameters,
                      RowBuffer& returned, std::string& reason) override;

    OdbcDatabase& Database() { return database_; }

private:
    struct Plan {
        OdbcStatement statement{""};
        bool hasParameters = false;
        KeyedRows rows;
    };
    HRESULT MakePlan(const SelectText& text, Plan& plan, std::string& reason);
    /// Prepares the select with its keys behind the columns asked for.
    HRESULT PrepareKeyed(const SelectText& text, Plan& plan, std::string& reason);
    HRESULT Execute(const std::shared_ptr<Plan>& plan, const SelectText& text,
                    std::unique_ptr<Selection>& selection, std::string& reason);

    OdbcDatabase database_;
    std::unordered_map<std::string, std::shared_ptr<Plan>> plans_;  ///< by SelectText::Key
};

/// The properties are those of odbc_init_string.h.
HRESULT Connect(const InitString& properties, Access access,
                std::shared_ptr<Connection>& connection);

}  // namespace oledb::odbc
