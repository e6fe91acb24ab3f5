#pragma once

#include <string>
#include <vector>

#include "lab/ProjectData.h"
#include "lab/checks/Finding.h"

namespace lab {

/// Which samples are to be drawn. Names are UTF-8.
struct DrawChoice {
    std::vector<std::string> boreholes;
    bool allBoreholes = false;  ///< instead of `boreholes`
    std::vector<std::string> samples;
    bool allSamples = false;  ///< instead of `samples`
    bool undrawn = false;     ///< leaves out what is marked as drawn
};

struct BoreholeSamples {
    std::string borehole;
    std::vector<std::string> samples;
};

/// The chosen samples by boreholes, which stand in the order of the choice or of the project; one
/// of which nothing is left has no entry. Only samples with items are offered for drawing: Failure
/// names a borehole or sample that is not.
std::vector<BoreholeSamples> ChosenSamples(const ProjectData& data, const DrawChoice& choice);

/// Takes the samples out that have an error, or that the project's own errors concern, and gives
/// the first error of each.
FindingList TakeOutFaulty(const FindingList& findings, std::vector<BoreholeSamples>& chosen);

}  // namespace lab
