#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/db/AcDb.h"

/// What was damaged in the file that a drawing was read from. Nothing of it is in the drawing, so
/// saving over that file would destroy what another program may still get out of it.
struct DrawingDamage {
    std::string file;                  ///< the path, as the file system has it
    std::vector<AcDbHandle> objects;   ///< that are missing
    std::vector<std::string> reasons;  ///< the first ones, UTF-8: "object 4A has a wrong check sum"
    std::size_t count = 0;             ///< of all reasons

    bool empty() const { return count == 0; }
    void note(std::string reason);
    /// For the user: how much is missing and why, a line each.
    std::vector<std::string> report() const;
};
