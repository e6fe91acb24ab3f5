#include "apps/grdx/project.h"
#include "apps/grdx/CallTable.h"
#include "apps/grdx/suite_access.h"
#include "apps/terminal/help.h"

namespace console {

using terminal::Help;

void AddProjectCall(CallTable& calls) {
    struct Arguments {
        lab::ProjectChange change;
        bool json = false;
    };
    const auto given = std::make_shared<Arguments>();
    CLI::App& call =
        calls.Add(calls.Program(), "project",
                  Help("show the project's number, name and standard code, or change them",
                       "显示或修改工程的编号、名称和规范代码"),
                  [&calls, given](MessageStream& messages) {
                      OpenSuite(calls.Suite());
                      ShowProject(given->change, given->json, messages);
                      return true;
                  });
    call.add_option("--number", given->change.number,
                    Help("new project number; sheets drawn stay under the old one",
                         "新的工程编号；已出的成果图留在原编号之下"))
        ->type_name("N");
    call.add_option("--name", given->change.name, Help("new project name", "新的工程名称"))
        ->type_name("NAME");
    call.add_option("--code", given->change.code,
                    Help("new standard code, as for 'grdx new'", "新的规范代码，含义同 grdx new"))
        ->type_name("0|1|2")
        ->check(CLI::IsMember({0, 1, 2}).description(""));
    call.add_option("--checked", given->change.checked,
                    Help("whether somebody has checked the data; others are not drawn",
                         "数据是否已检查；未检查的不能出图"))
        ->type_name("yes|no")
        ->check(CLI::IsMember({"yes", "no"}).description(""));
    call.add_flag("--json", given->json, Help("as one JSON object", "输出一个 JSON 对象"));
    calls.AddSuite(call);
}

}  // namespace console
