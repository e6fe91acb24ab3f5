// A process that is killed while it saves over a drawing leaves the old drawing or the new one.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>

#include "platform/db/AcDbLine.h"
#include "platform/db/DrawingDamage.h"
#include "tests/platform/dwg/DwgFixture.h"

namespace {

using testing::AnyOf;
using testing::ElementsAre;

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
