#include "platform/oledb/providers/odbc/OdbcStatement.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <system_error>

#include "platform/oledb/providers/odbc/odbc_text.h"
#include "platform/oledb/providers/sql_tokens.h"
#include "platform/win32/number_text.h"

namespace oledb::odbc {
namespace {

constexpr std::size_t kRowsInBlock = 64;
/// Characters for which there is room at first; longer texts are rare.
constexpr std::size_t kWidestAtFirst = 256;
constexpr std::size_t kNumberWidth = 48;
constexpr SQLSMALLINT kLongestName = 256;

bool IsInteger(SQLSMALLINT type) {
    return type == SQL_INTEGER || type == SQL_SMALLINT || type == SQL_TINYINT ||
           type == SQL_BIGINT || type == SQL_BIT;
}
bool IsReal(SQLSMALLINT type) {
    return type == SQL_REAL || type == SQL_FLOAT || type == SQL_DOUBLE || type == SQL_NUMERIC ||
           type == SQL_DECIMAL;
}
bool IsBinary(SQLSMALLINT type) {
    return type == SQL_BINARY || type == SQL_VARBINARY || type == SQL_LONGVARBINARY;
}
bool IsPadded(SQLSMALLINT type) {
    return type == SQL_CHAR || type == SQL_WCHAR;
}

template <class Number>
bool ReadNumber(const std::string& text, Number& number) {
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    return !text.empty() && read.ec == std::errc{} && read.ptr == text.data() + text.size();
}

/// A number as drivers write it, some of them with the decimal sign of the user's locale. What is
/// none, as columns of some databases may hold any, stays a text.
Value NumberOf(SQLSMALLINT type, const std::string& text) {
    std::int64_t integer = 0;
    if (IsInteger(type) && ReadNumber(text, integer)) return Value::Of(integer);
    std::string pointed = text;
    std::replace(pointed.begin(), pointed.end(), ',', '.');
    double real = 0.0;
    if (!ReadNumber(pointed, real)) return Value::Of(std::string_view(text));
    const bool narrow = type == SQL_REAL && std::isfinite(real);
    return Value::Of(narrow ? win32::ShortestDouble(static_cast<float>(real)) : real);
}

}  // namespace

bool OdbcStatement::Reads() const {
    const std::vector<Token> tokens = Tokens(sql_);
    return !tokens.empty() && tokens.front().Is("SELECT");
}

bool OdbcStatement::Prepare(const std::shared_ptr<OdbcLink>& link) {
    handle_ = OdbcStatementHandle(link);
    prepared_ = false;
    columns_.clear();
    const std::u16string wide = WideText(sql_);
    const SQLRETURN result =
        SQLPrepareW(Handle(), Units(wide), static_cast<SQLINTEGER>(wide.size()));
    prepared_ = SQL_SUCCEEDED(result) && Describe();
    return prepared_;
}

bool OdbcStatement::Describe() {
    SQLSMALLINT count = 0;
    if (!SQL_SUCCEEDED(SQLNumResultCols(Handle(), &count))) return false;
    columns_.resize(static_cast<std::size_t>(count));
    for (SQLSMALLINT i = 0; i < count; ++i) {
        Column& column = columns_[static_cast<std::size_t>(i)];
        SQLWCHAR name[kLongestName];
        SQLSMALLINT length = 0;
        SQLSMALLINT digits = 0;
        SQLSMALLINT nullable = 0;
        SQLULEN size = 0;
        if (!SQL_SUCCEEDED(SQLDescribeColW(Handle(), static_cast<SQLUSMALLINT>(i + 1), name,
                                           kLongestName, &length, &column.type, &size, &digits,
                                           &nullable))) {
            return false;
        }
        column.name = Utf8Text(name, static_cast<std::size_t>(std::min(length, kLongestName)));
        const std::size_t characters = size == 0 ? kWidestAtFirst : std::min(size, kWidestAtFirst);
        if (IsInteger(column.type) || IsReal(column.type)) {
            column.bound = SQL_C_CHAR;
            column.width = kNumberWidth;
        } else {
            column.bound = IsBinary(column.type) ? SQL_C_BINARY : SQL_C_WCHAR;
            column.width = (characters + 1) * sizeof(SQLWCHAR);
        }
    }
    BindColumns();
    return true;
}

void OdbcStatement::BindColumns() {
    if (columns_.empty()) return;
    SQLSetStmtAttr(Handle(), SQL_ATTR_ROW_BIND_TYPE, SQL_BIND_BY_COLUMN, 0);
    SQLSetStmtAttr(Handle(), SQL_ATTR_ROW_ARRAY_SIZE, AsPointer(kRowsInBlock), 0);
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        Column& column = columns_[i];
        column.places.resize(column.width * kRowsInBlock);
        column.lengths.resize(kRowsInBlock);
        SQLBindCol(Handle(), static_cast<SQLUSMALLINT>(i + 1), column.bound, column.places.data(),
                   static_cast<SQLLEN>(column.width), column.lengths.data());
    }
}

int OdbcStatement::ParameterCount() const {
    SQLSMALLINT count = 0;
    SQLNumParams(Handle(), &count);
    return count;
}

bool OdbcStatement::Bind(std::size_t index, const Value& value) {
    Parameter& parameter = parameters_[index];
    SQLSMALLINT from = SQL_C_WCHAR;
    SQLSMALLINT to = SQL_WVARCHAR;
    SQLPOINTER place = nullptr;
    SQLULEN size = 1;
    switch (value.kind) {
        case Value::Kind::Null:
            parameter.length = SQL_NULL_DATA;
            break;
        case Value::Kind::Integer:
            from = SQL_C_SBIGINT;
            to = SQL_BIGINT;
            parameter.integer = value.integer;
            parameter.length = 0;
            place = &parameter.integer;
            break;
        case Value::Kind::Real:
            // As text: drivers that write numbers by themselves drop digits.
            from = SQL_C_CHAR;
            to = SQL_DOUBLE;
            parameter.narrow = win32::ShortestText(value.real);
            parameter.length = static_cast<SQLLEN>(parameter.narrow.size());
            place = parameter.narrow.data();
            break;
        case Value::Kind::Text:
            parameter.wide = WideText(value.text);
            parameter.length = static_cast<SQLLEN>(parameter.wide.size() * sizeof(char16_t));
            place = parameter.wide.data();
            size = std::max<SQLULEN>(parameter.wide.size(), 1);
            break;
        case Value::Kind::Blob:
            from = SQL_C_BINARY;
            to = SQL_VARBINARY;
            parameter.narrow = value.text;
            parameter.length = static_cast<SQLLEN>(parameter.narrow.size());
            place = parameter.narrow.data();
            size = std::max<SQLULEN>(parameter.narrow.size(), 1);
            break;
    }
    return SQL_SUCCEEDED(
        SQLBindParameter(Handle(), static_cast<SQLUSMALLINT>(index + 1), SQL_PARAM_INPUT, from, to,
                         size, 0, place, std::max<SQLLEN>(parameter.length, 0), &parameter.length));
}

bool OdbcStatement::Execute(const std::vector<Value>& parameters) {
    SQLFreeStmt(Handle(), SQL_CLOSE);
    changed_ = 0;
    parameters_.resize(parameters.size());
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        if (!Bind(i, parameters[i])) return false;
    }
    const SQLRETURN result = SQLExecute(Handle());
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) return false;
    rowless_ = columns_.empty() || result == SQL_NO_DATA;
    SQLLEN changed = 0;
    if (columns_.empty() && result != SQL_NO_DATA) SQLRowCount(Handle(), &changed);
    changed_ = std::max<SQLLEN>(changed, 0);
    return true;
}

Value OdbcStatement::Cell(const Column& column, std::size_t row, std::string& text) {
    const SQLLEN length = column.lengths[row];
    if (length == SQL_NULL_DATA) return {};
    const char* const place = column.places.data() + row * column.width;
    const auto bytes = static_cast<std::size_t>(length);
    if (column.bound == SQL_C_WCHAR) {
        text = Utf8Text(place, bytes / sizeof(SQLWCHAR));
        if (IsPadded(column.type)) text.resize(text.find_last_not_of(' ') + 1);
        return Value::Of(std::string_view(text));
    }
    text.assign(place, bytes);
    if (column.bound == SQL_C_CHAR) return NumberOf(column.type, text);
    Value value = Value::Of(std::string_view(text));
    value.kind = Value::Kind::Blob;
    return value;
}

bool OdbcStatement::NoteCut(std::size_t rows) {
    bool cut = false;
    for (Column& column : columns_) {
        const std::size_t end = column.bound == SQL_C_WCHAR ? sizeof(SQLWCHAR) : 1;
        std::size_t needed = column.width;
        for (std::size_t row = 0; row < rows; ++row) {
            const SQLLEN length = column.lengths[row];
            if (length == SQL_NO_TOTAL) needed = std::max(needed, column.width * 4);
            if (length >= 0) needed = std::max(needed, static_cast<std::size_t>(length) + end);
        }
        cut = cut || needed > column.width;
        column.width = needed;
    }
    return cut;
}

bool OdbcStatement::FetchAll(RowBuffer& rows, bool& cut) {
    cut = false;
    if (rowless_) return true;
    SQLULEN fetched = 0;
    SQLSetStmtAttr(Handle(), SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
    SQLRETURN result = SQL_SUCCESS;
    std::string text;
    while (SQL_SUCCEEDED(result = SQLFetch(Handle()))) {
        cut = NoteCut(fetched) || cut;
        for (std::size_t row = 0; row < fetched && !cut; ++row) {
            rows.BeginRow();
            for (const Column& column : columns_) rows.Append(Cell(column, row, text));
        }
        changed_ += static_cast<std::int64_t>(fetched);
        if (cut) break;
    }
    SQLSetStmtAttr(Handle(), SQL_ATTR_ROWS_FETCHED_PTR, nullptr, 0);
    if (cut) {
        SQLFreeStmt(Handle(), SQL_CLOSE);
        BindColumns();
        return true;
    }
    if (result == SQL_NO_DATA) SQLFreeStmt(Handle(), SQL_CLOSE);
    return result == SQL_NO_DATA;
}

}  // namespace oledb::odbc
