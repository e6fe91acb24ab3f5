#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "lab/ProjectData.h"
#include "lab/checks/Finding.h"
#include "src/core/sample_and_sheet_names.h"

namespace lab {

/// Finds names that sheets and marks cannot hold, and samples and layers that would get the same
/// sheet. The property sheet of the chart commands objects to the same.
class NameChecks {
public:
    explicit NameChecks(const ProjectData& data);

    void CheckSample(const Sample& sample, FindingNotes& notes) const;
    void CheckLayer(const std::string& label, FindingNotes& notes) const;

private:
    void CheckNames(const SampleKey& key, FindingNotes& notes) const;
    void CheckLists(const SampleKey& key, FindingNotes& notes) const;
    void CheckSheets(const SampleKey& key, FindingNotes& notes) const;

    std::vector<SampleKey> samples_;   ///< those that are offered for drawing; GBK
    std::vector<std::string> layers_;  ///< likewise
    SheetNames sheets_;
    std::set<SampleKey> keys_;
    std::set<std::string> boreholes_;
    std::map<std::string, int> boreholesByFolded_;  ///< how many there are of a name without case
    // What lists show of names that are too long.
    std::set<SampleKey> cutSamples_;
    std::set<std::string> cutBoreholes_;
};

}  // namespace lab
