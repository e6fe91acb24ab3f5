#pragma once

#include <nlohmann/json_fwd.hpp>

#include "lab/checks/Finding.h"

namespace lab {

/// A list of objects as `grdx check --json` prints it.
nlohmann::ordered_json FindingsAsJson(const FindingList& findings);

}  // namespace lab
