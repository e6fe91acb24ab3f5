#pragma once

#include "lab/tables/SampleBuilder.h"
#include "lab/tables/table_files.h"

namespace lab {

/// Reads a table with a row for each sieve item, or for each sample with a column for each size.
/// The rows of a sample need not follow each other but must agree on everything but size and value.
void ReadSampleTable(TableSource& source, const TableOptions& options, SampleBuilder& builder,
                     Findings& findings);

/// What the database's column of test methods holds, in characters.
inline constexpr std::size_t kMethodLength = 15;

}  // namespace lab
