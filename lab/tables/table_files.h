#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lab/Sample.h"
#include "lab/tables/ColumnNames.h"
#include "lab/tables/Findings.h"
#include "lab/tables/TableSource.h"

namespace lab {

/// What the values of a table of samples are.
enum class ValueKind {
    kRetained,    ///< mass on each sieve, g
    kCumulative,  ///< mass on each sieve and all coarser ones, g
    kPassing      ///< percent of the total that is finer
};

/// A file and its content, whatever it is.
struct TableFile {
    std::string name;  ///< told in messages
    std::string bytes;
};

/// How files are to be read.
struct TableOptions {
    std::optional<ValueKind> as = std::nullopt;  ///< nothing: as the table itself says
    std::string sheet;                           ///< of workbooks; empty: the first
    ColumnNames names;
    /// Hears now and then what is read and how much of it has been, from 0 to 1. What it throws
    /// ends the reading.
    std::function<void(const std::string& name, double done)> progress;
};

/// The samples of the files, in the order of their first rows. What is wrong with the files is in
/// `findings`; when something is, the samples are not to be used.
///
/// A file is a text table or a workbook's sheet, with a row for each sieve item or for each sample,
/// or an AGS4 file; which, is told by its content. Failure when a file is none of these.
std::vector<Sample> ReadSamples(const std::vector<TableFile>& files, const TableOptions& options,
                                Findings& findings);

/// Likewise the layers. Each grain class is one of the standard sizes, once.
std::vector<Layer> ReadLayers(const std::vector<TableFile>& files, const TableOptions& options,
                              Findings& findings);

/// A table of the file, for any kind of rows. Failure for an AGS4 file.
std::unique_ptr<TableSource> OpenTable(const TableFile& file, const TableOptions& options,
                                       Findings& findings);

}  // namespace lab
