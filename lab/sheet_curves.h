#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "src/facts/CurveFields.h"

class AcDbEntity;

namespace lab {

/// A grading curve as a drawing keeps it for programs without the plug-in.
struct KeptCurve {
    CurveFields fields;
    bool hasLayerNumbers = false;
};
/// The curve that an entity is; nothing for any other. `ofLayers` reads it as that of a layer
/// chart, with layer numbers. Failure when its fields are not those of a curve. The plug-in must
/// not be loaded: its class would take the curves.
std::optional<KeptCurve> ReadKeptCurve(const AcDbEntity& entity, bool ofLayers);

/// The curves of samples on the sheets of a project, as the sheets' files have them now.
class SheetCurves {
public:
    struct Curve {
        std::string file;  ///< name of the sheet, UTF-8
        CurveFields fields;
    };

    /// Reads all sheets in the open suite folder of the project of that number (UTF-8). A sheet
    /// that cannot be read counts as none. The plug-in must not be loaded.
    explicit SheetCurves(const std::string& projectNumber);

    /// Those of a sample (UTF-8), in the order of the sheets' names.
    const std::vector<Curve>& Of(const std::string& borehole, const std::string& sample) const;

private:
    void ReadSheet(const std::string& path, const std::string& name);

    std::map<std::pair<std::string, std::string>, std::vector<Curve>> bySample_;  ///< GBK
};

}  // namespace lab
