#include "apps/grdx/script.h"
#include "apps/grdx/CallTable.h"
#include "apps/terminal/help.h"

namespace console {

using terminal::Help;

void AddScriptCall(CallTable& calls) {
    const auto file = std::make_shared<std::string>();
    CLI::App& call =
        calls.Add(calls.Program(), "script",
                  Help("run the commands of a drawing session, with the answers to their dialogs",
                       "执行命令文件：绘图命令及其对话框的回答"),
                  [&calls, file](MessageStream& messages) {
                      return RunScript(calls.Suite(), *file, messages);
                  });
    call.add_option("file", *file,
                    Help("the script, or - for standard input", "命令文件，- 表示标准输入"))
        ->type_name("FILE")
        ->required();
    calls.AddSuite(call);
    calls.AddWait(call);
}

}  // namespace console
