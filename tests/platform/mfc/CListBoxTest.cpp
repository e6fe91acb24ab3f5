#include "platform/mfc/CListBox.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/mfc/ListBoxModel.h"
#include "platform/mfc/window_styles.h"
#include "platform/win32/code_page.h"
#include "platform/win32/gbk_literal.h"

namespace {

/// A list box on its own, with the object that code uses it by.
struct List : CListBox {
    explicit List(DWORD style) : model(nullptr, 2001, style, {}) { AttachModel(model); }
    ~List() override { DetachModel(); }
    List(const List&) = delete;
    List& operator=(const List&) = delete;

    std::string Texts() const {
        std::string texts;
        for (const mfc::ListBoxModel::Item& item : model.Items()) {
            texts += (texts.empty() ? "" : " ") + win32::Utf8FromGbk(item.text);
        }
        return texts;
    }
    mfc::ListBoxModel model;
};

}  // namespace

TEST(CListBox, SortsWithoutRegardToCase) {
    List list(LBS_SORT);
    EXPECT_EQ(list.AddString("zk2"), 0);
    EXPECT_EQ(list.AddString("ZK10"), 0);
    EXPECT_EQ(list.AddString("孔1"_gbk), 2);
    EXPECT_EQ(list.AddString("A_1"), 0);
    EXPECT_EQ(list.AddString("ab"), 1);
    EXPECT_EQ(list.AddString("ZK2"), 4) << "after its equal";
    EXPECT_EQ(list.Texts(), "A_1 ab ZK10 zk2 ZK2 孔1");
    EXPECT_EQ(list.InsertString(0, "zzz"), 0) << "inserted where it is told";
    EXPECT_EQ(list.InsertString(-1, "a"), 7);
    EXPECT_EQ(list.InsertString(99, "a"), LB_ERR);

    List inOrder(0);
    EXPECT_EQ(inOrder.AddString("2"), 0);
    EXPECT_EQ(inOrder.AddString("1"), 1);
    EXPECT_EQ(inOrder.Texts(), "2 1");
}

TEST(CListBox, FindsExactTextsRoundTheList) {
    List list(0);
    for (const char* text : {"ZK1", "zk10", "ZK1", "*ZK10", "\x81\x41"}) {
        list.AddString(text);
    }
    EXPECT_EQ(list.SelectString(-1, "ZK10"), 1);
    EXPECT_EQ(list.GetCurSel(), 1);
    EXPECT_EQ(list.SelectString(-1, "none"), LB_ERR);
    EXPECT_EQ(list.GetCurSel(), 1);
}

TEST(CListBox, SingleSelection) {
    List list(0);
    list.AddString("a");
    list.AddString("b");
    EXPECT_EQ(list.GetCurSel(), LB_ERR) << "nothing is selected at first";
    EXPECT_EQ(list.SetCurSel(1), 1);
    EXPECT_EQ(list.GetSel(1), 1);
    list.InsertString(0, "before");
    EXPECT_EQ(list.GetCurSel(), 2) << "the selection stays with its item";
    EXPECT_EQ(list.SetCurSel(3), LB_ERR);
    EXPECT_EQ(list.GetCurSel(), 2);
    EXPECT_EQ(list.DeleteString(0), 2);
    EXPECT_EQ(list.GetCurSel(), 1);
    EXPECT_EQ(list.DeleteString(1), 1);
    EXPECT_EQ(list.GetCurSel(), LB_ERR) << "gone with its item";
    EXPECT_EQ(list.DeleteString(1), LB_ERR);
    list.SetCurSel(0);
    EXPECT_EQ(list.SetCurSel(-1), LB_ERR);
    EXPECT_EQ(list.GetSel(0), 0);
    EXPECT_EQ(list.GetSelCount(), LB_ERR);
    EXPECT_EQ(list.SetSel(0), LB_ERR);
    int index = 0;
    EXPECT_EQ(list.GetSelItems(1, &index), LB_ERR);
}

TEST(CListBox, MultipleSelectionTogglesAndKeepsAFocusMark) {
    List list(LBS_MULTIPLESEL | LBS_NOTIFY);
    EXPECT_EQ(list.GetCurSel(), LB_ERR) << "empty";
    for (const char* text : {"1-1", "1-2", "1-3"}) {
        list.AddString(text);
    }
    EXPECT_EQ(list.GetCurSel(), 0) << "the focus mark, though nothing is selected";
    EXPECT_EQ(list.SetCurSel(0), 0);
    EXPECT_EQ(list.GetSelCount(), 0);

    EXPECT_TRUE(list.model.Click(2));
    EXPECT_TRUE(list.model.Click(0));
    EXPECT_TRUE(list.model.Click(1));
    EXPECT_TRUE(list.model.Click(0));
    int indexes[3] = {-1, -1, -1};
    EXPECT_EQ(list.GetSelItems(3, indexes), 2);
    EXPECT_EQ(indexes[0], 1);
    EXPECT_EQ(indexes[1], 2);
    EXPECT_EQ(list.GetSelItems(1, indexes), 1) << "no more than there is room for";
    EXPECT_EQ(list.GetCurSel(), 0) << "the item clicked last";

    list.DeleteString(2);
    EXPECT_EQ(list.GetSelCount(), 1);
    EXPECT_EQ(list.SetSel(-1, TRUE), LB_OKAY);
    EXPECT_EQ(list.GetSelCount(), 2);
    EXPECT_EQ(list.SetSel(2), LB_ERR);
    list.model.SetEnabled(false);
    EXPECT_FALSE(list.model.Click(0));
    EXPECT_EQ(list.GetSelCount(), 2);
    list.ResetContent();
    EXPECT_EQ(list.GetCurSel(), LB_ERR);
    EXPECT_EQ(list.GetSel(0), LB_ERR);
}

TEST(CListBox, WithoutAWindowOperationsAreRefused) {
    CListBox list;
    EXPECT_THROW(list.GetCount(), std::logic_error);
    mfc::WindowModel edit(mfc::WindowKind::Edit, nullptr, 7, 0, {}, "");
    list.AttachModel(edit);
    EXPECT_THROW(list.AddString("a"), std::logic_error) << "attached to something else";
}
