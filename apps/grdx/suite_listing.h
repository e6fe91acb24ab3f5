#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <nlohmann/json_fwd.hpp>

#include "apps/grdx/project_schema.h"

namespace console {

/// What the open suite folder's project holds. Texts are UTF-8; a number that the database has no
/// value for is missing.
struct SuiteListing {
    /// Stored results by their names: d95 to d10 in mm, Cu, Cc, and for samples "finer0.005" in
    /// percent.
    using Results = std::vector<std::pair<const char*, std::optional<double>>>;

    struct Sample {
        std::string name;
        bool drawn = false;  ///< marked as drawn
        std::optional<double> depth;
        std::optional<double> thickness;
        bool hasResultRow = false;
        std::string method;
        std::optional<double> total;
        int items = 0;  ///< sieve items
        Results results;
    };
    struct Borehole {
        std::string name;
        bool drawn = false;  ///< marked: all its samples were drawn
        std::vector<Sample> samples;
    };
    struct Layer {
        std::string label;  ///< "2" or "2-1"
        bool drawn = false;
        int classes = 0;  ///< grain classes with a percentage
        Results results;
    };

    ProjectEntry project;
    std::vector<Borehole> boreholes;
    std::vector<Layer> layers;
};

/// Reads the open suite folder. Failure when its project or database cannot be read.
SuiteListing ReadSuite();

/// For people: a line each.
std::string DescribeSuite(const SuiteListing& listing);
nlohmann::ordered_json SuiteAsJson(const SuiteListing& listing);

}  // namespace console
