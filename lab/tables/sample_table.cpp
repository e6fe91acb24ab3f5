#include "lab/tables/sample_table.h"

#include <cmath>
#include <utility>

#include "lab/numbers.h"
#include "lab/tables/RowReader.h"
#include "lab/tables/TableHeader.h"
#include "src/core/sample_and_sheet_names.h"

namespace lab {

namespace {
const TableForm kForm = {{Column::kBorehole, Column::kSample},
                         {Column::kDepth, Column::kThickness, Column::kMethod, Column::kTotal,
                          Column::kSize, Column::kMass, Column::kPassing, Column::kCumulative},
                         true};

struct KindColumn {
    ValueKind kind;
    Column column;
};
constexpr KindColumn kKinds[] = {{ValueKind::kRetained, Column::kMass},
                                 {ValueKind::kCumulative, Column::kCumulative},
                                 {ValueKind::kPassing, Column::kPassing}};

class SampleTable {
public:
    SampleTable(TableSource& source, const TableOptions& options, SampleBuilder& builder,
                Findings& findings)
        : source_(source), options_(options), builder_(builder), findings_(findings) {}

    void Read() {
        TableRow row;
        bool more = false;
        if (!header_.Read(source_, kForm, options_.names, row, more, findings_) || !FindShape()) {
            return;
        }
        if (!more && !findings_.Refused()) {
            Refuse("no data after the header line");
        }
        for (; more; more = source_.Next(row)) {
            RowReader reader(source_, header_, row, findings_);
            if (!reader.Failed()) {
                wide_ ? ReadWide(reader) : ReadLong(reader);
            }
        }
        builder_.EndFile(kind_);
    }

private:
    bool Refuse(const std::string& reason) {
        findings_.Refuse(source_.Place(header_.Row(), 0), reason);
        return false;
    }

    bool FindShape() {
        wide_ = !header_.Sizes().empty();
        if (wide_ && header_.Has(Column::kSize)) {
            return Refuse("sizes stand in a column of their own and in headers, too");
        }
        if (!wide_ && !header_.Has(Column::kSize)) {
            return Refuse("no column of sizes, and no columns that are sizes");
        }
        return FindKind() && (kind_ == ValueKind::kPassing || header_.Has(Column::kTotal) ||
                              Refuse("no column total: masses need the mass of the whole sample"));
    }

    /// What the call says counts for a column of masses, too; but nothing makes percentages masses.
    bool FindKind() {
        const auto has = [&](Column column) {
            return wide_ ? header_.SizesAreUnder(column) : header_.Has(column);
        };
        bool told = false;
        for (const auto& [kind, column] : kKinds) {
            if (has(column) && (!told || options_.as == kind)) {
                told = true;
                kind_ = kind;
                valueColumn_ = column;
            }
        }
        if (!told && !wide_) {
            return Refuse("no column mass or passing");
        }
        if (told && options_.as && *options_.as != kind_ && kind_ != ValueKind::kRetained) {
            return Refuse(std::string("the table says itself that its values are ") +
                          ColumnName(valueColumn_));
        }
        kind_ = options_.as.value_or(kind_);
        return true;
    }

    Unit ValueUnit() const { return kind_ == ValueKind::kPassing ? Unit::kPercent : Unit::kGram; }

    Sample ReadSample(RowReader& reader) const {
        Sample sample;
        sample.borehole = reader.Name(Column::kBorehole, kBoreholeLength);
        sample.sample = reader.Name(Column::kSample, kSampleLength);
        ReadDepth(reader, sample);
        sample.method = reader.Text(Column::kMethod, kMethodLength);
        sample.total = kind_ == ValueKind::kPassing ? reader.Number(Column::kTotal)
                                                    : reader.Needed(Column::kTotal);
        return sample;
    }

    /// A depth may be that of top and bottom, which tells the thickness, too.
    static void ReadDepth(RowReader& reader, Sample& sample) {
        const RowReader::Range range = reader.NumberOrRange(Column::kDepth);
        sample.depth = range.from;
        sample.thickness = reader.Number(Column::kThickness);
        if (!range.to) {
            return;
        }
        constexpr double kStep = 1e-4;  // m
        const auto told = StoredNumber(std::round((*range.to - *range.from) / kStep) * kStep);
        if (sample.thickness && sample.thickness != told) {
            reader.Fail(Column::kDepth, " " + Quoted(reader.Field(Column::kDepth)) +
                                            ": the thickness is another one");
        }
        sample.thickness = told;
    }

    void ReadLong(RowReader& reader) {
        Sample line = ReadSample(reader);
        const std::optional<double> size = NeededItem(reader, Column::kSize, Unit::kMillimetre);
        const std::optional<double> value = NeededItem(reader, valueColumn_, ValueUnit());
        if (reader.Failed()) {
            return;
        }
        if (const Sample* const first = builder_.Find(line.borehole, line.sample)) {
            if (const std::optional<Column> column = Difference(*first, line)) {
                reader.Fail(*column, " differs from that of " + builder_.PlaceOfFound() +
                                         ", which is of the same sample");
                return;
            }
        } else {
            builder_.Add(std::move(line), reader.Place(header_.IndexOf(Column::kSample)));
        }
        AddValue(*size, *value, reader, header_.IndexOf(valueColumn_));
    }

    std::optional<double> NeededItem(RowReader& reader, Column column, Unit unit) const {
        const std::size_t index = header_.IndexOf(column);
        const std::optional<double> number = reader.Value(index, unit);
        if (!number) {
            reader.Fail(index, ": missing");
        }
        return number;
    }

    /// The first column on which two rows of a sample differ.
    static std::optional<Column> Difference(const Sample& first, const Sample& next) {
        if (first.depth != next.depth) {
            return Column::kDepth;
        }
        if (first.thickness != next.thickness) {
            return Column::kThickness;
        }
        if (first.method != next.method) {
            return Column::kMethod;
        }
        return first.total != next.total ? std::optional(Column::kTotal) : std::nullopt;
    }

    void ReadWide(RowReader& reader) {
        Sample sample = ReadSample(reader);
        std::vector<std::pair<const TableHeader::SizeColumn*, double>> values;
        for (const TableHeader::SizeColumn& column : header_.Sizes()) {
            if (const std::optional<double> value = reader.Value(column.index, ValueUnit())) {
                values.emplace_back(&column, *value);
            }
        }
        if (reader.Failed()) {
            return;
        }
        if (builder_.Find(sample.borehole, sample.sample) != nullptr) {
            reader.Fail(Column::kSample, " " + Quoted(sample.sample) + ": the sample stands at " +
                                             builder_.PlaceOfFound() + ", too");
            return;
        }
        builder_.Add(std::move(sample), reader.Place(header_.IndexOf(Column::kSample)));
        for (const auto& [column, value] : values) {
            const bool passing = kind_ == ValueKind::kPassing;
            const double size =
                passing && column->header.below > 0.0 ? column->header.below : column->header.size;
            AddValue(size, value, reader, column->index);
        }
    }

    void AddValue(double size, double value, const RowReader& reader, std::size_t index) {
        builder_.AddValue(
            {size, value, kind_ == ValueKind::kRetained ? std::string() : reader.Place(index)});
    }

    TableSource& source_;
    const TableOptions& options_;
    SampleBuilder& builder_;
    Findings& findings_;
    TableHeader header_;
    bool wide_ = false;
    ValueKind kind_ = ValueKind::kRetained;
    Column valueColumn_ = Column::kMass;
};
}  // namespace

void ReadSampleTable(TableSource& source, const TableOptions& options, SampleBuilder& builder,
                     Findings& findings) {
    SampleTable(source, options, builder, findings).Read();
}

}  // namespace lab
