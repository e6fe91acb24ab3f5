#pragma once

#include <string>
#include <vector>

#include "src/core/sample_and_sheet_names.h"

/// Why no charts of these samples of one borehole can be drawn, for a message box: a name cannot
/// stand in a sheet's file name or in a mark, the borehole's marks would be another's too, or the
/// sheet of another sample or of a layer would be replaced. Empty when nothing is against it. Names
/// are as lists show them, without marks; `project` has all samples with test items as the database
/// names them. Without samples the borehole alone is looked at.
std::string ObjectionToSamples(const std::string& borehole, const std::vector<std::string>& samples,
                               const std::vector<SampleKey>& project);

/// The same for some of the project's layers, whose sheets could replace those of samples.
std::string ObjectionToLayers(const std::vector<std::string>& chosen,
                              const std::vector<std::string>& project,
                              const std::vector<SampleKey>& samples);
