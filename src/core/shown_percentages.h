#pragma once

#include <span>
#include <string>

/// Part of the total in percent, as composition tables show it: one decimal.
std::string ShownPercentage(double amount, double total);
/// Raises or lowers masses by 0.005, one after the other, until the shown percentages add up to
/// 100 or every mass that counts has had its turn.
void NudgeToHundred(std::span<double> masses, double totalMass);
