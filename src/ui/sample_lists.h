#pragma once

#include <string>
#include <vector>

#include "src/core/sample_and_sheet_names.h"

/// The samples of a filter's test items (table_filters.h). Texts are GBK, in the database's order,
/// without repetitions that follow each other. False, after telling the user, when not all of them
/// could be read.
bool ReadSampleKeys(const std::string& filter, std::vector<SampleKey>& keys);
/// Those of the project, and of one borehole, likewise.
bool ReadProjectSamples(std::vector<SampleKey>& samples);
bool ReadSamples(const std::string& borehole, std::vector<std::string>& samples);
/// Those whose sheets could have names like sheets of layers, likewise.
bool ReadSamplesNamedAsLayers(std::vector<SampleKey>& samples);
/// The boreholes of such samples, each once.
std::vector<std::string> BoreholesOf(const std::vector<SampleKey>& samples);

/// The project's layers with percentages, "2" or "2-1", by their numbers. False when not all of
/// them could be read, which only those hear of who listen to the database.
bool ReadLayers(std::vector<std::string>& layers);

/// Order of the sample list: numbers that end with anything but a digit as they come, then the
/// others by sort key.
std::vector<std::string> OrderedSamples(const std::vector<std::string>& samples);

/// Sort key of a number that ends with digits: the number n they make, plus 10000 times the number
/// m before the one character in front of them, if there is one (3-12 gives 30012, A1 gives 1).
/// Numbers too large for the key count as the largest.
int SampleSortKey(const std::string& sample);
