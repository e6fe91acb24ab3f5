#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "apps/grdx/csv.h"

namespace console {

/// The grading of one soil layer in a CSV file.
struct LayerData {
    struct Percentage {
        int code;          ///< parameter code of the grain class, 1100 (800 mm) to 1118 (finest)
        std::string text;  ///< percent of the layer's mass, as it stands in the file
    };

    int main = 0;
    int sub = 0;  ///< 0: the layer has no sub-layers
    std::vector<Percentage> percentages;
};

/// The layers of a CSV text (UTF-8) with the columns `main,sub,size,percent`, one line a grain
/// class, in the order of their first lines. `size` is one of the standard sizes in mm, 0 the class
/// below the finest; a layer has a class once. Every bad line is named in `errors`; the layers are
/// then not to be used.
std::vector<LayerData> ReadLayerFile(std::string_view text, std::vector<LineError>& errors);

}  // namespace console
