#pragma once

#include <string>

/// The whole text of a key, however long; empty when file, section or key is missing.
std::string ReadProfileText(const char* section, const std::string& key, const std::string& path);
