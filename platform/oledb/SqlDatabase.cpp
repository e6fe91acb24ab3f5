#include "platform/oledb/SqlDatabase.h"

#include <cmath>
#include <limits>
#include <utility>

#include "platform/oledb/last_error.h"
#include "platform/win32/Failure.h"
#include "platform/win32/code_page.h"
#include "platform/win32/number_text.h"

namespace oledb {
namespace {

/// Who is told by an exception does not hear it from the listener, too.
class Quiet {
public:
    Quiet() : listener_(SetErrorListener(nullptr)) {}
    ~Quiet() { SetErrorListener(std::move(listener_)); }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

private:
    ErrorListener listener_;
};

}  // namespace

SqlDatabase::SqlDatabase(std::string_view initString, Access access) {
    const Quiet quiet;
    InitString properties;
    const Provider* provider = nullptr;
    HRESULT result = ReadInitString(initString, properties, provider);
    if (SUCCEEDED(result)) result = provider->connect(properties, access, connection_);
    if (FAILED(result)) throw win32::Failure(LastErrorText());
}

void SqlDatabase::Check(HRESULT result, const std::string& reason) const {
    if (FAILED(result)) throw win32::Failure(connection_->Name() + ": " + reason);
}

void SqlDatabase::Execute(std::string_view sql) {
    SqlStatement(*this, sql).Run();
}

std::vector<std::string> SqlDatabase::Columns(const std::string& table) const {
    std::vector<std::string> names;
    std::string reason;
    Check(connection_->Columns(table, names, reason), reason);
    return names;
}

SqlStatement::SqlStatement(SqlDatabase& database, std::string_view sql) : database_(database) {
    std::string reason;
    database_.Check(database.connection_->Prepare(sql, statement_, reason), reason);
}

SqlStatement::Parameter& SqlStatement::At(int parameter) {
    running_ = false;
    const auto count = static_cast<std::size_t>(parameter);
    if (parameters_.size() < count) parameters_.resize(count);
    return parameters_[count - 1];
}

void SqlStatement::Bind(int parameter, std::int64_t value) {
    At(parameter).value = Value::Of(value);
}

void SqlStatement::Bind(int parameter, double value) {
    At(parameter).value = Value::Of(value);
}

void SqlStatement::Bind(int parameter, const std::optional<double>& value) {
    At(parameter).value = value ? Value::Of(*value) : Value();
}

void SqlStatement::Bind(int parameter, std::string_view utf8) {
    Parameter& bound = At(parameter);
    bound.text = utf8;
    bound.value.kind = Value::Kind::Text;
}

void SqlStatement::BindNull(int parameter) {
    At(parameter).value = Value();
}

void SqlStatement::Execute() {
    std::vector<Value> values;
    for (const Parameter& parameter : parameters_) {
        const bool text = parameter.value.kind == Value::Kind::Text;
        values.push_back(text ? Value::Of(std::string_view(parameter.text)) : parameter.value);
    }
    std::string reason;
    database_.Check(statement_->Execute(values, reason), reason);
    running_ = true;
}

bool SqlStatement::Step() {
    if (!running_) Execute();
    std::string reason;
    const HRESULT result = statement_->Fetch(running_, reason);
    running_ = running_ && SUCCEEDED(result);
    database_.Check(result, reason);
    return running_;
}

std::int64_t SqlStatement::Run() {
    running_ = false;
    while (Step()) {
    }
    return statement_->ChangedRows();
}

Value SqlStatement::Column(int column) const {
    return statement_->Column(static_cast<std::size_t>(column));
}

bool SqlStatement::IsNull(int column) const {
    return Column(column).kind == Value::Kind::Null;
}

void SqlStatement::RefuseNumber(int column, const char* what) const {
    throw win32::Failure(database_.connection_->Name() + ": column " +
                         statement_->ColumnName(static_cast<std::size_t>(column)) + ": \"" +
                         Text(column) + "\" is no " + what);
}

int SqlStatement::Integer(int column) const {
    const double number = Number(column).value_or(0.0);
    using Limits = std::numeric_limits<int>;
    if (number != std::trunc(number) || number < Limits::min() || number > Limits::max()) {
        RefuseNumber(column, "whole number");
    }
    return static_cast<int>(number);
}

std::optional<double> SqlStatement::Number(int column) const {
    const Value value = Column(column);
    switch (value.kind) {
        case Value::Kind::Null:
            return std::nullopt;
        case Value::Kind::Integer:
            return static_cast<double>(value.integer);
        case Value::Kind::Real:
            return value.real;
        default:
            break;
    }
    const std::string_view text = win32::TrimBlanks(value.text);
    const std::optional<double> number = win32::ParseNumber(text);
    if (!number && !text.empty()) RefuseNumber(column, "number");
    return number;
}

std::string SqlStatement::Text(int column) const {
    const Value value = Column(column);
    switch (value.kind) {
        case Value::Kind::Integer:
            return std::to_string(value.integer);
        case Value::Kind::Real:
            return win32::ShortestText(value.real);
        default:
            return std::string(value.text);
    }
}

SqlTransaction::SqlTransaction(SqlDatabase& database) : database_(database) {
    std::string reason;
    const HRESULT result = database_.connection_->Begin(reason);
    if (FAILED(result)) database_.connection_->Rollback();
    database_.Check(result, reason);
}

SqlTransaction::~SqlTransaction() {
    if (open_) database_.connection_->Rollback();
}

void SqlTransaction::Commit() {
    std::string reason;
    database_.Check(database_.connection_->Commit(reason), reason);
    open_ = false;
}

}  // namespace oledb
