#pragma once

#include <compare>
#include <optional>
#include <string>
#include <vector>

namespace lab {

/// What stayed on a sieve. Numbers are those that the project database keeps (StoredNumber).
struct SieveItem {
    std::optional<double> size;  ///< mm; 0 is the pan
    std::optional<double> mass;

    friend bool operator==(const SieveItem&, const SieveItem&) = default;
};

/// A sample as it was measured. Texts are UTF-8. A number that a table of ours can do without is
/// none; in a database made by other means every number may be missing.
struct Sample {
    std::string borehole;
    std::string sample;
    std::optional<double> depth;      ///< metres
    std::optional<double> thickness;  ///< metres
    std::string method;
    std::optional<double> total;  ///< mass, in the unit of the items
    std::vector<SieveItem> items;

    friend bool operator==(const Sample&, const Sample&) = default;
};

/// The grading of one soil layer.
struct Layer {
    struct Percentage {
        int code;          ///< parameter code of the grain class, 1100 (800 mm) to 1118 (finest)
        std::string text;  ///< percent of the layer's mass, as it was written
    };

    int main = 0;
    int sub = 0;  ///< 0: the layer has no sub-layers
    std::vector<Percentage> percentages;

    /// "2" or "2-1"
    std::string Label() const {
        return std::to_string(main) + (sub != 0 ? "-" + std::to_string(sub) : "");
    }
};

}  // namespace lab
