#include <nlohmann/json.hpp>

#include "apps/grdx/CallTable.h"
#include "apps/grdx/suite_access.h"
#include "apps/terminal/help.h"
#include "lab/checks/findings_json.h"
#include "lab/checks/project_check.h"

namespace console {

using terminal::Help;

namespace {
struct CheckRequest {
    std::vector<std::string> boreholes;
    bool json = false;
};

bool Check(const CheckRequest& request, MessageStream& messages) {
    const lab::ProjectData data = lab::ReadProjectData();
    for (const std::string& borehole : request.boreholes) {
        data.RequireBorehole(borehole);
    }
    const lab::FindingList findings = lab::CheckWithSheets(data, request.boreholes);
    if (request.json) {
        messages.PrintResult(lab::FindingsAsJson(findings).dump() + "\n");
    } else {
        for (const lab::Finding& finding : findings) {
            messages.PrintResult(lab::DescribeFinding(finding) + "\n");
        }
    }
    return !lab::HasError(findings);
}
}  // namespace

void AddCheckCall(CallTable& calls) {
    const auto request = std::make_shared<CheckRequest>();
    CLI::App& call = calls.Add(
        calls.Program(), "check",
        Help("looks through the project's data before sheets are drawn: a line for each finding. "
             "Exit status 1 when there is an error, for which a chart is refused",
             "出图前检查工程数据，每个问题一行。有错误（不能出图）时退出码为 1"),
        [&calls, request](MessageStream& messages) {
            OpenSuite(calls.Suite());
            return Check(*request, messages);
        });
    call.add_option("--borehole", request->boreholes,
                    Help("only the samples of this borehole; may be given several times",
                         "仅检查该钻孔的试样，可多次给出"))
        ->type_name("B")
        ->allow_extra_args(false);
    call.add_flag("--json", request->json, Help("as a JSON list", "输出 JSON 列表"));
    calls.AddSuite(call);
}

}  // namespace console
