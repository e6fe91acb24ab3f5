#pragma once

#include <string>
#include <vector>

#include "platform/suite/outside_places.h"

namespace suite {

/// What the user has agreed to of the suite folder `root` (a real path): of `places` those that he
/// has not. Agreements are kept in the user's own configuration, $XDG_CONFIG_HOME or ~/.config; one
/// that would lie in the suite folder itself counts for nothing.
std::vector<OutsidePlace> NotAgreed(const std::string& root, std::vector<OutsidePlace> places);

/// Remembers that the user agrees to these too. False, with file and reason in `error` (UTF-8),
/// when it cannot be remembered.
bool Agree(const std::string& root, const std::vector<OutsidePlace>& places, std::string& error);

}  // namespace suite
