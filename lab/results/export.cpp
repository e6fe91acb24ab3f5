#include "lab/results/export.h"

#include <algorithm>
#include <ctime>

#include "lab/Failure.h"
#include "lab/checks/project_check.h"
#include "lab/results/ags_text.h"
#include "lab/results/result_tables.h"
#include "lab/results/table_texts.h"
#include "lab/sample_record.h"
#include "platform/win32/gbk_case.h"

namespace lab {

namespace {
struct Ending {
    const char* text;
    ExportForm form;
};
constexpr Ending kEndings[] = {{".csv", ExportForm::kCsv},
                               {".xlsx", ExportForm::kWorkbook},
                               {".json", ExportForm::kJson},
                               {".ags", ExportForm::kAgs}};

std::string Today() {
    const std::time_t now = std::time(nullptr);
    std::tm day{};
    localtime_r(&now, &day);
    char text[16];
    std::strftime(text, sizeof text, "%Y-%m-%d", &day);
    return text;
}

std::string NameOf(const Sample& sample) {
    return "sample \"" + sample.sample + "\" of borehole \"" + sample.borehole + '"';
}

bool IsAscii(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0; });
}

ResultTable TableOf(ExportKind kind, const ProjectData& data) {
    switch (kind) {
        case ExportKind::kResults:
            return ResultsOf(data, CheckWithSheets(data));
        case ExportKind::kPassing:
            return PassingOf(data);
        default:
            return ItemsOf(data);
    }
}

std::string TextOf(const ResultTable& table, ExportForm form) {
    switch (form) {
        case ExportForm::kWorkbook:
            return TableAsWorkbook(table);
        case ExportForm::kJson:
            return TableAsJson(table);
        default:
            return TableAsCsv(table);
    }
}

/// Samples that have no row of their own in the table.
void NoteLeftOut(ExportKind kind, const ProjectData& data, Export& result) {
    for (const ProjectSample& sample : data.samples) {
        const Sample& measured = sample.stored.data;
        if (kind == ExportKind::kItems && measured.items.empty()) {
            result.leftOut.push_back(NameOf(measured) + " has no items");
        }
        if (kind == ExportKind::kPassing && !RecordOf(measured)) {
            result.leftOut.push_back(NameOf(measured) + " has faulty data, see grdx check");
        }
    }
}

Export AgsOf(const ProjectData& data) {
    AgsText ags = ProjectAsAgs(data, Today());
    Export result;
    for (const Sample* const sample : ags.leftOut) {
        result.leftOut.push_back(NameOf(*sample) + " has faulty data, see grdx check");
    }
    if (!IsAscii(ags.text)) {
        result.notes.push_back(
            "names or methods hold other letters than ASCII, which AGS4 does not have (its rule "
            "1); "
            "they are written as UTF-8");
    }
    result.content = std::move(ags.text);
    return result;
}
}  // namespace

ExportForm FormOfFile(ExportKind kind, const std::string& file) {
    const bool ags = kind == ExportKind::kAgs;
    for (const Ending& ending : kEndings) {
        const std::string_view text = ending.text;
        if (file.size() > text.size() && (ending.form == ExportForm::kAgs) == ags &&
            win32::EqualNoCase(std::string_view(file).substr(file.size() - text.size()), text)) {
            return ending.form;
        }
    }
    throw Failure(file + ": the name has to end with " + (ags ? ".ags" : ".csv, .xlsx or .json"));
}

Export ExportProject(ExportKind kind, ExportForm form) {
    const ProjectData data = ReadProjectData();
    if (kind == ExportKind::kAgs) {
        return AgsOf(data);
    }
    Export result;
    NoteLeftOut(kind, data, result);
    result.content = TextOf(TableOf(kind, data), form);
    return result;
}

}  // namespace lab
