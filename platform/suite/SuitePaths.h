#pragma once

#include <string>

namespace suite {

/// What the suite.ini of a folder says. GBK, paths are absolute Windows paths.
struct SuitePaths {
    std::string folder;  ///< of suite.ini
    std::string projectProfile;
    std::string settingsProfile;
    std::string markProfile;
    std::string registeredFolder;
    std::string database;  ///< initialisation string
};

}  // namespace suite
