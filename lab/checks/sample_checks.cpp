#include "lab/checks/sample_checks.h"

#include <algorithm>
#include <cmath>

#include "lab/checks/chart_checks.h"
#include "lab/hydrometer/joint.h"
#include "lab/numbers.h"
#include "lab/sample_record.h"
#include "platform/win32/code_page.h"
#include "src/core/number_format.h"
#include "src/core/percentages.h"

namespace lab {

namespace {
constexpr double kSameSize = 0.0001;  // mm; the table of results tells classes apart by it
constexpr double kLayerSumTolerance = 0.1;
constexpr double kRounding = 1e-9;

double MassOf(const Sample& sample) {
    double mass = 0.0;
    for (const SieveItem& item : sample.items) {
        mass += item.mass.value_or(0.0);
    }
    return mass;
}

std::string Percent(double part, double whole) {
    return FigureText(part / whole * 100.0) + " %";
}

bool IsUnreadable(const StoredSample& sample, std::string_view column) {
    return std::any_of(sample.unreadable.begin(), sample.unreadable.end(),
                       [&](const StoredSample::Unreadable& cell) { return cell.column == column; });
}

/// The items that lack something; what cannot be read is told by itself.
void CheckNulls(const StoredSample& sample, FindingNotes& notes) {
    std::string numbers;
    std::size_t nulls = 0;
    for (std::size_t i = 0; i < sample.data.items.size(); ++i) {
        const SieveItem& item = sample.data.items[i];
        if (!item.size || !item.mass) {
            numbers += (numbers.empty() ? "" : ", ") + std::to_string(i + 1);
            ++nulls;
        }
    }
    if (nulls > 0 && !IsUnreadable(sample, "KLLJ") && !IsUnreadable(sample, "KLSYZL")) {
        notes.Add(Severity::kError, "null-item",
                  "size or mass is missing in item " + numbers + " of " +
                      std::to_string(sample.data.items.size()),
                  static_cast<double>(nulls));
    }
}

void CheckSizes(const Sample& sample, FindingNotes& notes) {
    if (sample.items.empty()) {
        notes.Add(Severity::kError, "no-items", "it has no sieve items", 0.0);
    }
    for (const SieveItem& item : sample.items) {
        if (item.size && *item.size < 0.0) {
            notes.Add(Severity::kError, "size-not-positive",
                      "a sieve of " + FigureText(*item.size) + " mm", *item.size);
        }
    }
}

void CheckTotal(const StoredSample& sample, FindingNotes& notes) {
    const std::optional<double>& total = sample.data.total;
    if (IsUnreadable(sample, "KLTYZL") || (total && *total > 0.0)) {
        return;
    }
    notes.Add(Severity::kError, "total-not-positive",
              !sample.hasResultRow ? "it has no row of results (table Z_c_KeFen), so no total mass"
              : total              ? "the total mass is " + FigureText(*total)
                                   : "its row of results has no total mass",
              total);
}

void CheckExcess(const Sample& sample, FindingNotes& notes) {
    const double excess = MassOf(sample) - sample.total.value_or(0.0);
    if (sample.total.value_or(0.0) > 0.0 && excess > kMassTolerance) {
        notes.Add(Severity::kError, "mass-excess",
                  "the items weigh " + FigureText(excess) + " (" + Percent(excess, *sample.total) +
                      ") more than the total of " + FigureText(*sample.total),
                  RoundAsPrinted(excess / *sample.total * 100.0, 3));
    }
}

void CheckLoss(const GrainSizeRecord& record, double tolerated, FindingNotes& notes) {
    double missing = record.totalMass;
    for (const double mass : record.amounts) {
        missing -= mass;
    }
    const double percent = missing / record.totalMass * 100.0;
    if (percent > tolerated + kRounding) {
        notes.Add(Severity::kWarning, "mass-loss",
                  FigureText(percent) + " % of the total are on no sieve (" + FigureText(missing) +
                      " of " + FigureText(record.totalMass) + "); drawn as finer than all" +
                      (record.sizes.back() == 0.0 ? "" : ", as there is no pan"),
                  RoundAsPrinted(percent, 3));
    }
}

void CheckSizeTwice(const GrainSizeRecord& record, FindingNotes& notes) {
    for (std::size_t i = 1; i < record.sizes.size(); ++i) {
        const double size = record.sizes[i];
        if (size == record.sizes[i - 1] && (i < 2 || size != record.sizes[i - 2])) {
            const auto count = std::count(record.sizes.begin(), record.sizes.end(), size);
            notes.Add(Severity::kWarning, "size-twice",
                      std::to_string(count) + " items of size " + FigureText(size) + " mm", size);
        }
    }
}

void CheckStoredSizes(const GrainSizeRecord& record, FindingNotes& notes) {
    for (std::size_t i = 0; i < record.sizes.size(); ++i) {
        const double size = record.sizes[i];
        const bool isClass = std::any_of(
            kSieveSeries.begin(), kSieveSeries.end(),
            [&](const SieveClass& sieve) { return std::abs(size - sieve.size) < kSameSize; });
        if (!isClass && record.amounts[i] > 0.0) {
            const double percent = record.amounts[i] / record.totalMass * 100.0;
            notes.Add(Severity::kWarning, "size-not-stored",
                      FigureText(percent) + " % are on the sieve of " + FigureText(size) +
                          " mm, for which the stored percentages have no column",
                      RoundAsPrinted(percent, 3));
        }
    }
}

/// Both come of the same calculation and are stored as 32-bit floats.
template <class Number>
bool IsStored(const std::optional<double>& stored, const std::optional<Number>& computed) {
    return stored.has_value() == computed.has_value() &&
           (!stored || static_cast<float>(*stored) == static_cast<float>(*computed));
}

std::optional<float> Rounded(const std::optional<double>& value) {
    return value ? std::optional(Round3(*value)) : std::nullopt;
}

/// The first of the stored results that is not what drawing would store; null when they all are.
const char* FindStale(const StoredResults& results, GrainSizeRecord record,
                      const CurveShape& shape) {
    static constexpr const char* kNames[] = {"d95", "d85", "d60", "d50",
                                             "d30", "d15", "d10", "d90"};
    for (int i = 0; i < kDiameterCount; ++i) {
        const auto index = static_cast<DiameterIndex>(i);
        if (!IsStored(results.diameters[static_cast<std::size_t>(i)],
                      DeterminedDiameter(shape.diameters, index))) {
            return kNames[i];
        }
    }
    if (!IsStored(results.uniformity, Rounded(Uniformity(shape.diameters)))) {
        return "Cu";
    }
    if (!IsStored(results.curvature, Rounded(Curvature(shape.diameters)))) {
        return "Cc";
    }
    ComputeClassPercentages(record);
    for (std::size_t i = 0; i < kSieveSeries.size(); ++i) {
        if (!IsStored(results.classPercent[i], record.classPercent[i])) {
            return "a class percentage";
        }
    }
    return IsStored(results.finePercent, record.finePercent) ? nullptr : "the fine fraction";
}

/// The form in which the settings do not have curves drawn now. A run may have chosen it: what it
/// made is of the data all the same.
CurveForm OtherForm(CurveForm form) {
    return form == CurveForm::plain ? CurveForm::guarded : CurveForm::plain;
}

/// Whether the curve of a drawing is what would be drawn in that form at its place.
bool IsCurveOf(const GrainSizeRecord& record, ChartKind kind, CurveForm form,
               const CurveFields& curve) {
    constexpr double kSamePlace = 1e-6;  // mm of the sheet
    const CurveShape shape = *ShapeOf(record, kind, form, curve.gridOrigin);
    if (shape.points.length() != curve.curvePoints.length() ||
        shape.grid.wideAxis != curve.wideAxis || shape.grid.gridHeight != curve.gridHeight) {
        return false;
    }
    for (int i = 0; i < shape.points.length(); ++i) {
        if (shape.points[i].distanceTo(curve.curvePoints[i]) > kSamePlace) {
            return false;
        }
    }
    return true;
}
}  // namespace

void CheckCells(const std::vector<StoredSample::Unreadable>& cells, FindingNotes& notes) {
    for (const StoredSample::Unreadable& cell : cells) {
        notes.Add(Severity::kError, "value-not-readable",
                  "\"" + cell.text + "\" in column " + cell.column + " of table " + cell.table +
                      " cannot be read as a number");
    }
}

bool CheckData(const StoredSample& sample, const CheckSettings& settings, FindingNotes& notes) {
    CheckCells(sample.unreadable, notes);
    CheckSizes(sample.data, notes);
    CheckNulls(sample, notes);
    CheckTotal(sample, notes);
    CheckExcess(sample.data, notes);
    const std::optional<GrainSizeRecord> record = RecordOf(sample.data);
    if (!record) {
        return false;
    }
    CheckLoss(*record, settings.massLoss, notes);
    CheckSizeTwice(*record, notes);
    CheckStoredSizes(*record, notes);
    return sample.unreadable.empty();
}

void CheckChart(const ProjectSample& sample, ChartKind kind, const CheckSettings& settings,
                FindingNotes& notes) {
    const std::optional<GrainSizeRecord> record = RecordOf(sample.stored.data);
    const std::optional<CurveShape> shape = ShapeOf(*record, kind, settings.curve);
    CheckSheetRoom(*record, *shape, kind, notes);
    CheckCurve(*shape, notes);
    CheckDiameters(*shape, notes);
    if (sample.results.IsEmpty()) {
        return;
    }
    const char* const stale = FindStale(sample.results, *record, *shape);
    if (stale != nullptr &&
        FindStale(sample.results, *record, *ShapeOf(*record, kind, OtherForm(settings.curve))) !=
            nullptr) {
        notes.Add(Severity::kNote, "results-stale",
                  std::string("the stored results are not of these data: ") + stale +
                      " would be another");
    }
}

void CheckJoint(const ProjectSample& sample, FindingNotes& notes) {
    if (sample.joint && std::abs(*sample.joint) > kGreatestJump) {
        notes.Add(
            Severity::kWarning, "joint-jump",
            "sieves and hydrometer are " + FigureText(*sample.joint) + " % apart at their joint",
            RoundAsPrinted(*sample.joint, 3));
    }
}

void CheckSheets(const ProjectSample& sample, ChartKind kind, const SheetCurves& sheets,
                 FindingNotes& notes) {
    const Sample& key = sample.stored.data;
    const std::vector<SheetCurves::Curve>& curves = sheets.Of(key.borehole, key.sample);
    if (curves.empty() && sample.drawn) {
        notes.Add(Severity::kNote, "sheet-stale", "it is marked as drawn, and on no sheet");
    }
    const std::optional<GrainSizeRecord> record = RecordOf(key);
    for (const SheetCurves::Curve& curve : curves) {
        if (!record || (!IsCurveOf(*record, kind, CurveForm::plain, curve.fields) &&
                        !IsCurveOf(*record, kind, CurveForm::guarded, curve.fields))) {
            notes.Add(Severity::kNote, "sheet-stale",
                      curve.file + " does not show the curve of these data");
        }
    }
}

void CheckLayer(const ProjectLayer& layer, ChartKind kind, const CheckSettings& settings,
                FindingNotes& notes) {
    CheckCells(layer.unreadable, notes);
    double sum = 0.0;
    std::size_t classes = 0;
    for (const SieveClass& sieve : kSieveSeries) {
        const auto value = layer.values.find(sieve.layerCode);
        if (value == layer.values.end()) {
            continue;
        }
        const std::optional<double> percent = ParseNumber(win32::TrimBlanks(value->second));
        if (!percent) {
            CheckCells({{"x_SheJi", "CSV", value->second}}, notes);
        }
        sum += percent.value_or(0.0);
        ++classes;
    }
    const std::optional<GrainSizeRecord> record = RecordOf(layer, settings.recompute);
    if (classes == 0 || !record || !layer.unreadable.empty()) {
        return;
    }
    if (std::abs(sum - 100.0) > kLayerSumTolerance + kRounding) {
        notes.Add(Severity::kWarning, "layer-sum",
                  "the fractions add up to " + FigureText(sum) + " %", RoundAsPrinted(sum, 3));
    }
    const std::optional<CurveShape> shape = ShapeOf(*record, kind, settings.curve);
    CheckSheetRoom(*record, *shape, kind, notes);
    CheckCurve(*shape, notes);
    CheckDiameters(*shape, notes);
}

}  // namespace lab
