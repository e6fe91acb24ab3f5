#include "platform/oledb/providers/sqlite/SqliteConnection.h"

#include <cstddef>

#include "platform/oledb/last_error.h"
#include "platform/oledb/providers/sqlite/SelectText.h"
#include "platform/oledb/providers/sqlite/SqliteSelection.h"
#include "platform/win32/code_page.h"
#include "platform/win32/windows_path.h"

namespace oledb::sqlite {
namespace {

/// Selects kept prepared; far more than a project's tables need.
constexpr std::size_t kKeptPlans = 64;

}  // namespace

HRESULT SqliteConnection::FindPlan(const SelectText& text, std::shared_ptr<SelectPlan>& plan) {
    const std::string key = text.fromOneTable ? (text.distinct ? "D " : "A ") + text.list +
                                                    " FROM " + text.from + text.tail
                                              : text.statement;
    if (const auto kept = plans_.find(key); kept != plans_.end()) {
        plan = kept->second;
        return S_OK;
    }
    auto made = std::make_shared<SelectPlan>();
    const HRESULT result = made->Prepare(database_, text);
    if (FAILED(result)) return result;
    if (plans_.size() >= kKeptPlans) plans_.clear();
    plan = plans_.emplace(key, std::move(made)).first->second;
    return S_OK;
}

HRESULT SqliteConnection::Select(std::string_view statement,
                                 std::unique_ptr<Selection>& selection) {
    SelectText text;
    std::string error;
    const HRESULT parsed = text.Parse(statement, error);
    if (FAILED(parsed)) return SetLastError(parsed, "statement " + error);
    std::shared_ptr<SelectPlan> plan;
    HRESULT result = FindPlan(text, plan);
    if (FAILED(result)) return result;
    auto made = std::make_unique<SqliteSelection>(shared_from_this(), plan);
    result = made->Execute(text.parameters);
    if (FAILED(result)) return result;
    selection = std::move(made);
    return S_OK;
}

HRESULT Connect(const InitString& properties, std::shared_ptr<Connection>& connection) {
    for (const auto& [keyword, value] : properties.Entries()) {
        if (!InitString::SameKeyword(keyword, "Provider") &&
            !InitString::SameKeyword(keyword, "Data Source")) {
            return SetLastError(DB_E_BADINITSTRING,
                                "initialisation string: SQLite knows no \"" + keyword + "\"");
        }
    }
    const std::string* const source = properties.Find("Data Source");
    if (source == nullptr || source->empty()) {
        return SetLastError(DB_E_BADINITSTRING, "initialisation string: Data Source is missing");
    }
    auto made = std::make_shared<SqliteConnection>();
    const HRESULT result = made->Open(win32::FileSystemPath(win32::GbkFromUtf8(*source)));
    if (SUCCEEDED(result)) connection = std::move(made);
    return result;
}

}  // namespace oledb::sqlite
