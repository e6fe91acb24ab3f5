#include "lab/hydrometer/hydrometer_table.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

#include "lab/hydrometer/joint.h"
#include "lab/numbers.h"
#include "lab/tables/RowReader.h"
#include "lab/tables/TableHeader.h"
#include "src/core/sample_and_sheet_names.h"

namespace lab {

namespace {
const TableForm kForm = {{Column::kBorehole, Column::kSample},
                         {Column::kType, Column::kDryMass, Column::kGravity, Column::kTime,
                          Column::kReading, Column::kTemperature, Column::kMeniscus,
                          Column::kDispersant, Column::kDepth0, Column::kDepthPerUnit},
                         false};
constexpr Column kNeeded[] = {Column::kType, Column::kDryMass, Column::kGravity,
                              Column::kTime, Column::kReading, Column::kTemperature};

std::string PercentText(double percent) {
    return ShortestText(std::round(percent * 100.0) / 100.0) + " %";
}

/// What a number may be; anything else is a slip of the pen or another instrument's.
struct Bounds {
    double low;
    double high;
};
constexpr Bounds kGravities{1.2, 8.0};

Bounds ReadingsOf(HydrometerType type) {
    return type == HydrometerType::kB ? Bounds{0.95, 1.1} : Bounds{-5.0, 60.0};
}

std::optional<HydrometerType> TypeOf(const std::string& text) {
    constexpr std::pair<std::string_view, HydrometerType> kNames[] = {
        {"a", HydrometerType::kA},      {"甲", HydrometerType::kA}, {"甲种", HydrometerType::kA},
        {"b", HydrometerType::kB},      {"乙", HydrometerType::kB}, {"乙种", HydrometerType::kB},
        {"152h", HydrometerType::k152H}};
    for (const auto& [name, type] : kNames) {
        if (FoldedHeader(text) == name) {
            return type;
        }
    }
    return std::nullopt;
}

class HydrometerTable {
public:
    explicit HydrometerTable(Findings& findings) : findings_(findings) {}

    void Read(TableSource& source, const std::string& file, const ColumnNames& names) {
        TableHeader header;
        TableRow row;
        bool more = false;
        if (!header.Read(source, kForm, names, row, more, findings_)) {
            return;
        }
        for (const Column column : kNeeded) {
            if (!header.Has(column)) {
                findings_.Refuse(source.Place(header.Row(), 0),
                                 std::string("no column ") + ColumnName(column));
                more = false;
            }
        }
        if (!more && !findings_.Refused()) {
            findings_.Refuse(source.Place(header.Row(), 0), "no data after the header line");
        }
        for (; more; more = source.Next(row)) {
            RowReader reader(source, header, row, findings_);
            if (!reader.Failed()) {
                ReadRow(reader, header, file);
            }
        }
    }

    std::vector<HydrometerTest> Take() {
        std::vector<HydrometerTest> tests;
        for (Entry& entry : entries_) {
            Finish(entry);
            tests.push_back(std::move(entry.test));
        }
        return tests;
    }

private:
    struct Entry {
        HydrometerTest test;
        std::string file;
        std::string place;
        std::vector<std::pair<HydrometerReading, std::string>> readings;  ///< with their places
    };

    double Within(RowReader& reader, Column column, const Bounds& bounds) {
        const std::optional<double> number = reader.Measured(column);
        if (!number) {
            reader.Fail(column, ": missing");
        } else if (*number < bounds.low || *number > bounds.high) {
            reader.Fail(column, " " + Quoted(reader.Field(column)) + ": not between " +
                                    ShortestText(bounds.low) + " and " + ShortestText(bounds.high));
        }
        return number.value_or(bounds.low);
    }
    double Positive(RowReader& reader, Column column) {
        const std::optional<double> number = reader.Measured(column);
        if (!number || !(*number > 0.0) || !StoredNumber(*number)) {
            reader.Fail(column, number ? " " + Quoted(reader.Field(column)) + ": not above 0"
                                       : std::string(": missing"));
        }
        return number.value_or(1.0);
    }

    void ReadRow(RowReader& reader, const TableHeader& header, const std::string& file) {
        HydrometerTest test;
        test.borehole = reader.Name(Column::kBorehole, kBoreholeLength);
        test.sample = reader.Name(Column::kSample, kSampleLength);
        const std::optional<HydrometerType> type = TypeOf(reader.Field(Column::kType));
        if (!type) {
            reader.Fail(Column::kType,
                        " " + Quoted(reader.Field(Column::kType)) + ": not A, B or 152H");
        }
        test.type = type.value_or(HydrometerType::kA);
        test.dryMass = Positive(reader, Column::kDryMass);
        test.gravity = Within(reader, Column::kGravity, kGravities);
        const HydrometerReading reading = ReadReading(reader, header, test);
        if (reader.Failed()) {
            return;
        }
        Entry& entry = EntryOf(test, file, reader.Place(header.IndexOf(Column::kSample)));
        if (entry.test.type != test.type || entry.test.dryMass != test.dryMass ||
            entry.test.gravity != test.gravity) {
            const Column column = entry.test.type != test.type         ? Column::kType
                                  : entry.test.dryMass != test.dryMass ? Column::kDryMass
                                                                       : Column::kGravity;
            reader.Fail(column,
                        " differs from that of " + entry.place + ", which is of the same sample");
        } else if (entry.file != file) {
            reader.Fail(Column::kSample, " " + Quoted(test.sample) + ": the sample stands at " +
                                             entry.place + ", too");
        } else {
            entry.readings.emplace_back(reading, reader.Place(header.IndexOf(Column::kReading)));
        }
    }

    HydrometerReading ReadReading(RowReader& reader, const TableHeader& header,
                                  const HydrometerTest& test) {
        const TemperatureRange temperatures = TemperaturesOf(test.type);
        const FallDepth pattern = PatternFallDepth(test.type);
        HydrometerReading reading;
        reading.minutes = Positive(reader, Column::kTime);
        reading.reading = Within(reader, Column::kReading, ReadingsOf(test.type));
        reading.celsius =
            Within(reader, Column::kTemperature, {temperatures.low, temperatures.high});
        reading.meniscus = reader.Measured(Column::kMeniscus).value_or(0.0);
        reading.dispersant = reader.Measured(Column::kDispersant).value_or(0.0);
        reading.depth.atZero = reader.Measured(Column::kDepth0).value_or(pattern.atZero);
        reading.depth.perUnit = reader.Measured(Column::kDepthPerUnit).value_or(pattern.perUnit);
        if (!reader.Failed() && test.type != HydrometerType::k152H &&
            !header.Has(Column::kDepth0)) {
            findings_.Note(reader.Place(0) + ": no depth0 and depth_per_unit; for type " +
                           HydrometerName(test.type) + " those of the pattern " +
                           (test.type == HydrometerType::kA ? "152H" : "151H") + " are taken");
        }
        HydrometerTest one = test;
        one.readings = {reading};
        if (!reader.Failed() && !(GrainSize(one, reading) > 0.0)) {
            reader.Fail(Column::kReading, " " + Quoted(reader.Field(Column::kReading)) +
                                              ": the depth of fall is not above 0");
        }
        return reading;
    }

    Entry& EntryOf(const HydrometerTest& test, const std::string& file, const std::string& place) {
        const auto [known, isNew] =
            indexes_.try_emplace(test.borehole + '\n' + test.sample, entries_.size());
        if (isNew) {
            entries_.push_back({test, file, place, {}});
        }
        return entries_[known->second];
    }

    /// Puts the readings in order and looks whether they go together.
    void Finish(Entry& entry) {
        std::stable_sort(
            entry.readings.begin(), entry.readings.end(),
            [](const auto& a, const auto& b) { return a.first.minutes < b.first.minutes; });
        for (const auto& [reading, place] : entry.readings) {
            entry.test.readings.push_back(reading);
        }
        const std::vector<HydrometerPoint> points = PointsOf(entry.test);
        for (std::size_t i = 0; i < points.size(); ++i) {
            const std::string fault = Fault(points[i], i > 0 ? &points[i - 1] : nullptr);
            if (!fault.empty()) {
                findings_.Refuse(entry.readings[i].second, "sample " + entry.test.sample + " of " +
                                                               entry.test.borehole + ": " + fault);
                return;
            }
        }
    }

    static std::string Fault(const HydrometerPoint& point, const HydrometerPoint* before) {
        constexpr double kEqual = 1e-9;
        if (point.finer < -kEqual) {
            return "the percentage finer is below 0: " + PercentText(point.finer);
        }
        if (before != nullptr && point.size >= before->size) {
            return "the size does not fall with time: " + ShortestText(point.size) + " mm after " +
                   ShortestText(before->size) + " mm";
        }
        if (before != nullptr && point.finer > before->finer + kEqual) {
            return "the percentage finer rises with time: " + PercentText(point.finer) + " after " +
                   PercentText(before->finer);
        }
        return {};
    }

    Findings& findings_;
    std::vector<Entry> entries_;
    std::unordered_map<std::string, std::size_t> indexes_;
};
}  // namespace

std::vector<HydrometerTest> ReadHydrometerTests(const std::vector<TableFile>& files,
                                                const TableOptions& options, Findings& findings) {
    HydrometerTable table(findings);
    for (const TableFile& file : files) {
        table.Read(*OpenTable(file, options, findings), file.name, options.names);
    }
    return table.Take();
}

}  // namespace lab
