#pragma once

#include <set>
#include <string>

#include "platform/win32/ProfileText.h"

namespace lab {

/// The marks of what was drawn, in one profile.
class DrawnMarks {
public:
    /// `profile` is a path as profiles have it (GBK); a missing one holds no marks. Failure when it
    /// cannot be read.
    explicit DrawnMarks(const std::string& profile);

    /// The names listed under a key; texts are GBK.
    std::set<std::string> Under(const std::string& key) const;

private:
    win32::ProfileText text_;
};

}  // namespace lab
