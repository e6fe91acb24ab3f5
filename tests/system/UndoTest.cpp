// Undo and redo with the plug-in's curves among what is changed.

#include <gmock/gmock.h>

#include <cstdlib>
#include <random>

#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbStub.h"
#include "platform/db/HeaderVariables.h"
#include "platform/dwg/DwgFileWriter.h"
#include "tests/host/HostFixture.h"
#include "tests/system/Program.h"

namespace {

class UndoTest : public HostFixture {
protected:
    static void SetUpTestSuite() {
        folder() = std::make_unique<ScratchFolder>();
        const SampleSuite suite(folder()->Path() / "suite", 0);
        ASSERT_EQ(suite.Draw("ZK1").status, 0);
        sheet() = folder()->Path() / "sheet.dwg";
        std::filesystem::copy_file(suite.Sheets().at(0), sheet());
    }
    static void TearDownTestSuite() { folder().reset(); }
    static std::unique_ptr<ScratchFolder>& folder() {
        static std::unique_ptr<ScratchFolder> suite;
        return suite;
    }
    static std::filesystem::path& sheet() {
        static std::filesystem::path path;
        return path;
    }

    void LoadPlugin() {
        std::string error;
        ASSERT_TRUE(host_->OpenSuite(folder()->Path() / "suite", error)) << error;
        ASSERT_TRUE(host_->LoadModule(GRDX_MODULE, error)) << error;
    }
    /// What the present drawing would be saved as.
    static std::string Bytes() { return DwgFileWriter(*Current()->database()).write(); }
    static bool IsChanged() { return Current()->database()->isModified(); }
    /// How many steps there were to be taken back.
    int UndoAll() {
        int steps = 0;
        while (Run("U")) {
            ++steps;
        }
        return steps;
    }
    /// A sheet, in every other drawing with itself inserted as well.
    void OpenSheet(bool withBlock) {
        ASSERT_TRUE(Run("OPEN \"" + sheet().string() + "\""));
        if (withBlock) {
            AcDbDatabase source(false, true);
            ASSERT_EQ(source.readDwgFile(sheet().c_str()), Acad::eOk);
            AcDbObjectId block;
            ASSERT_EQ(Current()->database()->insert(block, "sheet", &source), Acad::eOk);
            Draw(std::make_unique<AcDbBlockReference>(AcGePoint3d(300, 0, 0), block));
            Current()->database()->setModified(false);
        }
    }
};

/// Commands of a person who tries everything, refusals included.
class Person {
public:
    explicit Person(unsigned seed) : random_(seed) {}

    std::string NextCommand(AcDbDatabase& database) {
        handles_ = database.header().HANDSEED;
        const std::string pick = Pick();
        switch (Below(16)) {
            case 0:
                return "MOVE " + pick + " 0,0 " + Point();
            case 1:
                return "COPY " + pick + "," + Pick() + " 0,0 " + Point();
            case 2:
                return "ROTATE " + pick + " " + Point() + " " + std::to_string(Below(360));
            case 3:
                return "SCALE " + pick + " " + Point() + " " + std::to_string(Below(3));
            case 4:
                return "MIRROR " + pick + " " + Point() + " " + Point();
            case 5:
                return "ERASE " + pick + "," + Pick() + "," + Pick();
            case 6:
                return "EXPLODE " + pick;
            case 7:
            case 8:
                return "GRIP " + Curve(database) + " " + std::to_string(Below(9)) + " 0,-0.5";
            case 9:
                return "MOVE " + Curve(database) + " 0,0 " + Point();
            case 10:
                return "COPY " + Curve(database) + " 0,0 " + Point();
            case 11:
            case 12:
                return "U";
            case 13:
                return "UNDO " + std::to_string(1 + Below(5));
            case 14:
                return "REDO";
            default:
                return Below(3) == 0 ? "EXPLODE " + Curve(database) : "ZOOM E LIST " + pick;
        }
    }
    unsigned Below(unsigned end) { return random_() % end; }

private:
    static std::string PickOf(AcDbHandle handle) {
        char text[24];
        std::snprintf(text, sizeof text, "#%llX", static_cast<unsigned long long>(handle));
        return text;
    }
    std::string Pick() { return PickOf(0x20 + Below(static_cast<unsigned>(handles_))); }
    std::string Point() { return std::to_string(Below(200)) + "," + std::to_string(Below(200)); }
    /// Some entity of a module or of none here, or any other.
    std::string Curve(AcDbDatabase& database) {
        std::vector<AcDbHandle> curves;
        for (const AcDbStub& stub : database.entries()) {
            const std::string name = stub.object != nullptr ? stub.object->isA()->name() : "";
            if (name == "CKFCurve" || name == "AcDbKeptEntity") {
                curves.push_back(stub.handle);
            }
        }
        return curves.empty() ? Pick()
                              : PickOf(curves[Below(static_cast<unsigned>(curves.size()))]);
    }

    std::mt19937 random_;
    AcDbHandle handles_ = 0;
};

// A drawing taken back is the one that it was to the last byte, handles given and all; and the same
// forth. Each sequence has another seed: GRDX_UNDO_SEQUENCES says how many there are.
TEST_F(UndoTest, RandomCommandsLeaveTheBytesOfTheStartAndOfTheEnd) {
    const char* const wanted = std::getenv("GRDX_UNDO_SEQUENCES");
    const unsigned sequences = wanted != nullptr ? static_cast<unsigned>(std::atoi(wanted)) : 24;
    int steps = 0;
    for (unsigned seed = 1; seed <= sequences; ++seed) {
        if (seed == sequences / 4) {
            LoadPlugin();  // before, the curves are entities that nothing here knows
        }
        Person person(seed);
        OpenSheet(seed % 2 == 0);
        const std::string start = Bytes();
        std::string log;
        for (unsigned count = 5 + person.Below(30); count > 0; --count) {
            log += person.NextCommand(*Current()->database()) + "\n";
            Run(log.substr(log.rfind('\n', log.size() - 2) + 1));
            if (person.Below(8) == 0) {
                Bytes();  // a save in between leaves what saves leave
            }
        }
        const std::string end = Bytes();
        for (int round = 0; round < 2; ++round) {
            const int back = UndoAll();
            ASSERT_FALSE(IsChanged()) << log;
            ASSERT_EQ(Bytes() == start, true) << "seed " << seed << "\n" << log;
            for (int step = 0; step < back; ++step) {
                ASSERT_TRUE(Run("REDO"));
            }
            ASSERT_EQ(Bytes() == end, true) << "seed " << seed << "\n" << log;
            steps += back;
        }
        Current()->database()->setModified(false);
        ASSERT_TRUE(Run("CLOSE"));
    }
    std::printf("%u sequences, %d steps taken back and brought back\n", sequences, steps);
    EXPECT_GT(steps, static_cast<int>(sequences) * 10);
}

}  // namespace
