#include "apps/grdx/sample_file.h"

#include <algorithm>
#include <unordered_map>

#include "apps/grdx/csv_columns.h"
#include "src/core/sample_names.h"

namespace console {

namespace {
const std::vector<std::string> kHeader = {"borehole", "sample", "depth", "thickness",
                                          "method",   "total",  "size",  "mass"};
enum Column : std::size_t { kBorehole, kSample, kDepth, kThickness, kMethod, kTotal, kSize, kMass };

// What the column of the project database holds, in characters.
constexpr std::size_t kMethodLimit = 15;

std::optional<double> NumberOrNull(RecordReader& reader, Column column) {
    return reader.IsEmpty(column) ? std::nullopt : std::optional<double>(reader.Number(column));
}

/// The record as a sample of one item.
SampleData ReadRecord(RecordReader& reader) {
    SampleData data;
    data.borehole = reader.Name(kBorehole, kBoreholeLength);
    data.sample = reader.Name(kSample, kSampleLength);
    data.depth = NumberOrNull(reader, kDepth);
    data.thickness = NumberOrNull(reader, kThickness);
    data.method = reader.Text(kMethod, kMethodLimit);
    data.total = reader.Number(kTotal);
    const double size = reader.Number(kSize);
    data.items.push_back({size, reader.Number(kMass)});
    return data;
}

/// Name of the first column on which two lines of a sample differ; null when they agree.
const char* Difference(const SampleData& first, const SampleData& next) {
    if (first.depth != next.depth) {
        return "depth";
    }
    if (first.thickness != next.thickness) {
        return "thickness";
    }
    if (first.method != next.method) {
        return "method";
    }
    return first.total != next.total ? "total" : nullptr;
}

/// Where a sample stands in the list. Names hold no line break, so one keeps the two apart.
using IndexByKey = std::unordered_map<std::string, std::size_t>;

void AddLine(std::vector<SampleData>& samples, IndexByKey& indexByKey, SampleData line,
             RecordReader& reader) {
    const auto [place, isNew] =
        indexByKey.try_emplace(line.borehole + '\n' + line.sample, samples.size());
    if (isNew) {
        samples.push_back(std::move(line));
        return;
    }
    SampleData& sample = samples[place->second];
    if (const char* column = Difference(sample, line)) {
        reader.Fail(std::string(column) + " differs from that of line " +
                    std::to_string(sample.firstLine) + ", which is of the same sample");
        return;
    }
    sample.items.push_back(line.items.front());
}
}  // namespace

std::vector<SampleData> ReadSampleFile(std::string_view text, std::vector<LineError>& errors) {
    std::vector<SampleData> samples;
    IndexByKey indexByKey;
    for (const CsvRecord& record : ReadCsvTable(text, kHeader, errors)) {
        RecordReader reader(record, kHeader);
        SampleData data = ReadRecord(reader);
        data.firstLine = record.line;
        if (!reader.Failed()) {
            AddLine(samples, indexByKey, std::move(data), reader);
        }
        if (reader.Failed()) {
            errors.push_back(reader.Error());
        }
    }
    std::sort(errors.begin(), errors.end(),
              [](const LineError& a, const LineError& b) { return a.line < b.line; });
    return samples;
}

}  // namespace console
