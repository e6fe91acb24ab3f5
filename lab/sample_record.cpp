#include "lab/sample_record.h"

#include "lab/numbers.h"
#include "platform/win32/code_page.h"
#include "src/core/GrainSizeRecord.h"
#include "src/core/curve_shape.h"

namespace lab {

std::optional<GrainSizeRecord> RecordOf(const Sample& sample) {
    GrainSizeRecord record;
    record.borehole = win32::GbkFromUtf8(sample.borehole);
    record.sample = win32::GbkFromUtf8(sample.sample);
    record.testMethod = win32::GbkFromUtf8(sample.method);
    record.totalMass = sample.total.value_or(0.0);
    for (const SieveItem& item : sample.items) {
        if (!item.size || !item.mass || *item.size < 0.0) {
            return std::nullopt;
        }
        record.sizes.push_back(*item.size);
        record.amounts.push_back(*item.mass);
    }
    SortBySize(record);
    std::vector<double> passing;
    if (record.sizes.empty() || !ComputePassing(record, passing)) {
        return std::nullopt;
    }
    return record;
}

std::optional<GrainSizeRecord> RecordOf(const ProjectLayer& layer, bool recompute) {
    GrainSizeRecord record;
    record.kind = RecordKind::layer;
    record.sample = win32::GbkFromUtf8(layer.label);
    record.mainLayer = layer.main;
    record.subLayer = layer.sub;
    ClassFractions classes;
    for (std::size_t i = 0; i < kSieveSeries.size(); ++i) {
        const auto value = layer.values.find(kSieveSeries[i].layerCode);
        if (value == layer.values.end()) {
            continue;
        }
        const std::optional<double> percent = ParseNumber(win32::TrimBlanks(value->second));
        if (!percent) {
            return std::nullopt;
        }
        classes[i] = *percent / 100.0;
    }
    SetLayerFractions(record, classes, recompute);
    return record;
}

}  // namespace lab
