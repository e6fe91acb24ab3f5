#pragma once

#include <string>

/// Sorts keys[1] to keys[count] ascending and moves strings[1] to strings[count] along; index 0 is
/// not touched. Equal keys end in no particular order. Where the sort has to give up, it says so on
/// the command line and leaves the items complete but not in order.
void SortKeysWithStrings(int count, int* keys, std::string* strings);
