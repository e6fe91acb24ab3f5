#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "lab/Project.h"
#include "lab/stored_samples.h"
#include "src/core/characteristic_diameters.h"
#include "src/facts/sieve_series.h"

namespace lab {

/// What the charts have stored of a sample; nothing where the database has no value.
struct StoredResults {
    std::array<std::optional<double>, kSieveSeries.size()> classPercent;
    std::optional<double> finePercent;  ///< percent finer than 0.005 mm
    std::array<std::optional<double>, kDiameterCount>
        diameters;  ///< mm, in the order of DiameterIndex
    std::optional<double> uniformity;
    std::optional<double> curvature;

    bool IsEmpty() const { return *this == StoredResults{}; }
    friend bool operator==(const StoredResults&, const StoredResults&) = default;
};

struct ProjectSample {
    StoredSample stored;
    StoredResults results;
    bool drawn = false;  ///< marked as drawn
    /// Percent between sieves and hydrometer where they meet; nothing without both.
    std::optional<double> joint = std::nullopt;
};

/// A layer with grain classes or results of them.
struct ProjectLayer {
    std::string label;  ///< "2" or "2-1"
    int main = 0;
    int sub = 0;
    std::map<int, std::string> values;  ///< by parameter code, 1100 to 1128; UTF-8, without nulls
    bool drawn = false;
    std::vector<StoredSample::Unreadable> unreadable;
};

/// All that the open suite's project has of samples and layers.
struct ProjectData {
    Project project;
    std::vector<ProjectSample> samples;       ///< in the order of boreholes and samples
    std::vector<std::string> drawnBoreholes;  ///< marked: all their samples were drawn; UTF-8
    std::vector<ProjectLayer> layers;         ///< in their order

    bool IsDrawn(const std::string& borehole) const;
    /// Failure when no sample is of that borehole (UTF-8).
    void RequireBorehole(const std::string& borehole) const;
};

/// Failure when project, database or profiles cannot be read.
ProjectData ReadProjectData();

}  // namespace lab
