// What a save leaves as it was.
#include <map>

#include "platform/db/AcDbKeptEntity.h"
#include "platform/db/AcDbLine.h"
#include "platform/dwg/DwgFileRemains.h"
#include "platform/dwg/object_map.h"
#include "tests/platform/dwg/DwgFixture.h"
#include "tests/platform/dwg/TestCurve.h"

namespace {

using testing::ElementsAre;

class LosslessTest : public DwgFixture {
protected:
    static constexpr std::time_t kDay = 86400;

    static std::map<AcDbHandle, std::string> objects(const std::string& file) {
        const std::size_t at = dwg::kLocatorsPosition + dwg::kObjectMap * dwg::kLocatorSize;
        std::map<AcDbHandle, std::string> found;
        for (const dwg::MapEntry& entry : dwg::ReadObjectMap(
                 file.substr(dwg::LongAt(file, at + 1), dwg::LongAt(file, at + 5)))) {
            const dwg::ObjectFrame frame = dwg::FrameAt(file, entry.position);
            found[entry.handle] = file.substr(frame.contentPosition, frame.contentSize);
        }
        return found;
    }

    /// Handles of the objects that differ, or that only one of the files has.
    static std::vector<AcDbHandle> differences(const std::string& before,
                                               const std::string& after) {
        const auto old = objects(before);
        std::vector<AcDbHandle> found;
        for (const auto& [handle, bits] : objects(after)) {
            const auto same = old.find(handle);
            if (same == old.end() || same->second != bits) {
                found.push_back(handle);
            }
        }
        return found;
    }

    static AcDbEntity* openForWrite(AcDbObjectId id) {
        AcDbEntity* entity = nullptr;
        EXPECT_EQ(acdbOpenObject(entity, id, AcDb::kForWrite), Acad::eOk);
        return entity;
    }

    void addLine(double x) {
        append(std::make_unique<AcDbLine>(AcGePoint3d(x, 1, 0), AcGePoint3d(x, 2, 0)));
    }
};

TEST_F(LosslessTest, AnUntouchedDrawingDiffersInItsSaveTimeOnly) {
    addLine(1);
    save();
    // A drawing of another program: with a picture, a section of its own, a box that is not ours.
    const auto foreign = read();
    DwgFileRemains& remains = *foreign->fileRemains();
    const std::uint32_t place = remains.previewPosition + 30;  // of the picture
    remains.preview = std::string("\x0F\0\0\0\1\2", 6) + std::string(8, '\0') + "image";
    dwg::PutLong(remains.preview, 6, place);
    dwg::PutLong(remains.preview, 10, 5);
    remains.unknownSections.push_back({6, "section"});
    foreign->header().EXTMIN = {-7, -7, 0};
    foreign->header().VERSIONGUID = "{THEIRS}";
    foreign->header().USERR1 = 12.5;
    const std::string file = save(*foreign, "foreign.dwg");

    const auto same = read("foreign.dwg");
    EXPECT_EQ(save(*same, "same.dwg"), file);
    win32::SetClock([] { return kNoonOf2024May31 + kDay; });
    const auto later = read("foreign.dwg");
    const std::string saved = save(*later, "later.dwg");
    EXPECT_THAT(differences(file, saved), ElementsAre());
    EXPECT_EQ(saved.size(), file.size());
    const auto copy = read("later.dwg");
    // The further section has moved the picture, and its address with it.
    const std::uint32_t moved = dwg::LongAt(copy->fileRemains()->preview, 6);
    EXPECT_EQ(moved, place + dwg::kLocatorSize);
    EXPECT_EQ(saved.substr(moved, 5), "image");
    ASSERT_EQ(copy->fileRemains()->unknownSections.size(), 1U);
    EXPECT_EQ(copy->fileRemains()->unknownSections[0].bytes, "section");
    EXPECT_EQ(copy->header().EXTMIN.x, -7);
    EXPECT_EQ(copy->header().VERSIONGUID, "{THEIRS}");
    EXPECT_NE(copy->header().TDUPDATE, foreign->header().TDUPDATE);
}

TEST_F(LosslessTest, OnlyTheCurveThatIsEditedDiffers) {
    const TestCurve::Registration registration;
    for (const double x : {0.0, 10.0, 20.0}) {
        addLine(x);
        auto curve = std::make_unique<TestCurve>();
        curve->points = {{x, 0, 0}, {x + 5, 30, 0}};
        append(std::move(curve));
    }
    const std::string file = save();
    const auto copy = read();
    const AcDbObjectId edited = entities(*copy)[3]->objectId();
    auto* curve = static_cast<TestCurve*>(openForWrite(edited));
    curve->assertWriteEnabled();
    curve->points[1] = {15, 40, 0};
    curve->close();
    const std::string changed = save(*copy, "changed.dwg");
    EXPECT_THAT(differences(file, changed), ElementsAre(edited.handle()));

    const auto again = read("changed.dwg");
    EXPECT_NE(again->header().VERSIONGUID, database_.header().VERSIONGUID);
    EXPECT_EQ(again->header().FINGERPRINTGUID, database_.header().FINGERPRINTGUID);
    EXPECT_EQ(again->header().EXTMAX.y, 40);
}

TEST_F(LosslessTest, NewObjectsTakeHandlesThatNoneEverHad) {
    addLine(1);
    addLine(2);
    const AcDbHandle last = entities(database_)[1]->objectId().handle();
    AcDbEntity* erased = openForWrite(entities(database_)[1]->objectId());
    erased->erase();
    erased->close();
    database_.header().HANDSEED = 0x5000;
    save();
    const auto copy = read();
    EXPECT_EQ(copy->header().HANDSEED, 0x5000U);
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, block(*copy, ACDB_MODEL_SPACE)->objectId(), AcDb::kForWrite),
              Acad::eOk);
    auto* line = new AcDbLine(AcGePoint3d(), AcGePoint3d(1, 0, 0));
    space->appendAcDbEntity(line);
    EXPECT_EQ(line->objectId().handle(), 0x5000U);
    EXPECT_GT(line->objectId().handle(), last);
    line->close();
    space->close();
    save(*copy);
    EXPECT_EQ(read()->header().HANDSEED, 0x5001U);
}

TEST_F(LosslessTest, ProgramsFindTheDrawingByItsBox) {
    save();
    EXPECT_GT(read()->header().EXTMIN.x, read()->header().EXTMAX.x) << "nothing is drawn";
    addLine(5);
    addLine(-3);
    save();
    auto copy = read();
    EXPECT_EQ(copy->header().EXTMIN.x, -3);
    EXPECT_EQ(copy->header().EXTMIN.y, 1);
    EXPECT_EQ(copy->header().EXTMAX.x, 5);
    EXPECT_EQ(copy->header().EXTMAX.y, 2);
    AcDbEntity* erased = openForWrite(entities(*copy)[1]->objectId());
    erased->erase();
    erased->close();
    save(*copy);
    EXPECT_EQ(read()->header().EXTMIN.x, 5);

    // What cannot tell its box keeps the one that the drawing has.
    append(std::make_unique<AcDbKeptEntity>(AcDbKeptClass{38, nullptr, "AcDb3dSolid"},
                                            AcDbKeptFields{}));
    database_.header().EXTMAX = {100, 2, 0};
    save();
    EXPECT_EQ(read()->header().EXTMAX.x, 100);
}

}  // namespace
