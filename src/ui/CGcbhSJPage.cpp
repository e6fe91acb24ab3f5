#include "src/ui/CGcbhSJPage.h"

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

namespace {

MarkKey LayerMarks() {
    return {LayerMarksKey(ProjectContext.GCBH), ProjectProfilePath};
}

}  // namespace

BEGIN_MESSAGE_MAP(CGcbhSJPage, CModulePage)
ON_BN_CLICKED(IDC_REMOVE_LAYER_MARKS, OnRemoveMarks)
END_MESSAGE_MAP()

CGcbhSJPage::CGcbhSJPage() : CModulePage(IDD_LAYER_PAGE) {}

BOOL CGcbhSJPage::OnInitDialog() {
    CModulePage::OnInitDialog();
    const std::vector<std::string> stored = StoredMarks(LayerMarks());
    if (!ReadSamplesNamedAsLayers(rivals_) || !ReadLayers(projectLayers_)) {
        return TRUE;  // marks are compared with a complete list only
    }
    for (const std::string& layer : projectLayers_) {
        layers_.AddString(layer.c_str());
    }
    ShowMarks(layers_, LayerMarks(), stored);
    layers_.SetCurSel(0);
    return TRUE;
}

std::string CGcbhSJPage::Objection() const {
    return ObjectionToLayers(SelectedItemTexts(layers_), projectLayers_, rivals_);
}

void CGcbhSJPage::OnOK() {
    if (!UpdateData(TRUE)) {
        return;
    }
    if (layers_.GetCurSel() == LB_ERR) {
        AfxMessageBox("请选择试样编号。"_gbk);
        return;
    }
    chosenLayers_ = SelectedItemTexts(layers_);
    AddMarks(layers_, LayerMarks(), CProfileLock(ProjectProfilePath));
    CModulePage::OnOK();
}

void CGcbhSJPage::OnRemoveMarks() {
    if (layers_.GetCurSel() == LB_ERR) {
        AfxMessageBox("请先选择土层,再删除!"_gbk);
        return;
    }
    RemoveMarks(layers_, LayerMarks(), CProfileLock(ProjectProfilePath));
}

void CGcbhSJPage::DoDataExchange(CDataExchange* pDX) {
    CModulePage::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_LAYERS, layers_);
}
