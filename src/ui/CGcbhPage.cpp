#include "src/ui/CGcbhPage.h"

#include "platform/mfc/CDataExchange.h"
#include "platform/mfc/message_box.h"
#include "src/common/module_state.h"
#include "src/core/gbk_text.h"
#include "src/facts/control_ids.h"
#include "src/facts/mark_keys.h"
#include "src/ui/CProfileLock.h"
#include "src/ui/mark_operations.h"
#include "src/ui/sample_lists.h"
#include "src/ui/sample_objections.h"
#include "src/ui/settings.h"

namespace {

MarkKey BoreholeMarks(const std::string& projectNumber) {
    return {BoreholeMarksKey(projectNumber), MarkProfilePath};
}

MarkKey SampleMarks(const std::string& projectNumber, const std::string& borehole) {
    return {SampleMarksKey(projectNumber, borehole), MarkProfilePath};
}

}  // namespace

BEGIN_MESSAGE_MAP(CGcbhPage, CModulePage)
ON_LBN_SELCHANGE(IDC_BOREHOLES, OnSelchangeBorehole)
ON_BN_CLICKED(IDC_REMOVE_SAMPLE_MARKS, OnRemoveMarks)
END_MESSAGE_MAP()

CGcbhPage::CGcbhPage() : CModulePage(IDD_SAMPLE_PAGE) {}

BOOL CGcbhPage::OnInitDialog() {
    CModulePage::OnInitDialog();
    CurrentBorehole.clear();
    const MarkKey marks = BoreholeMarks(ProjectContext.GCBH);
    const std::vector<std::string> stored = StoredMarks(marks);
    if (!ReadProjectSamples(projectSamples_)) {
        return TRUE;
    }
    for (const std::string& borehole : BoreholesOf(projectSamples_)) {
        boreholes_.AddString(borehole.c_str());
    }
    ShowMarks(boreholes_, marks, stored);
    boreholes_.SetCurSel(0);
    OnSelchangeBorehole();
    return TRUE;
}

void CGcbhPage::OnSelchangeBorehole() {
    samples_.ResetContent();
    const int selected = boreholes_.GetCurSel();
    if (selected == LB_ERR) {
        AfxMessageBox("请选择钻孔编号"_gbk);
        return;
    }
    CurrentBorehole = BareItemText(boreholes_, selected);
    const MarkKey marks = SampleMarks(ProjectContext.GCBH, CurrentBorehole);
    const std::vector<std::string> stored = StoredMarks(marks);
    std::vector<std::string> samples;
    if (!ReadSamples(CurrentBorehole, samples)) {
        return;  // marks are compared with a complete list only
    }
    for (const std::string& sample : OrderedSamples(samples)) {
        samples_.AddString(sample.c_str());
    }
    ShowMarks(samples_, marks, stored);
}

std::string CGcbhPage::Objection() const {
    return ObjectionToSamples(CurrentBorehole, SelectedItemTexts(samples_), projectSamples_);
}

void CGcbhPage::OnOK() {
    if (!UpdateData(TRUE)) {
        return;
    }
    if (boreholes_.GetCurSel() == LB_ERR) {
        AfxMessageBox("请选择钻孔编号。"_gbk);
        return;
    }
    if (samples_.GetCurSel() == LB_ERR) {
        AfxMessageBox("请选择试样编号。"_gbk);
        return;
    }
    chosenSamples_ = SelectedItemTexts(samples_);
    StoreMarks();
    CModulePage::OnOK();
}

void CGcbhPage::StoreMarks() {
    const CProfileLock lock(MarkProfilePath);
    AddMarks(samples_, SampleMarks(ProjectContext.GCBH, CurrentBorehole), lock);
    if (AllDrawn(samples_)) {
        AddMarks(boreholes_, BoreholeMarks(ProjectContext.GCBH), lock);
    }
}

void CGcbhPage::OnRemoveMarks() {
    const std::string projectNumber = ReadProfileText("Project", "GCBH", ProjectProfilePath);
    const int selected = boreholes_.GetCurSel();
    if (selected == LB_ERR) {
        AfxMessageBox("请先选择钻孔,再删除!"_gbk);
        return;
    }
    const CProfileLock lock(MarkProfilePath);
    RemoveMarks(samples_, SampleMarks(projectNumber, BareItemText(boreholes_, selected)), lock);
    RemoveMarks(boreholes_, BoreholeMarks(projectNumber), lock);
}

void CGcbhPage::DoDataExchange(CDataExchange* pDX) {
    CModulePage::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_BOREHOLES, boreholes_);
    DDX_Control(pDX, IDC_SAMPLES, samples_);
}
