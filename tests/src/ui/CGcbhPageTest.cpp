#include "src/ui/CGcbhPage.h"

#include "platform/mfc/window_styles.h"
#include "src/facts/control_ids.h"
#include "src/ui/CKefenSheet.h"
#include "src/ui/CProfileLock.h"
#include "src/ui/mark_operations.h"
#include "tests/src/ui/ProjectFixture.h"

namespace {

using Texts = std::vector<std::string>;

class CGcbhPageTest : public ProjectFixture {
protected:
    void SetUp() override {
        ProjectFixture::SetUp();
        ChartMode = kSampleCharts;
        ProjectContext.GCSY = 1;
        ProjectContext.GCBH = "GC1";
    }

    /// What is chosen once the sheet has closed with OK; nothing when it has not.
    static Texts Show() {
        CKefenSheet sheet("");
        if (sheet.DoModal() != IDOK) {
            return {};
        }
        Texts chosen;
        for (const std::string& sample : sheet.SamplePage().ChosenSamples()) {
            chosen.push_back(Utf8(sample));
        }
        return chosen;
    }

    void ExpectLists(const Texts& boreholes, const Texts& samples) {
        Then([boreholes, samples](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
            EXPECT_EQ(Items(window, IDC_BOREHOLES), boreholes);
            EXPECT_EQ(Items(window, IDC_SAMPLES), samples);
            return {Press(IDCANCEL)};
        });
        Show();
    }
};

TEST_F(CGcbhPageTest, ListsBoreholesSortedAndTheSamplesOfTheFirst) {
    for (const char* sample : {"1-10", "1-2", "2-1", "A1", "B", "上"}) {
        AddSample("ZK3", sample);
    }
    AddSample("ZK10", "7");
    AddSample("zk1", "5");
    Sql("INSERT INTO Z_c_KeFenCSXM VALUES (2,'ZK0','1',1,2,10)");
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        EXPECT_EQ(Items(window, IDC_BOREHOLES), (Texts{"zk1", "ZK10", "ZK3"}));
        EXPECT_EQ(Items(window, IDC_SAMPLES), Texts{"5"});
        EXPECT_EQ(CurrentBorehole, "zk1");
        return {Select(IDC_BOREHOLES, {"ZK3"})};
    });
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        EXPECT_EQ(Items(window, IDC_SAMPLES), (Texts{"B", "上", "A1", "1-2", "1-10", "2-1"}));
        EXPECT_EQ(CurrentBorehole, "ZK3");
        return {Select(IDC_SAMPLES, {"1-10", "1-2"}), Press(IDOK)};
    });
    EXPECT_EQ(Show(), (Texts{"1-2", "1-10"})) << "in list order, whatever the order of the clicks";
    EXPECT_EQ(ReadText("marks.ini"), "[CKFDlg]\r\nKFQXGC1ZK3=1-2@1-10\r\n");
}

TEST_F(CGcbhPageTest, MarksWhatWasDrawnAndTheBoreholeOnceAllWas) {
    for (const char* sample : {"1", "2", "3"}) {
        AddSample("ZK1", sample);
    }
    Then({Select(IDC_SAMPLES, {"3", "1"}), Press(IDOK)});
    Show();
    ExpectLists({"ZK1"}, {"*1", "2", "*3"});

    // All that was not drawn yet: the borehole is marked, and later runs know it by its number.
    Then({Select(IDC_SAMPLES, {"2"}), Press(IDOK)});
    EXPECT_EQ(Show(), Texts{"2"});
    EXPECT_EQ(ReadText("marks.ini"), "[CKFDlg]\r\nKFQXGC1ZK1=1@3@2\r\nKFQXGC1=ZK1\r\n");
    ExpectLists({"*ZK1"}, {"*1", "*2", "*3"});

    // Once more through the marked items: keys and choice stay bare.
    Then({Select(IDC_SAMPLES, {"*2"}), Press(IDOK)});
    EXPECT_EQ(Show(), Texts{"2"});
    EXPECT_EQ(CurrentBorehole, "ZK1");
    EXPECT_EQ(ReadText("marks.ini"), "[CKFDlg]\r\nKFQXGC1ZK1=1@2@3\r\nKFQXGC1=ZK1\r\n");
}

TEST_F(CGcbhPageTest, TheButtonTakesTheMarksOfSelectedSamplesAndOfTheBoreholeAway) {
    for (const char* sample : {"1", "2", "3"}) {
        AddSample("ZK1", sample);
    }
    WriteText("marks.ini", "[CKFDlg]\r\nKFQXGC1ZK1=1@2@3\r\nKFQXGC1=ZK1\r\n");
    Then({Select(IDC_SAMPLES, {"*1", "*3"}), Press(IDC_REMOVE_SAMPLE_MARKS)});
    Then([](mfc::FrameModel& window) -> std::vector<mfc::Answer> {
        EXPECT_EQ(Items(window, IDC_BOREHOLES), Texts{"ZK1"});
        EXPECT_EQ(Items(window, IDC_SAMPLES), (Texts{"1", "*2", "3"}));
        return {Press(IDOK)};
    });
    EXPECT_EQ(Show(), (Texts{"1", "3"})) << "borehole and samples stay selected";
    EXPECT_EQ(ReadText("marks.ini"), "[CKFDlg]\r\nKFQXGC1ZK1=2@1@3\r\nKFQXGC1=ZK1\r\n");
    EXPECT_TRUE(Boxes().empty());
}

TEST_F(CGcbhPageTest, KeepsMarksOfDoubleByteTextsApart) {
    // Trail bytes '@' and '|', which separate lists, and '\', which separates folders.
    AddSample("钻丂", "丂1");
    AddSample("钻丂", "亅2");
    AddSample("钻丂", "乗3");
    Then({Select(IDC_SAMPLES, {"丂1", "亅2", "乗3"}), Press(IDOK)});
    EXPECT_EQ(Show().size(), 3U);
    EXPECT_EQ(ReadText("marks.ini"), "[CKFDlg]\r\nKFQXGC1钻丂=丂1@亅2@乗3\r\nKFQXGC1=钻丂\r\n");
    ExpectLists({"*钻丂"}, {"*丂1", "*亅2", "*乗3"});
}

TEST_F(CGcbhPageTest, DropsMarksOfSamplesThatAreGoneAndReadsLongValuesWhole) {
    AddSample("ZK1", "1");
    std::string stored = "gone";
    while (stored.size() < 3000) {
        stored += "@gone" + std::to_string(stored.size());
    }
    WriteText("marks.ini", "[CKFDlg]\r\nKFQXGC1ZK1=" + stored + "@1\r\n");
    ExpectLists({"ZK1"}, {"*1"});
    EXPECT_EQ(ReadText("marks.ini"), "[CKFDlg]\r\nKFQXGC1ZK1=1\r\n");
}

// The list is older than what other programs have written since the marks were read for it.
TEST_F(CGcbhPageTest, MarksOfOtherProgramsAreMergedAndTheirRemovalsStay) {
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

TEST_F(CGcbhPageTest, ATableThatDoesNotOpenIsToldAndCostsNoMarks) {
    const std::string marks = "[CKFDlg]\r\nKFQXGC1ZK1=1\r\nKFQXGC1=ZK1\r\n";
    WriteText("marks.ini", marks);
    Sql("DROP TABLE Z_c_KeFenCSXM");
    ExpectLists({}, {});
    EXPECT_EQ(Boxes(), Texts{"不能打开颗分试验项目表,请检查数据!"});
    EXPECT_EQ(ReadText("marks.ini"), marks);
}

TEST_F(CGcbhPageTest, WithoutABoreholeNothingCanBeChosen) {
    CurrentBorehole = "of an earlier run";
    Then({Press(IDC_REMOVE_SAMPLE_MARKS), Press(IDOK), Press(IDCANCEL)});
    EXPECT_TRUE(Show().empty());
    EXPECT_EQ(Boxes(), (Texts{"请选择钻孔编号", "请先选择钻孔,再删除!", "请选择钻孔编号"}));
}

}  // namespace
