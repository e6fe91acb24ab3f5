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

/// Names that may be given several times, or instead of them all that there are; one of both is
/// needed.
void AddNames(CLI::App& call, const char* name, const std::string& what, const char* type,
              std::vector<std::string>& names, const char* allName, const std::string& allWhat,
              bool& all) {
    CLI::Option* const option = call.add_option(name, names, what)->allow_extra_args(false);
    option->type_name(type);
    option->excludes(call.add_flag(allName, all, allWhat));
}

void RequireOne(bool given, const std::string& names) {
    if (!given) {
        throw CLI::RequiredError(names);
    }
}

void AddSampleChoice(CLI::App& call, DrawOrder& order) {
    lab::DrawChoice& choice = order.samples;
    AddNames(call, "--borehole",
             Help("borehole number; may be given several times", "钻孔编号，可多次给出"), "B",
             choice.boreholes, "--all-boreholes",
             Help("every borehole of the project", "工程的所有钻孔"), choice.allBoreholes);
    AddNames(call, "--sample",
             Help("sample number; may be given several times, and each borehole must have it",
                  "试样编号，可多次给出，每个钻孔都须有该试样"),
             "S", choice.samples, "--all", Help("everything that there is", "全部"),
             choice.allSamples);
    call.add_flag("--undrawn", choice.undrawn,
                  Help("without the samples that are marked as drawn", "不含已出图的试样"));
    call.add_flag("--skip-faulty", order.skipFaulty,
                  Help("without the samples that 'grdx check' finds an error in; they are named, "
                       "and the exit status is 1",
                       "跳过 grdx check 检查有错误的试样；逐一列出，退出码为 1"));
    call.parse_complete_callback([&choice] {
        RequireOne(!choice.boreholes.empty() || choice.allBoreholes,
                   "--borehole or --all-boreholes");
        RequireOne(!choice.samples.empty() || choice.allSamples, "--sample or --all");
    });
}

void AddCurve(CLI::App& call, std::optional<std::string>& form) {
    call.add_option("--curve", form,
                    Help("for this run: plain, the curve through the measured points alone, or "
                         "guarded, with further points where that one runs back, rises or leaves "
                         "0 to 100 %. Else as settings.ini says",
                         "仅用于本次：plain 只通过实测点；guarded "
                         "在曲线回折、上升或超出 0~100 % 处加点。未给出时按 settings.ini"))
        ->type_name("FORM")
        ->check(CLI::IsMember({kGuardedForm, kPlainForm}));
}

void AddLayerChoice(CLI::App& call, DrawOrder& order) {
    call.preparse_callback([&order](std::size_t) { order.layers = true; });
    AddNames(call, "--layer",
             Help("layer: its main number, or main and sub number as 2-1; may be given several "
                  "times",
                  "土层：主层号，或主层号-亚层号，如 2-1；可多次给出"),
             "L", order.items, "--all", Help("everything that there is", "全部"), order.all);
    call.parse_complete_callback(
        [&order] { RequireOne(!order.items.empty() || order.all, "--layer or --all"); });
}
}  // namespace

void AddDrawCalls(CallTable& calls) {
    const auto order = std::make_shared<DrawOrder>();
    const auto run = [&calls, order](MessageStream& messages) {
        return DrawCharts(calls.Suite(), *order, messages);
    };
    CLI::App& draw = calls.AddGroup(
        "draw", Help("draw chart sheets; prints the path of each. What is not chosen is as it was "
                     "chosen last",
                     "出成果图，并显示每张图的路径。未给出的选项沿用上次的选择"));
    CLI::App& samples = calls.Add(
        draw, "samples",
        Help("charts of the samples of one borehole or of many", "钻孔试样的成果图"), run);
    AddSampleChoice(samples, *order);
    CLI::App& layers =
        calls.Add(draw, "layers", Help("charts of soil layers", "土层的成果图"), run);
    AddLayerChoice(layers, *order);
    for (CLI::App* call : {&samples, &layers}) {
        call->add_option("--pdf", order->pdf,
                         Help("plots the sheets made as pages of this file, too",
                              "同时把所出的图输出到该 PDF 文件"))
            ->type_name("FILE");
        AddPageChoices(*call, order->choices);
        AddCurve(*call, order->curve);
        calls.AddSuite(*call);
        calls.AddWait(*call);
    }
}

}  // namespace console
