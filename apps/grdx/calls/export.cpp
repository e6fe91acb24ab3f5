#include "lab/results/export.h"
#include "apps/grdx/CallTable.h"
#include "apps/grdx/Failure.h"
#include "apps/grdx/suite_access.h"
#include "apps/terminal/help.h"
#include "platform/win32/file_replace.h"

namespace console {

using terminal::Help;

namespace {
constexpr const char* kStandardOutput = "-";

lab::ExportForm FormOf(lab::ExportKind kind, const std::string& file) {
    if (file != kStandardOutput) {
        return lab::FormOfFile(kind, file);
    }
    return kind == lab::ExportKind::kAgs ? lab::ExportForm::kAgs : lab::ExportForm::kCsv;
}

bool WriteExport(lab::ExportKind kind, const std::string& file, MessageStream& messages) {
    const lab::ExportForm form = FormOf(kind, file);
    const lab::Export result = lab::ExportProject(kind, form);
    std::string error;
    if (file == kStandardOutput) {
        messages.PrintResult(result.content);
    } else if (!win32::ReplaceFileWhole(file, result.content, error, win32::Durability::kOnDisk)) {
        throw Failure(error);
    } else {
        messages.PrintResult(file + "\n");
    }
    for (const std::string& note : result.notes) {
        messages.Report(note);
    }
    for (const std::string& sample : result.leftOut) {
        messages.Report("left out: " + sample);
    }
    return result.leftOut.empty();
}

void AddExport(CallTable& calls, CLI::App& group, const char* name, const std::string& what,
               lab::ExportKind kind) {
    const auto file = std::make_shared<std::string>();
    CLI::App& call = calls.Add(group, name, what, [&calls, kind, file](MessageStream& messages) {
        OpenSuite(calls.Suite());
        return WriteExport(kind, *file, messages);
    });
    const bool ags = kind == lab::ExportKind::kAgs;
    call.add_option(
            "file", *file,
            ags ? Help("file to write, FILE.ags; - is standard output",
                       "输出文件 FILE.ags；- 为标准输出")
                : Help("file to write: FILE.csv (UTF-8), FILE.xlsx or FILE.json; - is standard "
                       "output as CSV",
                       "输出文件：FILE.csv（UTF-8）、FILE.xlsx 或 FILE.json；- 为标准输出，CSV "
                       "格式"))
        ->type_name("FILE")
        ->required();
    calls.AddSuite(call);
}
}  // namespace

void AddExportCalls(CallTable& calls) {
    CLI::App& group =
        calls.AddGroup("export", Help("write results and data for reports and other programs",
                                      "导出成果与数据，供报告和其他程序使用"));
    AddExport(calls, group, "results",
              Help("one row a sample: stored diameters, Cu and Cc, shares of gravel, sand, silt "
                   "and clay, soil name, findings",
                   "每试样一行：入库的特征粒径、Cu、Cc，砾、砂、粉、粘粒含量，土名，检查结果"),
              lab::ExportKind::kResults);
    AddExport(calls, group, "passing",
              Help("one row a sieve: percent finer", "每筛一行：小于某粒径百分数"),
              lab::ExportKind::kPassing);
    AddExport(calls, group, "items",
              Help("one row a sieve, as import reads it", "每筛一行，可再用 import 读入"),
              lab::ExportKind::kItems);
    AddExport(calls, group, "ags",
              Help("gradings as an AGS4 file, rounded as that form has them",
                   "级配数据，AGS4 格式，按该格式修约"),
              lab::ExportKind::kAgs);
}

}  // namespace console
