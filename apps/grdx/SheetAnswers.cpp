#include "apps/grdx/SheetAnswers.h"

#include <unordered_map>

#include "apps/grdx/Failure.h"
#include "apps/grdx/sheet_lists.h"
#include "platform/mfc/ListBoxModel.h"
#include "platform/win32/code_page.h"
#include "src/facts/control_ids.h"

namespace console {

namespace {
/// A text of the annotation page and the check box beside it.
struct Annotation {
    std::optional<std::string> PageChoices::*text;
    std::optional<bool> PageChoices::*shown;
    int textControl;
    int checkControl;
    const char* option;
};
constexpr Annotation kAnnotations[] = {
    {&PageChoices::unit, &PageChoices::showUnit, IDC_UNIT, IDC_UNIT_CHECK, "--unit"},
    {&PageChoices::tester, &PageChoices::showTester, IDC_TESTER, IDC_TESTER_CHECK, "--tester"},
    {&PageChoices::checker, &PageChoices::showChecker, IDC_CHECKER, IDC_CHECKER_CHECK, "--checker"},
    {&PageChoices::date, &PageChoices::showDate, IDC_DATE, IDC_DATE_CHECK, "--date"},
};

/// Index of every item of the list by its text without mark.
std::unordered_map<std::string, int> Offered(const mfc::ListBoxModel* list) {
    std::unordered_map<std::string, int> indexes;
    for (int index = 0; list != nullptr && list->Valid(index); ++index) {
        indexes.emplace(WithoutMark(list->Items()[static_cast<std::size_t>(index)].text), index);
    }
    return indexes;
}

/// The name as lists have it; empty, which no item is, for one that GBK does not have.
std::string ListName(const std::string& utf8) {
    std::string gbk;
    win32::TryGbkFromUtf8(utf8, gbk);
    return gbk;
}

mfc::Answer Check(int control, bool on) {
    return {mfc::Answer::Kind::Check, control, {}, on};
}
mfc::Answer Page(int number) {
    return {mfc::Answer::Kind::Page, number};
}
}  // namespace

SheetAnswers::SheetAnswers(const DrawRequest& request, mfc::ScriptedWindowSystem& windows)
    : request_(request), windows_(windows), step_(request.layers ? Step::Items : Step::Borehole) {
    if (request.choices.recompute && !request.layers) {
        throw Failure("--recompute is of layer charts: the option page greys it for samples");
    }
    for (const Annotation& annotation : kAnnotations) {
        const std::optional<std::string>& text = request.choices.*annotation.text;
        std::string gbk;
        if (text && !win32::TryGbkFromUtf8(*text, gbk)) {
            throw Failure(std::string(annotation.option) + " \"" + *text +
                          "\": a character that GBK does not have");
        }
    }
}

std::vector<mfc::Answer> SheetAnswers::operator()(mfc::FrameModel& window) {
    if (window.Kind() != mfc::WindowKind::Sheet) {
        return {};
    }
    switch (step_) {
        case Step::Borehole:
            step_ = Step::Items;
            return PickBorehole(window);
        case Step::Items:
            step_ = Step::Done;
            return PickItems(window);
        case Step::Done:
            break;  // the sheet has not taken it and is cancelled
    }
    return {};
}

std::vector<mfc::Answer> SheetAnswers::PickBorehole(mfc::FrameModel& sheet) {
    const std::string borehole = ListName(request_.borehole);
    if (!Offered(FindSheetList(sheet, IDC_BOREHOLES)).contains(borehole)) {
        windows_.Fail("borehole \"" + request_.borehole + "\" is not offered");
        return {};
    }
    // Each answer is given before the next is asked for, so the samples are there then.
    return {{mfc::Answer::Kind::Select, IDC_BOREHOLES, {borehole}}};
}

std::vector<mfc::Answer> SheetAnswers::PickItems(mfc::FrameModel& sheet) {
    mfc::ListBoxModel* const list = FindSheetList(sheet, IDC_SAMPLES);
    const std::unordered_map<std::string, int> offered = Offered(list);
    std::set<int> wanted;
    for (const std::string& item : request_.items) {
        const auto found = offered.find(ListName(item));
        if (found == offered.end()) {
            windows_.Fail(request_.layers
                              ? "layer \"" + item + "\" is not offered"
                              : "sample \"" + item + "\" is not offered for borehole \"" +
                                    request_.borehole + "\"");
            return {};
        }
        wanted.insert(found->second);
    }
    Click(list, wanted);
    return RestOfSheet();
}

/// Clicks the items by their places instead of by their texts: thousands of them are found at once.
void SheetAnswers::Click(mfc::ListBoxModel* list, const std::set<int>& wanted) {
    const int count = list != nullptr ? static_cast<int>(list->Items().size()) : 0;
    for (int index = 0; index < count; ++index) {
        if (request_.all || wanted.contains(index)) {
            list->Click(index);
        }
    }
}

std::vector<mfc::Answer> SheetAnswers::RestOfSheet() const {
    std::vector<mfc::Answer> answers;
    AddOptions(answers);
    AddAnnotations(answers);
    answers.push_back({mfc::Answer::Kind::Press, IDOK});
    return answers;
}

void SheetAnswers::AddOptions(std::vector<mfc::Answer>& answers) const {
    const PageChoices& choices = request_.choices;
    const std::pair<int, std::optional<bool>> boxes[] = {{IDC_OUTER_FRAME, choices.outerFrame},
                                                         {IDC_RIGHT_AXIS, choices.rightAxis},
                                                         {IDC_RECOMPUTE, choices.recompute}};
    answers.push_back(Page(IDD_OPTIONS));
    for (const auto& [control, on] : boxes) {
        if (on) {
            answers.push_back(Check(control, *on));
        }
    }
}

void SheetAnswers::AddAnnotations(std::vector<mfc::Answer>& answers) const {
    answers.push_back(Page(IDD_ANNOTATION));
    for (const Annotation& annotation : kAnnotations) {
        const std::optional<std::string>& text = request_.choices.*annotation.text;
        if (text) {
            answers.push_back(
                {mfc::Answer::Kind::Type, annotation.textControl, {win32::GbkFromUtf8(*text)}});
        }
        const std::optional<bool>& shown = request_.choices.*annotation.shown;
        if (text || shown) {
            answers.push_back(Check(annotation.checkControl, shown.value_or(true)));
        }
    }
}

}  // namespace console
