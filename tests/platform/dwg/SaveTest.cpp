// Who hears of saving and reading, and what a failure leaves behind.
#include <filesystem>

#include "platform/db/AcRxEventReactor.h"
#include "platform/win32/gbk_literal.h"
#include "tests/platform/dwg/DwgFixture.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// Notes what it hears.
class Listener : public AcRxEventReactor {
public:
    Listener() { acrxAddEventReactor(this); }
    ~Listener() override { acrxRemoveEventReactor(this); }
    void saveComplete(AcDbDatabase* database, const char* path) override {
        heard.push_back(std::string("saved ") + path + (database->isModified() ? " changed" : ""));
    }
    void abortSave(AcDbDatabase* database) override {
        heard.push_back("save failed: " + database->lastFileError());
    }
    void abortRead(AcDbDatabase* database) override {
        heard.push_back("read failed: " + database->lastFileError());
    }
    std::vector<std::string> heard;
};

class SaveTest : public DwgFixture {};

TEST_F(SaveTest, SavingTellsWhereTheDrawingStands) {
    const Listener listener;
    addLayer("new");
    EXPECT_TRUE(database_.isModified());
    save(database_, "sheet.dwg");
    EXPECT_THAT(listener.heard, ElementsAre("saved " + folder_.Windows("sheet.dwg")));
    EXPECT_FALSE(database_.isModified());
    EXPECT_STREQ(database_.getFilename(), folder_.Windows("sheet.dwg").c_str());
    EXPECT_THAT(folder_.Names(), ElementsAre("sheet.dwg")) << "and nothing beside it";
}

TEST_F(SaveTest, PathsAreWindowsPaths) {
    folder_.MakeFolder("outPut");
    const std::string name = "颗分曲线.dwg"_gbk;
    EXPECT_EQ(database_.saveAs((folder_.Windows("OUTPUT") + "\\" + name).c_str()), Acad::eOk);
    EXPECT_TRUE(std::filesystem::exists(folder_.Path("outPut/颗分曲线.dwg")));
}

TEST_F(SaveTest, AFailedSaveLeavesTheOldFile) {
    const std::string old = save();
    const Listener listener;
    addLayer("new");
    const std::string missing = folder_.Windows("missing\\drawing.dwg");
    EXPECT_EQ(database_.saveAs(missing.c_str()), Acad::eFileAccessErr);
    EXPECT_TRUE(database_.isModified());
    EXPECT_STREQ(database_.getFilename(), folder_.Windows("drawing.dwg").c_str());
    folder_.MakeFolder("taken.dwg");
    EXPECT_EQ(database_.saveAs(folder_.Windows("taken.dwg").c_str()), Acad::eFileAccessErr);
    EXPECT_EQ(folder_.Read("drawing.dwg"), old);
    EXPECT_THAT(listener.heard,
                ElementsAre(HasSubstr("missing/drawing.dwg"), HasSubstr("taken.dwg")));
    EXPECT_EQ(database_.saveAs(nullptr), Acad::eInvalidInput);
    AcDbDatabase empty(false);
    EXPECT_EQ(empty.saveAs(folder_.Windows("drawing.dwg").c_str()), Acad::eFileAccessErr);
    EXPECT_THAT(empty.lastFileError(), HasSubstr("the drawing is empty"));
    EXPECT_EQ(folder_.Read("drawing.dwg"), old);
}

TEST_F(SaveTest, AFailedReadIsTold) {
    folder_.Write("old.dwg", "AC1009 and more");
    const Listener listener;
    AcDbDatabase database(false);
    EXPECT_EQ(database.readDwgFile(folder_.Windows("old.dwg").c_str()), Acad::eDwgVersionRefused);
    EXPECT_THAT(listener.heard, ElementsAre(HasSubstr("AC1009")));
    save();
    EXPECT_EQ(database.readDwgFile(folder_.Windows("drawing.dwg").c_str()), Acad::eOk)
        << "the database can still be used";
}

}  // namespace
