#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/db/AcDbDwgFiler.h"

namespace console {

/// The fields of a grain-size curve (class CKFCurve) in the order in which it is filed. They are
/// read here without the class itself, so that a drawing can be looked into without the plug-in.
struct CurveFields {
    struct LayerKey {
        Adesk::Int32 main = 0;
        Adesk::Int32 sub = 0;
    };

    AcGePoint3d gridOrigin;
    std::vector<AcGePoint3d> curvePoints;
    std::vector<AcGePoint3d> labelPoints;
    Adesk::Int16 chartType = 0;
    Adesk::Int16 projectIndex = 0;
    std::string projectNumber;  ///< texts in GBK
    std::string borehole;
    std::string sample;
    Adesk::Int16 wideAxis = 0;
    double decadeLength = 0.0;
    double gridWidth = 0.0;
    double gridHeight = 0.0;
    double textHeight = 0.0;
    std::vector<double> diameters;
    bool modified = false;
    Adesk::UInt16 colorIndex = 0;
    Adesk::Int16 savingAs = 0;
    AcDbObjectId textStyle;
    /// Filed only with curves of layer charts.
    std::optional<LayerKey> layer;

    /// Reads the fields; with `ofLayer` also layer numbers, if the filer has more to give. False
    /// when it ends before them, or a list is longer than `valueLimit`, which no list of a sound
    /// curve reaches.
    bool Read(AcDbDwgFiler& filer, bool ofLayer, std::size_t valueLimit);
};

}  // namespace console
