#include <nlohmann/json.hpp>

#include "apps/grdx/CallTable.h"
#include "apps/grdx/suite_access.h"
#include "apps/grdx/suite_listing.h"
#include "apps/terminal/help.h"
#include "lab/checks/project_check.h"

namespace console {

using terminal::Help;

void AddListCall(CallTable& calls) {
    const auto json = std::make_shared<bool>(false);
    CLI::App& call = calls.Add(
        calls.Program(), "list",
        Help("the project's boreholes, samples and layers, which of them are drawn, and their "
             "stored results (diameters in mm)",
             "列出工程的钻孔、试样和土层，出图标记和入库成果（粒径单位 mm）"),
        [&calls, json](MessageStream& messages) {
            OpenSuite(calls.Suite());
            const lab::ProjectData data = lab::ReadProjectData();
            messages.PrintResult(*json ? SuiteAsJson(data, lab::CheckWithSheets(data)).dump() + "\n"
                                       : DescribeSuite(data));
            const lab::FindingList unreadable = lab::UnreadableCells(data);
            for (const lab::Finding& finding : unreadable) {
                messages.Report(lab::DescribeFinding(finding));
            }
            return unreadable.empty();
        });
    call.add_flag("--json", *json, Help("as one JSON object", "输出一个 JSON 对象"));
    calls.AddSuite(call);
}

}  // namespace console
