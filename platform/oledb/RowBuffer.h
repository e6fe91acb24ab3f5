#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/oledb/Value.h"

namespace oledb {

/// Rows of values, packed: nine bytes a number, five and its bytes a text, so that a walk over some
/// hundred thousand rows fits in a few megabytes.
class RowBuffer {
public:
    void BeginRow() { starts_.push_back(bytes_.size()); }
    /// Appends to the row begun last.
    void Append(const Value& value);
    std::size_t RowCount() const { return starts_.size(); }
    /// The row's values in the order they were appended. Their texts live as long as the buffer is
    /// not appended to.
    void Read(std::size_t row, std::vector<Value>& values) const;

private:
    std::string bytes_;
    std::vector<std::size_t> starts_;
};

}  // namespace oledb
