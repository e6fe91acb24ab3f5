// Who hears of saving and reading, and what a failure leaves behind.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <random>

#include "platform/db/AcDbLine.h"
#include "platform/db/AcRxEventReactor.h"
#include "platform/db/DrawingDamage.h"
#include "platform/win32/gbk_literal.h"
#include "tests/platform/dwg/DwgFixture.h"

namespace {

using testing::AnyOf;
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

/// A process that is killed while it saves over a drawing leaves the old drawing or the new one.
class KilledSaveTest : public DwgFixture {
protected:
    void drawLines(int count) {
        for (int i = 0; i < count; ++i) {
            appendLine(AcGePoint3d(i, 0, 0), AcGePoint3d(i, 1, 0));
        }
    }
    /// Saves one drawing and the other in turn for ever, under the same name.
    [[noreturn]] void saveForEver(AcDbDatabase& other, bool toDisk) {
        const std::string path = folder_.Windows("drawing.dwg");
        for (;;) {
            for (AcDbDatabase* database : {&database_, &other}) {
                const Acad::ErrorStatus status =
                    toDisk ? database->saveToDisk(path.c_str()) : database->saveAs(path.c_str());
                if (status != Acad::eOk) {
                    _exit(1);
                }
            }
        }
    }
};

TEST_F(KilledSaveTest, LeavesAWholeDrawing) {
    drawLines(100);
    save();
    const auto other = read();
    drawLines(700);
    const std::string states[] = {save(*other), save()};
    std::mt19937 random(20240531);
    int withLeftOver = 0;
    int kills[2] = {0, 0};
    for (int round = 0; round < 200; ++round) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            saveForEver(*other, round % 4 == 0);
        }
        usleep(static_cast<useconds_t>(random() % 8000));
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "a save has failed";
        withLeftOver += folder_.Names().size() > 1 ? 1 : 0;
        const auto whole = read();
        ASSERT_TRUE(whole->damage().empty());
        const std::string file = folder_.Read("drawing.dwg");
        ASSERT_THAT(file, AnyOf(states[0], states[1]));
        ++kills[file == states[1] ? 1 : 0];
    }
    EXPECT_GT(withLeftOver, 0) << "no kill has hit a save";
    EXPECT_GT(kills[0], 0);
    EXPECT_GT(kills[1], 0);
    save();
    EXPECT_THAT(folder_.Names(), ElementsAre("drawing.dwg")) << "left over files go";
}

}  // namespace
