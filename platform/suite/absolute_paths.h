#pragma once

#include <string>
#include <string_view>

/// Paths and initialisation strings of a suite folder. All texts are GBK, paths Windows paths.
namespace suite {

/// `path` as it counts from `folder` (absolute): without "." and "..", backslashes only, none at
/// the end.
std::string AbsolutePath(std::string_view folder, std::string_view path);

/// The initialisation string with its Data Source made absolute when its provider is SQLite.
/// Names and the provider are compared without regard to case, values may stand in quotes.
std::string WithAbsoluteDataSource(std::string_view folder, std::string_view initString);

}  // namespace suite
