// Files that are no drawings, drawings of other versions, drawings that are damaged.
#include <filesystem>

#include "platform/db/AcDbPolyline.h"
#include "platform/db/AcDbText.h"
#include "platform/dwg/DwgFault.h"
#include "platform/dwg/DwgFileReader.h"
#include "platform/dwg/crc.h"
#include "tests/platform/dwg/DwgFixture.h"
#include "tests/platform/dwg/FindingListener.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class DamagedFileTest : public DwgFixture {
protected:
    DamagedFileTest() {
        appendLine({1, 2, 0}, {1, 5, 0});
        append(std::make_unique<AcDbText>(AcGePoint3d(), "text", AcDbObjectId::kNull, 3.0));
        auto wide = std::make_unique<AcDbPolyline>();
        wide->addVertexAt(0, {1, 1}, 0.5, 1, 1);
        wide->addVertexAt(0, {2, 1});
        append(std::move(wide));
        file_ = save();
    }

    std::size_t sectionStart(std::size_t number) const {
        return DwgFixture::sectionStart(file_, number);
    }
    std::size_t sectionEnd(std::size_t number) const {
        return sectionStart(number) + section(file_, number).size();
    }

    /// Whether that content is a drawing without damage; what is refused must be refused as
    /// damaged.
    static bool isSound(const std::string& content) {
        AcDbDatabase database(false);
        try {
            DwgFileReader reader(database, content);
            reader.read();
            return reader.takeDamage().empty();
        } catch (const DwgFault& fault) {
            EXPECT_EQ(fault.status(), Acad::eFileInternalErr) << fault.what();
            return false;
        }
    }

    std::size_t positionOf(AcDbHandle handle) const {
        for (const dwg::MapEntry& entry : dwg::ReadObjectMap(section(file_, dwg::kObjectMap))) {
            if (entry.handle == handle) {
                return entry.position;
            }
        }
        ADD_FAILURE() << "no object " << handle;
        return 0;
    }
    /// Turns over a bit of an object, so that its check sum is wrong.
    void damage(AcDbHandle handle) {
        const dwg::ObjectFrame frame = dwg::FrameAt(file_, positionOf(handle));
        file_[frame.contentPosition + frame.contentSize - 1] ^= 0x10;
    }
    static void mendCheckSum(std::string& file, std::size_t position) {
        const dwg::ObjectFrame frame = dwg::FrameAt(file, position);
        const std::size_t end = frame.contentPosition + frame.contentSize;
        dwg::PutShort(file, end, dwg::Crc(dwg::BytesOf(file) + position, end - position));
    }
    /// Puts other bytes for the first that stand in an object, at whatever bit they begin.
    void replaceIn(AcDbHandle handle, std::uint32_t bytes, std::uint32_t others) {
        const std::size_t position = positionOf(handle);
        const dwg::ObjectFrame frame = dwg::FrameAt(file_, position);
        for (std::size_t bit = 8 * frame.contentPosition;; ++bit) {
            DwgBitReader reader(dwg::BytesOf(file_), bit,
                                8 * (frame.contentPosition + frame.contentSize));
            const bool found = reader.bits(16) == bytes;
            ASSERT_FALSE(reader.failed()) << "not found";
            if (found) {
                for (unsigned i = 0; i < 16; ++i) {
                    if (((bytes ^ others) >> (15 - i) & 1) != 0) {
                        file_[(bit + i) / 8] ^= static_cast<char>(0x80 >> (bit + i) % 8);
                    }
                }
                mendCheckSum(file_, position);
                return;
            }
        }
    }
    /// The drawing with what could be read, and that a copy of it is sound.
    std::unique_ptr<AcDbDatabase> salvaged() {
        auto database = readContent(file_);
        save(*database, "copy.dwg");
        EXPECT_TRUE(read("copy.dwg")->damage().empty());
        return database;
    }

    std::string file_;
};

TEST_F(DamagedFileTest, OtherFilesAreRefusedByName) {
    const std::tuple<const char*, Acad::ErrorStatus, const char*> cases[] = {
        {"", Acad::eNotADrawing, "not a drawing"},
        {"AC10", Acad::eNotADrawing, "not a drawing"},
        {"%PDF-1.4", Acad::eNotADrawing, "not a drawing"},
        {"ACCOUNTS", Acad::eNotADrawing, "not a drawing"},
        {"AC1009 and so on", Acad::eDwgVersionRefused, "version AC1009, only AC1015"},
        {"AC1014 and so on", Acad::eDwgVersionRefused, "version AC1014"},
        {"AC1018 and so on", Acad::eDwgVersionRefused, "version AC1018"},
        {"AC1032 and so on", Acad::eDwgVersionRefused, "version AC1032"},
        {"AC1015", Acad::eFileInternalErr, "ends within its head"},
    };
    for (const auto& [content, status, reason] : cases) {
        std::string error;
        EXPECT_EQ(statusOf(content, &error), status) << content;
        EXPECT_THAT(error, HasSubstr(reason));
        EXPECT_THAT(error, HasSubstr(folder_.Path("content.dwg")));
    }
    AcDbDatabase database(false);
    EXPECT_EQ(database.readDwgFile(folder_.Windows("missing.dwg").c_str()), Acad::eFileNotFound);
    EXPECT_THAT(database.lastFileError(), HasSubstr("missing.dwg"));
    EXPECT_EQ(database_.readDwgFile(folder_.Windows("drawing.dwg").c_str()), Acad::eNotApplicable)
        << "into a drawing that has objects";
}

TEST_F(DamagedFileTest, CutFilesAreRefused) {
    for (std::size_t size = 6; size < file_.size(); size += size < 300 ? 1 : 37) {
        EXPECT_FALSE(isSound(file_.substr(0, size))) << "cut at " << size;
    }
    EXPECT_FALSE(isSound(file_ + "x")) << "too long";
    EXPECT_TRUE(isSound(file_));
}

// Every byte of the parts that have a check sum.
TEST_F(DamagedFileTest, FlippedBitsAreFound) {
    const auto flip = [this](std::size_t at, unsigned bit) {
        std::string damaged = file_;
        damaged[at] = static_cast<char>(damaged[at] ^ 1 << bit);
        return damaged;
    };
    const std::pair<std::size_t, std::size_t> checked[] = {
        {21, 97},                               // sections, check sum and mark of the head
        {sectionStart(0), sectionEnd(0)},       // header variables
        {sectionStart(1), sectionEnd(1)},       // classes
        {sectionEnd(1) + 4, sectionStart(2)},   // objects
        {sectionStart(2), sectionEnd(2)},       // object map
        {sectionEnd(3), sectionStart(4) - 24},  // second header
    };
    for (const auto& [begin, end] : checked) {
        for (std::size_t at = begin; at < end; ++at) {
            ASSERT_FALSE(isSound(flip(at, at % 8))) << at;
        }
    }
    // Elsewhere a flipped bit may pass unseen, but does no harm.
    for (std::size_t at = 6; at < file_.size(); at += 3) {
        isSound(flip(at, (at + 3) % 8));
    }
}

// What gets past the check sums, because they are right for the damage, still breaks nothing.
TEST_F(DamagedFileTest, NonsenseWithRightCheckSumsDoesNoHarm) {
    const std::size_t objects = sectionEnd(1) + 4;
    std::vector<std::pair<std::size_t, dwg::ObjectFrame>> frames;
    for (std::size_t at = objects; at < sectionStart(2);) {
        const dwg::ObjectFrame frame = dwg::FrameAt(file_, at);
        frames.emplace_back(at, frame);
        at = frame.contentPosition + frame.contentSize + dwg::kCrcSize;
    }
    std::uint32_t random = 1;
    const auto next = [&random] { return random = random * 1664525 + 1013904223; };
    int unsound = 0;
    for (const auto& [at, frame] : frames) {
        for (int round = 0; round < 30; ++round) {
            std::string damaged = file_;
            for (int flips = 0; flips <= round % 3; ++flips) {
                const std::size_t byte = frame.contentPosition + next() % frame.contentSize;
                damaged[byte] = static_cast<char>(damaged[byte] ^ 1 << next() % 8);
            }
            mendCheckSum(damaged, at);
            unsound += isSound(damaged) ? 0 : 1;
        }
    }
    EXPECT_GT(unsound, 0);
}

TEST_F(DamagedFileTest, ADamagedObjectIsLeftOutAndTheOriginalStays) {
    const auto before = describe(database_);
    const AcDbHandle text = entities(database_)[1]->objectId().handle();
    damage(text);
    folder_.Write("original.dwg", file_);
    std::filesystem::create_symlink("original.dwg", folder_.Path("link.dwg"));
    const auto database = read("original.dwg");
    EXPECT_THAT(database->damage().objects, ElementsAre(text));
    EXPECT_THAT(database->damage().report(),
                ElementsAre(HasSubstr("original.dwg: the drawing is damaged, 1 object is missing"),
                            HasSubstr("has a wrong check sum"), HasSubstr("do not follow"),
                            HasSubstr("another name only")));
    // The line before it and the polyline behind it are there.
    ASSERT_THAT(entities(*database), SizeIs(2));
    EXPECT_EQ(entities(*database)[0]->isA(), AcDbLine::desc());
    EXPECT_EQ(entities(*database)[1]->isA(), AcDbPolyline::desc());
    const FindingListener listener;
    AcDbDatabase sheet;
    AcDbObjectId block;
    EXPECT_EQ(sheet.insert(block, "original", database.get()), Acad::eOk);
    EXPECT_THAT(listener.heard, ElementsAre(HasSubstr("original.dwg: the drawing is damaged")));

    for (const char* name : {"original.dwg", "link.dwg"}) {
        EXPECT_EQ(database->saveAs(folder_.Windows(name).c_str()), Acad::eFileAccessErr);
        EXPECT_THAT(database->lastFileError(), HasSubstr("save the drawing under another name"));
    }
    EXPECT_EQ(folder_.Read("original.dwg"), file_);
    save(*database, "copy.dwg");
    save(*database, "copy.dwg");
    const auto copy = read("copy.dwg");
    EXPECT_TRUE(copy->damage().empty());
    EXPECT_EQ(describe(*copy), describe(*database));
    EXPECT_EQ(database->saveAs(folder_.Windows("original.dwg").c_str()), Acad::eFileAccessErr)
        << "also later";
}

TEST_F(DamagedFileTest, LinksInCirclesLoseNothing) {
    const auto handle = [this](std::size_t i) {
        return static_cast<std::uint32_t>(entities(database_)[i]->objectId().handle());
    };
    // The first line names itself as the next entity.
    replaceIn(handle(0), 0x4100 | handle(1), 0x4100 | handle(0));
    const auto database = salvaged();
    EXPECT_THAT(database->damage().objects, IsEmpty());
    EXPECT_THAT(database->damage().reasons, ElementsAre(HasSubstr("do not follow each other")));
    EXPECT_THAT(entities(*database), SizeIs(3));
}

TEST_F(DamagedFileTest, AnObjectThatClaimsMoreThanItsPlaceIsLeftOut) {
    const AcDbHandle line = entities(database_)[0]->objectId().handle();
    const std::string content = objects(file_)[line];
    DwgBitReader reader(dwg::BytesOf(content), 0, 8 * content.size());
    reader.bitShort();
    const std::uint32_t bits = reader.rawLong();
    replaceIn(line, (bits & 0xFF) << 8 | bits >> 8, 0xFFFF);
    const auto database = salvaged();
    EXPECT_THAT(database->damage().objects, ElementsAre(line));
    EXPECT_THAT(database->damage().reasons, testing::Contains(HasSubstr("has a wrong size")));
}

TEST_F(DamagedFileTest, WhatBelongsToADamagedObjectIsLostWithIt) {
    const AcDbObjectId gone = addBlock("Gone");
    appendLine({}, {1, 0, 0}, "Gone");
    addBlock("Stays");
    appendLine({}, {2, 0, 0}, "Stays");
    const AcDbHandle layer = addLayer("damaged").handle();
    file_ = save();
    damage(gone.handle());
    damage(layer);
    const auto database = salvaged();
    constexpr std::size_t kRecordLineAndTheEntitiesAround = 4;
    EXPECT_THAT(database->damage().objects, SizeIs(1 + kRecordLineAndTheEntitiesAround));
    const auto copy = read("copy.dwg");
    EXPECT_EQ(block(*copy, "Gone"), nullptr);
    EXPECT_THAT(entities(*copy, "Stays"), SizeIs(1));
    EXPECT_FALSE(hasLayer(*copy, "damaged"));
    EXPECT_TRUE(hasLayer(*copy, "0"));

    // Without one of its tables a drawing is none.
    damage(copy->header().LAYER_CONTROL_OBJECT.handle());
    std::string error;
    EXPECT_EQ(statusOf(file_, &error), Acad::eFileInternalErr);
    EXPECT_THAT(error, HasSubstr("no table of layers"));
}

// A seed at the end of all numbers, or below handles that are taken, must not make handles twice.
TEST_F(DamagedFileTest, NewObjectsFindFreeHandles) {
    for (const AcDbHandle seed : {AcDbHandle{1}, ~AcDbHandle{0}, ~AcDbHandle{0} - 1}) {
        AcDbDatabase fresh;
        fresh.header().HANDSEED = seed;
        const auto database = readContent(save(fresh));
        const AcDbObjectId id = database->addObject(
            std::make_unique<AcDbLine>(AcGePoint3d(), AcGePoint3d(1, 0, 0)), AcDbObjectId::kNull);
        EXPECT_LT(id.handle(), 0x10000U);
        save(*database, "more.dwg");
        EXPECT_TRUE(read("more.dwg")->damage().empty());
    }
}

}  // namespace
