#include "lab/checks/chart_checks.h"

#include <algorithm>
#include <cmath>

#include "src/core/curve_faults.h"
#include "src/core/number_format.h"

namespace lab {

namespace {
/// Sizes at the edges of the grid count as within it.
constexpr double kEdge = 1e-6;  // mm of the sheet

std::string SizeText(double size) {
    return FormatSizeLabel(size) + " mm";
}

void AddFault(const CurveFault& fault, FindingNotes& notes) {
    const auto add = [&](const char* code, const std::string& text, int decimals) {
        notes.Add(Severity::kWarning, code, text, RoundAsPrinted(fault.amount, decimals));
    };
    const std::string amount = FormatFixed(fault.amount, 2);
    switch (fault.kind) {
        case CurveFault::Kind::kRunsBack:
            add("curve-folds",
                "the curve runs back by " + amount + " mm of the sheet, from size " +
                    SizeText(fault.from) + " to " + SizeText(fault.to),
                2);
            break;
        case CurveFault::Kind::kRises:
            add("curve-folds",
                "the curve rises by " + amount + " % towards finer sizes, from " +
                    SizeText(fault.from) + " to " + SizeText(fault.to),
                2);
            break;
        case CurveFault::Kind::kAboveAll:
            add("curve-leaves-range",
                "the curve goes " + amount + " % above 100 %, at " + SizeText(fault.to), 2);
            break;
        case CurveFault::Kind::kBelowNone:
            add("curve-leaves-range",
                "the curve goes " + amount + " % below 0 %, at " + SizeText(fault.to), 2);
            break;
    }
}
}  // namespace

std::string FigureText(double figure) {
    std::string text = FormatFixed(figure, std::abs(figure) < 0.1 ? 6 : 3);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') {
        text.pop_back();
    }
    return text;
}

void CheckSheetRoom(const GrainSizeRecord& record, const CurveShape& shape, ChartKind kind,
                    FindingNotes& notes) {
    const std::size_t columns = record.sizes.size();
    if (kind == ChartKind::result && columns > kMostTableColumns) {
        notes.Add(Severity::kWarning, "table-too-wide",
                  std::to_string(columns) + " sieves; the sheet's table has room for " +
                      std::to_string(kMostTableColumns),
                  static_cast<double>(columns));
    }
    for (const AcGePoint3d& point : shape.measured) {
        if (point.x < shape.grid.Left() - kEdge || point.x > shape.grid.Right() + kEdge) {
            const double size = shape.grid.SizeOfX(point.x);
            notes.Add(Severity::kWarning, "size-outside-grid",
                      FigureText(size) + " mm lies outside the grid, which goes from " +
                          SizeText(shape.grid.SizeOfX(shape.grid.Left())) + " to " +
                          SizeText(shape.grid.SizeOfX(shape.grid.Right())),
                      RoundAsPrinted(size, 6));
        }
    }
}

void CheckCurve(const CurveShape& shape, FindingNotes& notes) {
    for (const CurveFault& fault : FindCurveFaults(shape.curve, shape.grid)) {
        AddFault(fault, notes);
    }
}

void CheckDiameters(const CurveShape& shape, FindingNotes& notes) {
    if (Uniformity(shape.diameters) && Curvature(shape.diameters)) {
        return;
    }
    std::string missing;
    for (const auto& [index, name] : {std::pair{kD10, "d10"}, {kD30, "d30"}, {kD60, "d60"}}) {
        if (!DeterminedDiameter(shape.diameters, index)) {
            missing += (missing.empty() ? "" : ", ") + std::string(name);
        }
    }
    std::string text = "Cu and Cc cannot be determined: no " + missing;
    std::optional<double> finest;
    if (!shape.points.isEmpty()) {
        const double y = shape.points[shape.points.length() - 1].y;
        finest = RoundAsPrinted((y - shape.grid.Bottom()) / shape.grid.gridHeight * 100.0, 3);
        text += "; the curve ends at " + FigureText(*finest) + " %";
    }
    notes.Add(Severity::kNote, "d10-not-reached", text, finest);
}

}  // namespace lab
