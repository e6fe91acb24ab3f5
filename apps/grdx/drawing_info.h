#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

#include "lab/sheet_curves.h"
#include "platform/db/AcDb.h"

namespace console {

/// What a drawing file holds.
struct DrawingInfo {
    struct Curve {
        AcDbHandle handle = 0;
        lab::KeptCurve kept;
        /// How many of its points are measured; the others were added by guarding.
        int measuredPoints = 0;
        std::string textStyle;  ///< name of the style (GBK); empty when the file has no such style
    };

    std::string file;                     ///< as it was asked for, UTF-8
    std::optional<int> codePage;          ///< missing for a number that is not known
    std::map<std::string, int> entities;  ///< those of model space, by class
    std::vector<Curve> curves;            ///< in drawing order
    bool ofLayers = false;                ///< the curves were read as those of layer charts
    std::vector<std::string> damage;      ///< what is missing of a damaged drawing, for the user
};

/// Reads a drawing (path of the file system, UTF-8). `ofLayers` reads its curves as those of layer
/// charts, with layer numbers. Failure when the file is no drawing that can be read, or the fields
/// of a curve are not those of one. The plug-in must not be loaded: its class would take the
/// curves.
DrawingInfo ReadDrawingInfo(const std::string& file, bool ofLayers);

std::string DescribeDrawing(const DrawingInfo& info);
nlohmann::ordered_json DrawingAsJson(const DrawingInfo& info);

}  // namespace console
