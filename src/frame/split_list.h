#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Splits `text` (GBK) at every whole character `separator`; the parts lose the blanks at their
/// ends, and an empty part stays in the list. False, and an empty list, when the text holds
/// nothing but blanks.
bool SplitList(std::string_view text, char separator, std::vector<std::string>& list);
