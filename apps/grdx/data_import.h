#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lab/tables/table_files.h"

namespace console {

class MessageStream;

/// What a call reads into the project.
struct ImportRequest {
    std::vector<std::string> files;
    std::optional<lab::ValueKind> as;
    std::string sheet;
    std::string map;  ///< file with names of columns; empty: none
    bool dryRun = false;
};

/// Read files into the open suite's project, all or nothing, and print what became of it. Failure
/// when a file is refused; Ctrl-C ends the work and nothing is stored.
void ImportSamples(const ImportRequest& request, MessageStream& messages);
void ImportLayers(const ImportRequest& request, MessageStream& messages);
void ImportHydrometer(const ImportRequest& request, MessageStream& messages);

}  // namespace console
