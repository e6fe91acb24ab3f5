#include <map>

#include "apps/grdx/CallTable.h"
#include "apps/grdx/data_import.h"
#include "apps/grdx/suite_access.h"
#include "apps/terminal/help.h"

namespace console {

using terminal::Help;

namespace {
void AddValueKind(CLI::App& call, const std::shared_ptr<ImportRequest>& request) {
    const std::map<std::string, lab::ValueKind> kinds = {
        {"retained", lab::ValueKind::kRetained},
        {"cumulative", lab::ValueKind::kCumulative},
        {"passing", lab::ValueKind::kPassing}};
    call.add_option_function<std::string>(
            "--as", [request, kinds](const std::string& name) { request->as = kinds.at(name); },
            Help("what the values are: retained (mass on each sieve), cumulative (mass on "
                 "each sieve and all coarser ones) or passing (percent finer); without it "
                 "as the table's headers say",
                 "数值的含义：retained（各筛筛余质量）、cumulative（累计筛余质量）或 passing"
                 "（小于该粒径的百分数）；不写时按表头"))
        ->check(CLI::IsMember({"retained", "cumulative", "passing"}).description(""))
        ->type_name("retained|cumulative|passing");
}

void AddTableOptions(CLI::App& call, const std::shared_ptr<ImportRequest>& request) {
    call.add_option("file", request->files,
                    Help("text table (UTF-8, UTF-16, GB 18030), .xlsx workbook or AGS4 file",
                         "文本表（UTF-8、UTF-16、GB 18030）、.xlsx 工作簿或 AGS4 文件"))
        ->type_name("FILE")
        ->required();
    call.add_option("--sheet", request->sheet,
                    Help("sheet of a workbook; without it the first", "工作表名；不写时为第一个"))
        ->type_name("NAME");
    call.add_option("--map", request->map,
                    Help("file with further names of columns: {\"borehole\": [\"Hole\"]}",
                         "补充列名的文件：{\"borehole\": [\"Hole\"]}"))
        ->type_name("FILE.json");
    call.add_flag("--dry-run", request->dryRun,
                  Help("tell what would be stored, and store nothing", "只报告，不存储"));
}
}  // namespace

void AddImportCalls(CallTable& calls) {
    const auto request = std::make_shared<ImportRequest>();
    CLI::App& import = calls.AddGroup(
        "import", Help("read laboratory data into the project", "把试验数据读入工程"));
    CLI::App& samples = calls.Add(
        import, "samples",
        Help("sieve data, a row for each sieve or for each sample, with the columns borehole, "
             "sample, depth (of the sample's top below ground, m), thickness (of the piece "
             "sampled, m), method, total (mass of the dry sample, g), size (of the sieve, mm) and "
             "mass (retained on it, g) or passing (percent finer); or a column for each size",
             "筛分数据，每行一个筛或一个试样，列为钻孔编号、试样编号、取样深度（m）、厚度（m）、"
             "试验方法、总质量（g）、孔径（mm）、筛余质量（g）或小于某粒径百分数；或每个粒径一列"),
        [&calls, request](MessageStream& messages) {
            OpenSuite(calls.Suite());
            ImportSamples(*request, messages);
            return true;
        });
    AddValueKind(samples, request);
    CLI::App& layers = calls.Add(
        import, "layers",
        Help("design values of soil layers, with the columns main and sub (layer numbers), size "
             "(mm) and percent",
             "土层设计值，列为主层、亚层、粒径（mm）、百分含量（%）"),
        [&calls, request](MessageStream& messages) {
            OpenSuite(calls.Suite());
            ImportLayers(*request, messages);
            return true;
        });
    CLI::App& hydrometer = calls.Add(
        import, "hydrometer",
        Help("hydrometer readings, which become the fine part of their samples, with the columns "
             "borehole, sample, type (A, B or 152H), dry_mass (g), gs, time_min, reading, "
             "temperature (°C), and the corrections meniscus, dispersant, depth0 and "
             "depth_per_unit (cm)",
             "密度计读数，换算为试样的细粒部分，列为 borehole、sample、type（A、B 或 "
             "152H）、dry_mass"
             "（干土质量，g）、gs（土粒比重）、time_min（时间，min）、reading（读数）、temperature"
             "（温度，°C），以及校正 meniscus、dispersant、depth0、depth_per_unit（cm）"),
        [&calls, request](MessageStream& messages) {
            OpenSuite(calls.Suite());
            ImportHydrometer(*request, messages);
            return true;
        });
    for (CLI::App* call : {&samples, &layers, &hydrometer}) {
        AddTableOptions(*call, request);
        calls.AddSuite(*call);
        calls.AddWait(*call);
    }
}

}  // namespace console
