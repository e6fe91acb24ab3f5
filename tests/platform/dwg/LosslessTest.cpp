// What a save leaves as it was.
#include "platform/db/AcDbKeptEntity.h"
#include "platform/db/AcDbPolyline.h"
#include "platform/dwg/DwgFileRemains.h"
#include "tests/platform/dwg/DwgFixture.h"
#include "tests/platform/dwg/KeptEntities.h"
#include "tests/platform/dwg/TestCurve.h"

namespace {

using testing::ElementsAre;

class LosslessTest : public DwgFixture {
protected:
    static constexpr std::time_t kDay = 86400;

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

    void addLine(double x) { appendLine({x, 1, 0}, {x, 2, 0}); }
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
    constexpr std::uint16_t kPolyline = 77;
    append(kept::Make(kPolyline, [](DwgBitWriter& bits) {
        bits.bitShort(256);  // its line type goes on around the vertices
        bits.bitLong(1);
        bits.rawDouble(3);
        bits.rawDouble(4);
    }));
    const std::string file = save();
    const auto copy = read();
    ASSERT_EQ(entities(*copy).back()->isA(), AcDbPolyline::desc());
    Opened(entities(*copy).back()->objectId())->assertWriteEnabled();  // to be written anew
    const AcDbObjectId edited = entities(*copy)[3]->objectId();
    {
        const Opened opened(edited);
        opened->assertWriteEnabled();
        static_cast<TestCurve&>(*opened).points[1] = {15, 40, 0};
    }
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
    Opened(entities(database_)[1]->objectId())->erase();
    database_.header().HANDSEED = 0x5000;
    save();
    const auto copy = read();
    EXPECT_EQ(copy->header().HANDSEED, 0x5000U);
    const AcDbObjectId added = AppendTo(*copy, std::make_unique<AcDbLine>());
    EXPECT_EQ(added.handle(), 0x5000U);
    EXPECT_GT(added.handle(), last);
    save(*copy);
    EXPECT_EQ(read()->header().HANDSEED, 0x5001U);
    EXPECT_EQ(describe(*read()), describe(*copy));
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
    Opened(entities(*copy)[1]->objectId())->erase();
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
