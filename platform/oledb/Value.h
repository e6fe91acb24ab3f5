#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace oledb {

/// A value as the database has it, before it is bound.
struct Value {
    enum class Kind : unsigned char { Null, Integer, Real, Text, Blob };
    Kind kind = Kind::Null;
    std::int64_t integer = 0;
    double real = 0.0;
    /// UTF-8, or the blob's bytes; belongs to whoever made the value.
    std::string_view text;

    bool operator==(const Value&) const = default;

    static Value Of(std::int64_t number) { return {Kind::Integer, number, 0.0, {}}; }
    static Value Of(double number) { return {Kind::Real, 0, number, {}}; }
    static Value Of(std::string_view utf8) { return {Kind::Text, 0, 0.0, utf8}; }
};

/// A value for a column, counted from 0.
struct ColumnValue {
    std::size_t column;
    Value value;
};

}  // namespace oledb
