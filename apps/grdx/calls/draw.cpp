#include "apps/grdx/draw.h"
#include "apps/grdx/CallTable.h"
#include "apps/terminal/help.h"
#include "lab/numbers.h"
#include "src/facts/curve_form.h"

namespace console {

using terminal::Help;

namespace {
/// A text of the sheet's annotation, and the check box beside it.
void AddAnnotation(CLI::App& call, const std::string& name, const char* type,
                   const std::string& what, std::optional<std::string>& text,
                   std::optional<bool>& shown,
                   const std::function<std::string(const std::string&)>& check = nullptr) {
    CLI::Option* const option = call.add_option_function<std::string>(
        "--" + name, [&text](const std::string& value) { text = value; },
        Help("on the sheets: ", "图上注明：") + what);
    option->type_name(type);
    if (check) {
        option->check(check);
    }
    call.add_flag_callback(
        "--no-" + name, [&shown] { shown = false; }, Help("without it", "不注明"));
}

void AddSwitch(CLI::App& call, const std::string& name, const std::string& what,
               std::optional<bool>& on) {
    // The names as one text: the parser's own way of writing "off" would stand in the help.
    call.add_flag_callback(
        "--" + name, [&on] { on = true; }, what);
    call.add_flag_callback(
        "--no-" + name, [&on] { on = false; }, Help("without it", "不要"));
}

void AddPageChoices(CLI::App& call, PageChoices& choices) {
    AddAnnotation(call, "unit", "NAME", Help("the laboratory", "试验单位"), choices.unit,
                  choices.showUnit);
    AddAnnotation(call, "tester", "NAME", Help("who tested", "试验人"), choices.tester,
                  choices.showTester);
    AddAnnotation(call, "checker", "NAME", Help("who checked", "校核人"), choices.checker,
                  choices.showChecker);
    AddAnnotation(call, "date", "YYYY-MM-DD", Help("the date", "日期"), choices.date,
                  choices.showDate, [](const std::string& text) {
                      return lab::IsDate(text) ? std::string() : text + " is no date YYYY-MM-DD";
                  });
    AddSwitch(call, "outer-frame", Help("an outer frame around the sheet", "图纸外框"),
              choices.outerFrame);
    AddSwitch(call, "right-axis", Help("a second percent axis, on the right", "右侧也标百分数"),
              choices.rightAxis);
    AddSwitch(
        call, "recompute",
        Help("fractions of layers scaled to a sum of 100 %", "土层各粒组按合计 100 % 重新计算"),
        choices.recompute);
}

void AddItems(CLI::App& call, const char* name, const std::string& what, const char* type,
              DrawRequest& request) {
    CLI::Option* const items = call.add_option(name, request.items, what)->allow_extra_args(false);
    items->type_name(type);
    CLI::Option* const all =
        call.add_flag("--all", request.all, Help("everything that there is", "全部"));
    items->excludes(all);
    call.parse_complete_callback([&request, name] {
        if (request.items.empty() && !request.all) {
            throw CLI::RequiredError(std::string(name) + " or --all");
        }
    });
}

void AddCurve(CLI::App& call, DrawRequest& request) {
    call.add_option("--curve", request.curve,
                    Help("for this run: plain, the curve through the measured points alone, or "
                         "guarded, with further points where that one runs back, rises or leaves "
                         "0 to 100 %. Else as settings.ini says",
                         "仅用于本次：plain 只通过实测点；guarded "
                         "在曲线回折、上升或超出 0~100 % 处加点。未给出时按 settings.ini"))
        ->type_name("FORM")
        ->check(CLI::IsMember({kGuardedForm, kPlainForm}));
}
}  // namespace

void AddDrawCalls(CallTable& calls) {
    const auto request = std::make_shared<DrawRequest>();
    const auto run = [&calls, request](MessageStream& messages) {
        return DrawCharts(calls.Suite(), *request, messages);
    };
    CLI::App& draw = calls.AddGroup(
        "draw", Help("draw chart sheets; prints the path of each. What is not chosen is as it was "
                     "chosen last",
                     "出成果图，并显示每张图的路径。未给出的选项沿用上次的选择"));
    CLI::App& samples = calls.Add(
        draw, "samples", Help("charts of the samples of a borehole", "钻孔试样的成果图"), run);
    samples.add_option("--borehole", request->borehole, Help("borehole number", "钻孔编号"))
        ->type_name("B")
        ->required();
    AddItems(samples, "--sample",
             Help("sample number; may be given several times", "试样编号，可多次给出"), "S",
             *request);
    CLI::App& layers =
        calls.Add(draw, "layers", Help("charts of soil layers", "土层的成果图"), run);
    layers.preparse_callback([request](std::size_t) { request->layers = true; });
    AddItems(layers, "--layer",
             Help("layer: its main number, or main and sub number as 2-1; may be given several "
                  "times",
                  "土层：主层号，或主层号-亚层号，如 2-1；可多次给出"),
             "L", *request);
    for (CLI::App* call : {&samples, &layers}) {
        AddPageChoices(*call, request->choices);
        AddCurve(*call, *request);
        calls.AddSuite(*call);
        calls.AddWait(*call);
    }
}

}  // namespace console
