#pragma once

#include <string>

namespace host {

/// What `NAME --version` says: name, version and commit on the first line, then the formats that
/// the programs read and write. Without a line break at its end.
std::string VersionText(const std::string& program);

}  // namespace host
