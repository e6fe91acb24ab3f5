// Files that are no drawings, drawings of other versions, drawings that are damaged.
#include "platform/db/AcDbLine.h"
#include "platform/db/AcDbPolyline.h"
#include "platform/db/AcDbText.h"
#include "platform/dwg/DwgFault.h"
#include "platform/dwg/DwgFileReader.h"
#include "platform/dwg/crc.h"
#include "platform/dwg/file_layout.h"
#include "tests/platform/dwg/DwgFixture.h"

namespace {

using testing::HasSubstr;

class DamagedFileTest : public DwgFixture {
protected:
    DamagedFileTest() {
        append(std::make_unique<AcDbLine>(AcGePoint3d(1, 2, 0), AcGePoint3d(1, 5, 0)));
        append(std::make_unique<AcDbText>(AcGePoint3d(), "text", AcDbObjectId::kNull, 3.0));
        auto wide = std::make_unique<AcDbPolyline>();
        wide->addVertexAt(0, {1, 1}, 0.5, 1, 1);
        wide->addVertexAt(0, {2, 1});
        append(std::move(wide));
        file_ = save();
    }

    std::size_t sectionStart(std::size_t number) const {
        return dwg::LongAt(file_, dwg::kLocatorsPosition + number * dwg::kLocatorSize + 1);
    }
    std::size_t sectionEnd(std::size_t number) const {
        return sectionStart(number) +
               dwg::LongAt(file_, dwg::kLocatorsPosition + number * dwg::kLocatorSize + 5);
    }

    /// Whether that content is a drawing; what is wrong with it must be that it is damaged.
    static bool isReadable(const std::string& content) {
        AcDbDatabase database(false);
        try {
            DwgFileReader(database, content).read();
            return true;
        } catch (const DwgFault& fault) {
            EXPECT_EQ(fault.status(), Acad::eFileInternalErr) << fault.what();
            return false;
        }
    }

    std::string file_;
};

TEST_F(DamagedFileTest, OtherFilesAreRefusedByName) {
    const struct {
        const char* content;
        Acad::ErrorStatus status;
        const char* reason;
    } cases[] = {
        {"", Acad::eNotADrawing, "not a drawing"},
        {"AC10", Acad::eNotADrawing, "not a drawing"},
        {"%PDF-1.4", Acad::eNotADrawing, "not a drawing"},
        {"AC1032 and so on", Acad::eDwgVersionRefused, "version AC1032"},
        {"AC1018 and so on", Acad::eDwgVersionRefused, "version AC1018"},
        {"AC1015", Acad::eFileInternalErr, "ends within its head"},
    };
    for (const auto& c : cases) {
        std::string error;
        EXPECT_EQ(statusOf(c.content, &error), c.status) << c.content;
        EXPECT_THAT(error, HasSubstr(c.reason));
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
        EXPECT_FALSE(isReadable(file_.substr(0, size))) << "cut at " << size;
    }
    EXPECT_EQ(statusOf(file_ + "x"), Acad::eFileInternalErr) << "too long";
    EXPECT_EQ(statusOf(file_), Acad::eOk);
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
            ASSERT_FALSE(isReadable(flip(at, at % 8))) << at;
        }
    }
    // Elsewhere a flipped bit may pass unseen, but does no harm.
    for (std::size_t at = 6; at < file_.size(); at += 3) {
        isReadable(flip(at, (at + 3) % 8));
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
    int refused = 0;
    for (const auto& [at, frame] : frames) {
        for (int round = 0; round < 30; ++round) {
            std::string damaged = file_;
            for (int flips = 0; flips <= round % 3; ++flips) {
                const std::size_t byte = frame.contentPosition + next() % frame.contentSize;
                damaged[byte] = static_cast<char>(damaged[byte] ^ 1 << next() % 8);
            }
            const std::size_t end = frame.contentPosition + frame.contentSize;
            const std::uint16_t crc = dwg::Crc(dwg::BytesOf(damaged) + at, end - at);
            damaged[end] = static_cast<char>(crc);
            damaged[end + 1] = static_cast<char>(crc >> 8);
            refused += isReadable(damaged) ? 0 : 1;
        }
    }
    EXPECT_GT(refused, 0);
}

}  // namespace
