#include <nlohmann/json.hpp>

#include "apps/grdx/CallTable.h"
#include "apps/grdx/Failure.h"
#include "apps/grdx/drawing_info.h"
#include "apps/terminal/help.h"

namespace console {

using terminal::Help;

namespace {
struct Arguments {
    std::vector<std::string> files;
    bool json = false;
    bool layers = false;
};

bool Tell(const Arguments& given, MessageStream& messages) {
    bool good = true;
    for (const std::string& file : given.files) {
        try {
            const DrawingInfo info = ReadDrawingInfo(file, given.layers);
            messages.PrintResult(given.json ? DrawingAsJson(info).dump() + "\n"
                                            : DescribeDrawing(info));
            for (const std::string& line : info.damage) {
                messages.Report(line);
                good = false;
            }
        } catch (const Failure& failure) {
            messages.Report(failure.what());
            good = false;
        }
    }
    return good;
}
}  // namespace

void AddInfoCall(CallTable& calls) {
    const auto given = std::make_shared<Arguments>();
    CLI::App& call =
        calls.Add(calls.Program(), "info",
                  Help("what drawings hold: version, code page, entities and every field of their "
                       "curves",
                       "图形文件的内容：版本、代码页、各类对象的个数和曲线的全部数据"),
                  [given](MessageStream& messages) { return Tell(*given, messages); });
    call.add_option("file", given->files, Help("drawing", "图形文件"))
        ->type_name("FILE.dwg")
        ->required();
    call.add_flag("--json", given->json, Help("one JSON object a file", "每个文件一个 JSON 对象"));
    call.add_flag("--layers", given->layers,
                  Help("read the curves as those of layer charts", "按土层成果图的曲线读取"));
}

}  // namespace console
