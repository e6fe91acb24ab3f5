#include "src/ui/mark_operations.h"

#include "platform/mfc/CListBox.h"
#include "platform/mfc/ListBoxModel.h"
#include "platform/mfc/window_styles.h"
#include "src/ui/CProfileLock.h"
#include "tests/src/ui/ProjectFixture.h"

namespace {

using Texts = std::vector<std::string>;
using MarkOperationsTest = ProjectFixture;

// The list is older than what other programs have written since the marks were read for it.
TEST_F(MarkOperationsTest, MarksOfOtherProgramsAreMergedAndTheirRemovalsStay) {
    struct List : CListBox {
        List() { AttachModel(model); }
        ~List() override { DetachModel(); }
        mfc::ListBoxModel model{nullptr, 2001, LBS_MULTIPLESEL, {}};
    };
    const auto add = [](CListBox& list, const MarkKey& marks, const Texts& /*stored*/) {
        list.SetSel(0);
        AddMarks(list, marks, CProfileLock(marks.profilePath));
    };
    const auto remove = [](CListBox& list, const MarkKey& marks, const Texts& /*stored*/) {
        list.SetSel(0);
        RemoveMarks(list, marks, CProfileLock(marks.profilePath));
    };
    const struct {
        const char* reason;
        std::function<void(CListBox&, const MarkKey&, const Texts&)> operation;
        Texts before;
        const char* now;
        const char* after;
        const char* shown;
    } rows[] = {
        {"a mark of a newer sample stays", ShowMarks, {"gone", "2"}, "gone@2@9", "2@9", "1 *2 "},
        {"a mark taken away stays away", ShowMarks, {"gone", "1", "2"}, "gone@2", "2", "1 *2 "},
        {"nothing to drop, nothing written", ShowMarks, {"2"}, "2@9", "2@9", "1 *2 "},
        {"added to what is there", add, {}, "9@2", "9@2@1", "*1 *2 "},
        {"taken from what is there", remove, {"1"}, "1@9@2", "9@2", "1 *2 "},
    };
    for (const auto& row : rows) {
        List list;
        list.AddString("1");
        list.AddString("2");
        WriteText("marks.ini", std::string("[CKFDlg]\r\nk=") + row.now + "\r\n");
        row.operation(list, {"k", MarkProfilePath}, row.before);
        EXPECT_EQ(ReadText("marks.ini"), std::string("[CKFDlg]\r\nk=") + row.after + "\r\n")
            << row.reason;
        std::string shown;
        for (const auto& item : list.model.Items()) {
            shown += item.text + " ";
        }
        EXPECT_EQ(shown, row.shown) << row.reason;
    }
}

}  // namespace
