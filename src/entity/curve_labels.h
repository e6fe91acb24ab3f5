#pragma once

#include <span>
#include <string>
#include <vector>

/// Texts of a curve's value labels, in the order of its label points. Standard code 2 gives the
/// seven bare values d95, d60, d50, d30, d10, Cu, Cc; any other the five "=" texts d60, Cu, d30,
/// d10, Cc. A value that is not determined is empty, or "=" alone.
std::vector<std::string> CurveLabelTexts(int chartType, std::span<const double> diameters);
