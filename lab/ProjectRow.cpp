#include "lab/ProjectRow.h"

#include <charconv>
#include <vector>

#include "lab/Failure.h"
#include "platform/oledb/last_error.h"
#include "platform/suite/orvik8.h"
#include "platform/win32/code_page.h"

namespace lab {

namespace {
constexpr std::size_t kInitStringSize = 1024;
enum Column : std::size_t { kNumber, kName, kCode, kDataCheck };

void Check(HRESULT result) {
    if (FAILED(result)) {
        throw Failure(oledb::LastErrorText());
    }
}

std::shared_ptr<oledb::Connection> Connect() {
    char text[kInitStringSize] = "";
    oledb::InitString properties;
    std::string error;
    GetDatabaseInitString(text);
    if (!properties.Parse(win32::Utf8FromGbk(text), error)) {
        throw Failure("the suite's database string: " + error);
    }
    const std::string* const name = properties.Find("Provider");
    const oledb::Provider* const provider = name != nullptr ? oledb::FindProvider(*name) : nullptr;
    if (provider == nullptr) {
        throw Failure("the suite's database string names no provider that is known: " +
                      win32::Utf8FromGbk(text));
    }
    std::shared_ptr<oledb::Connection> connection;
    Check(provider->connect(properties, connection));
    return connection;
}

/// Columns are of the kind that whoever filled the table has given them.
int NumberOf(const oledb::Value& value, int absent) {
    using Kind = oledb::Value::Kind;
    int number = absent;
    if (value.kind == Kind::Integer) {
        number = static_cast<int>(value.integer);
    } else if (value.kind == Kind::Real) {
        number = static_cast<int>(value.real);
    } else if (value.kind == Kind::Text) {
        std::from_chars(value.text.data(), value.text.data() + value.text.size(), number);
    }
    return number;
}

std::string TextOf(const oledb::Value& value) {
    return value.kind == oledb::Value::Kind::Integer ? std::to_string(value.integer)
                                                     : std::string(value.text);
}
}  // namespace

ProjectRow::ProjectRow(int index) : connection_(Connect()) {
    const std::string select =
        "SELECT GCBH,GCMC,GCBZ,GCSJ FROM x_GongCheng WHERE GCSY = " + std::to_string(index);
    Check(connection_->Select(select, row_));
    if (row_->RowCount() > 0) {
        Read();
    }
}

void ProjectRow::Read() {
    std::vector<oledb::Value> values;
    Check(row_->Read(0, values));
    facts_ = ProjectFacts{TextOf(values[kNumber]), TextOf(values[kName]),
                          NumberOf(values[kCode], 0), NumberOf(values[kDataCheck], 1) <= 0};
}

void ProjectRow::Write(const ProjectFacts& facts) {
    std::vector<oledb::ColumnValue> changes;
    if (facts.number != facts_->number) {
        changes.push_back({kNumber, oledb::Value::Of(std::string_view(facts.number))});
    }
    if (facts.name != facts_->name) {
        changes.push_back({kName, oledb::Value::Of(std::string_view(facts.name))});
    }
    if (facts.code != facts_->code) {
        changes.push_back({kCode, oledb::Value::Of(std::int64_t{facts.code})});
    }
    if (facts.checked != facts_->checked) {
        changes.push_back({kDataCheck, oledb::Value::Of(std::int64_t{facts.checked ? 0 : 1})});
    }
    if (!changes.empty()) {
        std::string reason;
        if (FAILED(row_->Update(0, changes, reason))) {
            throw Failure(row_->Title() + ": " + reason);
        }
        facts_ = facts;
    }
}

}  // namespace lab
