#pragma once

#include <compare>
#include <string>
#include <vector>

#include "platform/suite/SuitePaths.h"

namespace suite {

/// A place outside the suite's folder that work with the suite would read or write. UTF-8.
struct OutsidePlace {
    std::string what;   ///< the key of suite.ini, or the link in the folder, that leads there
    std::string where;  ///< its real path; of a database server what suite.ini says, no password

    auto operator<=>(const OutsidePlace&) const = default;
};

/// The places that suite.ini, the project's number or links lead to: profiles, database, templates
/// and the folder of the sheets with what lies in it. Nothing below the real path `root` is one.
std::vector<OutsidePlace> FindOutsidePlaces(const std::string& root, const SuitePaths& paths);

/// A line each, "what: where", the first `most` of them; what a screen would not show as it is
/// stands as \xNN.
std::string DescribePlaces(const std::vector<OutsidePlace>& places, std::size_t most);

/// Why the project's number cannot name the folder of its sheets, or why it cannot be read (UTF-8);
/// empty when it can. An empty number is none.
std::string ProjectNumberFault(const SuitePaths& paths);

}  // namespace suite
