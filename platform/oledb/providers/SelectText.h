#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/oledb/Value.h"
#include "platform/oledb/oledb_errors.h"

namespace oledb {

/// A select taken apart as far as changing its rows needs it.
struct SelectText {
    /// True for rows of one table, none of them a computed one: no join, grouping, compound or
    /// function. The parts below are filled only then.
    bool fromOneTable = false;
    bool distinct = false;
    std::string table;   ///< the table's name without quotes
    std::string schema;  ///< the name in front of it without quotes; often empty
    std::string name;    ///< both as they are named after FROM
    std::string list;    ///< what stands between SELECT [DISTINCT] and FROM
    std::string from;    ///< the table as it is named after FROM, alias included
    /// What follows, with "?" for texts and whole numbers of its condition, so that the same
    /// question about another sample is the same text.
    std::string tail;
    std::vector<Value> parameters;  ///< texts point into `literals`
    std::vector<std::string> literals;
    std::string statement;  ///< the whole statement as given, without semicolon

    /// Takes one select of one statement, with or without a semicolon at its end. Comments are not
    /// taken. DB_E_MULTIPLESTATEMENTS or DB_E_ERRORSINCOMMAND with the reason in `error` otherwise;
    /// what is wrong beyond that shows when the statement is prepared.
    HRESULT Parse(std::string_view utf8, std::string& error);

    /// The same for all selects that differ in parameters only.
    std::string Key() const;
};

}  // namespace oledb
