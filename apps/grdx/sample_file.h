#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/grdx/csv.h"

namespace console {

/// One sample of a CSV file; texts are UTF-8.
struct SampleData {
    struct Item {
        double size;  ///< mm; 0 is the pan
        double mass;
    };

    std::string borehole;
    std::string sample;
    std::optional<double> depth;      ///< metres
    std::optional<double> thickness;  ///< metres
    std::string method;
    double total = 0.0;  ///< mass, in the unit of the items
    std::vector<Item> items;
    std::size_t firstLine = 0;
};

/// The samples of a CSV text (UTF-8) with the columns
/// `borehole,sample,depth,thickness,method,total,size,mass`, one line a sieve item, in the order of
/// their first lines, items in file order. The lines of a sample need not follow each other but
/// must agree on everything but size and mass. Every bad line is named in `errors`; the samples are
/// then not to be used.
std::vector<SampleData> ReadSampleFile(std::string_view text, std::vector<LineError>& errors);

}  // namespace console
