#pragma once

#include <string>
#include <vector>

namespace lab {

enum class ExportKind { kResults, kPassing, kItems, kAgs };
enum class ExportForm { kCsv, kWorkbook, kJson, kAgs };

/// The form that a file of that name gets, by its ending without regard to case: .csv, .xlsx and
/// .json, and .ags for kAgs alone. Failure for any other.
ExportForm FormOfFile(ExportKind kind, const std::string& file);

struct Export {
    std::string content;
    /// What the user should know: which samples are not in it, and why.
    std::vector<std::string> leftOut;
    std::vector<std::string> notes;
};

/// The open suite's project in that form. Failure when it cannot be read or the form cannot hold
/// it.
Export ExportProject(ExportKind kind, ExportForm form);

}  // namespace lab
