#include <unistd.h>
#include <xlsxwriter.h>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "lab/Failure.h"
#include "lab/results/table_texts.h"
#include "platform/win32/file_replace.h"

namespace lab {

namespace {
constexpr double kColumnWidth = 12.0;  // characters

/// A name for a file that is removed with the object.
class ScratchFile {
public:
    ScratchFile() : path_(std::filesystem::temp_directory_path() / "grdx-XXXXXX") {
        const int file = mkstemp(path_.data());
        if (file < 0) {
            throw Failure("no temporary file can be made in " +
                          std::filesystem::temp_directory_path().string());
        }
        close(file);
    }
    ~ScratchFile() { unlink(path_.c_str()); }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    const std::string& Path() const { return path_; }

private:
    std::string path_;
};

/// Writes the rows of a sheet one after the other.
class SheetWriter {
public:
    SheetWriter(lxw_worksheet* sheet, lxw_format* header) : sheet_(sheet), header_(header) {}

    void Write(const ResultTable& table) {
        const auto columns = static_cast<lxw_col_t>(table.columns.size());
        worksheet_set_column(sheet_, 0, static_cast<lxw_col_t>(columns - 1), kColumnWidth, nullptr);
        worksheet_freeze_panes(sheet_, 1, 0);
        for (lxw_col_t column = 0; column < columns; ++column) {
            Check(worksheet_write_string(sheet_, 0, column, HeaderOf(table.columns[column]).c_str(),
                                         header_));
        }
        for (const auto& cells : table.rows) {
            ++row_;
            for (lxw_col_t column = 0; column < columns; ++column) {
                Check(WriteCell(column, cells[column]));
            }
        }
    }

private:
    lxw_error WriteCell(lxw_col_t column, const ResultTable::Cell& cell) {
        if (const double* const number = std::get_if<double>(&cell)) {
            return worksheet_write_number(sheet_, row_, column, *number, nullptr);
        }
        const std::string text = TextOf(cell);
        return text.empty() ? LXW_NO_ERROR
                            : worksheet_write_string(sheet_, row_, column, text.c_str(), nullptr);
    }
    static void Check(lxw_error error) {
        if (error != LXW_NO_ERROR) {
            throw Failure(std::string("a sheet of a workbook cannot hold the table: ") +
                          lxw_strerror(error));
        }
    }

    lxw_worksheet* sheet_;
    lxw_format* header_;
    lxw_row_t row_ = 0;
};
}  // namespace

std::string TableAsWorkbook(const ResultTable& table) {
    const ScratchFile file;
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    const auto discard = [](lxw_workbook* book) { lxw_workbook_free(book); };
    std::unique_ptr<lxw_workbook, decltype(discard)> book(
        workbook_new_opt(file.Path().c_str(), &options), discard);
    lxw_format* const bold = workbook_add_format(book.get());
    format_set_bold(bold);
    SheetWriter(workbook_add_worksheet(book.get(), table.title.c_str()), bold).Write(table);
    if (const lxw_error error = workbook_close(book.release()); error != LXW_NO_ERROR) {
        throw Failure(file.Path() + ": " + lxw_strerror(error));
    }
    std::string content;
    std::string reason;
    if (!win32::ReadFileWhole(file.Path(), content, reason)) {
        throw Failure(reason);
    }
    return content;
}

}  // namespace lab
