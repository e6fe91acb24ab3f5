#pragma once

#include <span>
#include <string>

#include "src/core/GrainSizeRecord.h"

/// Fills classPercent and finePercent of a sample: what its sieves retained, in percent of the
/// total mass (above 0) by the classes of the series, the others 0. A sieve of another size counts
/// nowhere. What rounding took from or added to 100 is put on the largest class.
void ComputeClassPercentages(GrainSizeRecord& record);

/// Part of the total in percent, as composition tables show it: one decimal.
std::string ShownPercentage(double amount, double total);
/// Raises or lowers masses by 0.005, one after the other, until the shown percentages add up to
/// 100 or every mass that counts has had its turn.
void NudgeToHundred(std::span<double> masses, double totalMass);
