#include "lab/results/result_tables.h"

#include <utility>

#include "lab/results/soil_shares.h"
#include "lab/sample_record.h"
#include "src/core/curve_shape.h"
#include "src/core/number_format.h"

namespace lab {

namespace {
using Cell = ResultTable::Cell;

constexpr std::pair<DiameterIndex, const char*> kDiameterColumns[] = {
    {kD10, "d10"}, {kD15, "d15"}, {kD30, "d30"}, {kD50, "d50"},
    {kD60, "d60"}, {kD85, "d85"}, {kD90, "d90"}, {kD95, "d95"}};
constexpr int kPercentDecimals = 4;

Cell CellOf(const std::optional<double>& number) {
    return number ? Cell(*number) : Cell();
}

Cell CellOf(const std::string& text) {
    return text.empty() ? Cell() : Cell(text);
}

std::vector<Cell> MeasuredCells(const Sample& sample) {
    return {sample.borehole,          sample.sample,         CellOf(sample.depth),
            CellOf(sample.thickness), CellOf(sample.method), CellOf(sample.total)};
}

std::vector<ResultTable::Column> MeasuredColumns() {
    return {{"borehole", ""},  {"sample", ""}, {"depth", ""},
            {"thickness", ""}, {"method", ""}, {"total", ""}};
}

void AddSoilCells(const Sample& sample, int standardCode, std::vector<Cell>& cells) {
    const std::optional<GrainSizeRecord> record = RecordOf(sample);
    const SoilShares shares = record ? SoilSharesOf(*record) : SoilShares{};
    for (const auto& share : {shares.gravel, shares.sand, shares.silt, shares.clay}) {
        cells.push_back(CellOf(share));
    }
    cells.push_back(record ? CellOf(SoilNameOf(*record, standardCode)) : Cell());
}

}  // namespace

ResultTable ResultsOf(const ProjectData& data, const FindingList& findings) {
    ResultTable table{"results", MeasuredColumns(), {}};
    for (const auto& [index, name] : kDiameterColumns) {
        table.columns.push_back({name, ""});
    }
    const std::string lines = "%; straight lines over the logarithm of size, sum 100";
    for (const auto& [name, remark] : {std::pair<const char*, std::string>{"Cu", ""},
                                       {"Cc", ""},
                                       {"gravel", "over 2 mm, " + lines},
                                       {"sand", "2 to 0.075 mm, " + lines},
                                       {"silt", "0.075 to 0.005 mm, " + lines},
                                       {"clay", "below 0.005 mm, " + lines},
                                       {"soil", ""},
                                       {"drawn", ""},
                                       {"findings", ""}}) {
        table.columns.push_back({name, remark});
    }
    auto bySample = FindingsBySample(findings);
    for (const ProjectSample& sample : data.samples) {
        const Sample& measured = sample.stored.data;
        std::vector<Cell> cells = MeasuredCells(measured);
        for (const auto& [index, name] : kDiameterColumns) {
            cells.push_back(CellOf(sample.results.diameters[index]));
        }
        cells.push_back(CellOf(sample.results.uniformity));
        cells.push_back(CellOf(sample.results.curvature));
        AddSoilCells(measured, data.project.profile.code, cells);
        cells.emplace_back(sample.drawn);
        cells.emplace_back(std::move(bySample[{measured.borehole, measured.sample}]));
        table.rows.push_back(std::move(cells));
    }
    return table;
}

std::vector<std::pair<double, double>> PercentFinerOf(const GrainSizeRecord& record) {
    std::vector<double> passing;
    ComputePassing(record, passing);
    std::vector<std::pair<double, double>> percentages;
    for (std::size_t i = 0; i < record.sizes.size(); ++i) {
        if (record.sizes[i] > 0.0) {
            percentages.emplace_back(record.sizes[i],
                                     RoundAsPrinted(passing[i] * 100.0, kPercentDecimals));
        }
    }
    return percentages;
}

ResultTable PassingOf(const ProjectData& data) {
    ResultTable table{
        "passing", {{"borehole", ""}, {"sample", ""}, {"size", "mm"}, {"passing", "%"}}, {}};
    for (const ProjectSample& sample : data.samples) {
        const Sample& measured = sample.stored.data;
        const std::optional<GrainSizeRecord> record = RecordOf(measured);
        if (!record) {
            continue;
        }
        for (const auto& [size, percent] : PercentFinerOf(*record)) {
            table.rows.push_back({measured.borehole, measured.sample, size, percent});
        }
    }
    return table;
}

ResultTable ItemsOf(const ProjectData& data) {
    ResultTable table{"items", MeasuredColumns(), {}};
    table.columns.push_back({"size", ""});
    table.columns.push_back({"mass", ""});
    for (const ProjectSample& sample : data.samples) {
        const std::vector<Cell> measured = MeasuredCells(sample.stored.data);
        for (const SieveItem& item : sample.stored.data.items) {
            table.rows.push_back(measured);
            table.rows.back().push_back(CellOf(item.size));
            table.rows.back().push_back(CellOf(item.mass));
        }
    }
    return table;
}

}  // namespace lab
