#pragma once

#include <string>
#include <vector>

#include "lab/ProjectData.h"

namespace lab {

/// The project's gradings as an AGS4 file, and the samples that it has no grading of since their
/// data are faulty. Numbers are rounded as that form has them: depths to 0.01 m, sizes to three
/// figures, percent finer to whole numbers. `date` (YYYY-MM-DD) is the day it is made.
struct AgsText {
    std::string text;
    std::vector<const Sample*> leftOut;
};
AgsText ProjectAsAgs(const ProjectData& data, const std::string& date);

}  // namespace lab
