#pragma once

#include <vector>

/// Appends the grain classes of the current layer (ProjectContext, CurrentMainLayer,
/// CurrentSubLayer): sizes in mm, the largest first, and fractions of 1. The class below the finest
/// sieve is left out, but counts when RecomputePercentages scales the fractions to a sum of 1; with
/// a sum of 0 they stay as they are. 1 done, 0 when the layer has no row or not all of them can be
/// read; shows nothing.
int LoadLayerFractions(std::vector<double>& sizes, std::vector<double>& fractions);
