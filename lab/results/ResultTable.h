#pragma once

#include <string>
#include <variant>
#include <vector>

#include "lab/checks/Finding.h"

namespace lab {

/// A table of results on its way into a file. Texts are UTF-8.
struct ResultTable {
    /// monostate is an empty cell; codes of findings stand in one as a list.
    using Cell = std::variant<std::monostate, std::string, double, bool, FindingList>;
    struct Column {
        std::string name;
        std::string remark;  ///< follows the name in brackets where a reader is to see it
    };

    std::string title;
    std::vector<Column> columns;
    std::vector<std::vector<Cell>> rows;  ///< of each a cell a column
};

}  // namespace lab
