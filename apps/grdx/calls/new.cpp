#include "apps/grdx/CallTable.h"
#include "apps/grdx/new_suite.h"
#include "apps/terminal/help.h"

namespace console {

using terminal::Help;

void AddNewCall(CallTable& calls) {
    struct Arguments {
        std::string folder;
        lab::ProjectEntry project{1, "P1", "新建工程", 0};
        ProjectPlace place;
    };
    const auto given = std::make_shared<Arguments>();
    CLI::App& call =
        calls.Add(calls.Program(), "new",
                  Help("make a suite folder (a project's folder) with an empty project",
                       "新建工程目录，内为空工程"),
                  [given](MessageStream& messages) {
                      MakeSuiteFolder(given->folder, given->project, given->place);
                      messages.PrintResult(given->folder + "\n");
                      return true;
                  });
    call.add_option("folder", given->folder,
                    Help("the folder to make; one that is there must be empty",
                         "要新建的目录；已存在时必须为空"))
        ->type_name("DIR")
        ->required();
    CLI::Option* const number =
        call.add_option("--number", given->project.number,
                        Help("project number; also the name of the folder of its sheets",
                             "工程编号，也是成果图所在目录的名称"))
            ->type_name("N")
            ->capture_default_str();
    CLI::Option* const name =
        call.add_option("--name", given->project.name, Help("project name", "工程名称"))
            ->type_name("NAME")
            ->capture_default_str();
    CLI::Option* const code =
        call.add_option(
                "--code", given->project.code,
                Help(
                    "standard code, which decides sheets and soil names: 0 two charts on an A4 "
                    "sheet; "
                    "1 the same, with fine sand from 0.1 mm on instead of 0.075 mm; 2 six charts "
                    "on "
                    "an A3 sheet",
                    "规范代码，决定图幅和定名：0 为 A4 图，每张两图；1 同 0，但细砂与粉砂以 0.1 mm "
                    "而非 "
                    "0.075 mm 为界；2 为 A3 图，每张六图"))
            ->type_name("0|1|2")
            ->check(CLI::IsMember({0, 1, 2}).description(""))
            ->capture_default_str();
    CLI::Option* const database = call.add_option(
        "--database", given->place.database,
        Help("initialisation string of a database server that keeps the project, without a "
             "password; tables that are missing there are made",
             "存放工程的数据库服务器的连接串，不含口令；缺少的表会自动建立"));
    database->type_name("STRING");
    call.add_option("--project", given->place.index,
                    Help("index of a project that is in that database already, to which the folder "
                         "is attached",
                         "该数据库中已有工程的索引，新目录将与之相连"))
        ->type_name("N")
        ->check(CLI::Range(1, 32767).description(""))
        ->needs(database)
        ->excludes(number, name, code);
}

}  // namespace console
