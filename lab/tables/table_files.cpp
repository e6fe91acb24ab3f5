#include "lab/tables/table_files.h"

#include <utility>

#include "lab/Failure.h"
#include "lab/tables/DelimitedText.h"
#include "lab/tables/SampleBuilder.h"
#include "lab/tables/ags_samples.h"
#include "lab/tables/sample_table.h"
#include "lab/tables/text_coding.h"
#include "lab/tables/xlsx/WorkbookSheet.h"

namespace lab {

namespace {
/// What files of these kinds begin with.
constexpr std::string_view kZip = "PK\x03\x04";
constexpr std::string_view kCompoundFile = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";

/// Passes the rows on and tells how far the reading is.
class WatchedTable : public TableSource {
public:
    WatchedTable(std::unique_ptr<TableSource> table, const TableFile& file,
                 const TableOptions& options)
        : table_(std::move(table)), name_(file.name), progress_(options.progress) {}

    bool Next(TableRow& row) override {
        constexpr std::size_t kRowsBetween = 2048;
        if (progress_ && ++rows_ % kRowsBetween == 0) {
            progress_(name_, table_->Progress());
        }
        return table_->Next(row);
    }
    std::string Place(std::size_t row, std::size_t column) const override {
        return table_->Place(row, column);
    }
    bool RowsAreFull() const override { return table_->RowsAreFull(); }
    double Progress() const override { return table_->Progress(); }

private:
    std::unique_ptr<TableSource> table_;
    std::string name_;
    const std::function<void(const std::string&, double)>& progress_;
    std::size_t rows_ = 0;
};

bool IsWorkbook(const TableFile& file) {
    if (file.bytes.starts_with(kCompoundFile)) {
        throw Failure(file.name +
                      ": a workbook with a password, or of the old kind .xls; save it as .xlsx "
                      "without a password");
    }
    return file.bytes.starts_with(kZip);
}

std::string TextOf(const TableFile& file, const TableOptions& options) {
    std::string utf8;
    std::string error;
    if (!DecodeText(file.bytes, utf8, error)) {
        throw Failure(file.name + ": " + error);
    }
    if (!options.sheet.empty()) {
        throw Failure(file.name + ": a text file has no sheet " + Quoted(options.sheet));
    }
    return utf8;
}

std::unique_ptr<TableSource> TableOfText(const TableFile& file, std::string utf8,
                                         const TableOptions& options, Findings& findings) {
    return std::make_unique<WatchedTable>(
        std::make_unique<DelimitedText>(file.name, std::move(utf8), findings), file, options);
}

std::unique_ptr<TableSource> TableOfWorkbook(const TableFile& file, const TableOptions& options) {
    return std::make_unique<WatchedTable>(
        std::make_unique<WorkbookSheet>(file.name, file.bytes, options.sheet), file, options);
}
}  // namespace

std::unique_ptr<TableSource> OpenTable(const TableFile& file, const TableOptions& options,
                                       Findings& findings) {
    if (IsWorkbook(file)) {
        return TableOfWorkbook(file, options);
    }
    std::string text = TextOf(file, options);
    if (IsAgs(text)) {
        throw Failure(file.name + ": an AGS4 file; only samples are read from it");
    }
    return TableOfText(file, std::move(text), options, findings);
}

std::vector<Sample> ReadSamples(const std::vector<TableFile>& files, const TableOptions& options,
                                Findings& findings) {
    SampleBuilder builder(findings);
    for (const TableFile& file : files) {
        if (IsWorkbook(file)) {
            ReadSampleTable(*TableOfWorkbook(file, options), options, builder, findings);
            continue;
        }
        std::string text = TextOf(file, options);
        if (IsAgs(text)) {
            ReadAgsSamples(file.name, text, options, builder, findings);
        } else {
            ReadSampleTable(*TableOfText(file, std::move(text), options, findings), options,
                            builder, findings);
        }
    }
    return builder.Take();
}

}  // namespace lab
