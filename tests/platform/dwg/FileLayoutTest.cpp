// What stands where in a file, as a reader that knows nothing of the writer finds it.
#include "platform/dwg/file_layout.h"

#include "platform/dwg/DwgBitReader.h"
#include "platform/dwg/crc.h"
#include "platform/win32/gbk_literal.h"
#include "tests/platform/dwg/DwgFixture.h"

namespace {

class FileLayoutTest : public DwgFixture {
protected:
    FileLayoutTest() {
        appendLine({1, 2, 0}, {1, 5, 0});
        file_ = save();
    }

    std::string section(std::size_t number) const { return DwgFixture::section(file_, number); }

    /// The content of a section between marks, whose size and check sum are right.
    static std::string framed(const std::string& section, const dwg::Sentinel& begin) {
        EXPECT_EQ(section.substr(0, 16), dwg::TextOf(begin));
        EXPECT_EQ(section.substr(section.size() - 16), dwg::TextOf(dwg::EndOf(begin)));
        const std::size_t size = dwg::LongAt(section, 16);
        EXPECT_EQ(size, section.size() - 38);
        EXPECT_EQ(dwg::ShortAt(section, 20 + size), dwg::Crc(dwg::BytesOf(section) + 16, 4 + size));
        return section.substr(20, size);
    }

    static DwgBitReader bits(const std::string& content) {
        return {dwg::BytesOf(content), 0, 8 * content.size()};
    }

    std::string file_;
};

TEST_F(FileLayoutTest, TheHeadNamesVersionCodePageAndSections) {
    EXPECT_EQ(file_.substr(0, 12), std::string("AC1015\0\0\0\0\0\x06", 12));
    EXPECT_EQ(dwg::ShortAt(file_, 19), 39) << "the number of code page 936";
    EXPECT_EQ(dwg::LongAt(file_, 21), 6U);
    EXPECT_EQ(dwg::ShortAt(file_, 79), dwg::Crc(dwg::BytesOf(file_), 79));
    EXPECT_EQ(file_.substr(81, 16), dwg::TextOf(dwg::kHeadEnd));
    const std::size_t preview = dwg::LongAt(file_, 13);
    EXPECT_EQ(file_.substr(preview, 37),
              std::string(dwg::TextOf(dwg::kPreviewBegin)) + std::string("\1\0\0\0\0", 5) +
                  std::string(dwg::TextOf(dwg::EndOf(dwg::kPreviewBegin))));
    EXPECT_EQ(section(4), std::string("\0\0\1\0", 4)) << "no template, metric";
    EXPECT_EQ(file_.size(), file_.find(section(4), file_.size() - 4) + 4);
}

TEST_F(FileLayoutTest, SectionsAreFramed) {
    const std::string variables = framed(section(0), dwg::kVariablesBegin);
    EXPECT_EQ(bits(variables).bitDouble(), 412148564080.0);
    const std::string classes = framed(section(1), dwg::kClassesBegin);
    DwgBitReader reader = bits(classes);
    std::string application;
    std::string className;
    std::string dxfName;
    EXPECT_EQ(reader.bitShort(), 500);
    EXPECT_EQ(reader.bitShort(), 0);
    reader.text(application);
    reader.text(className);
    reader.text(dxfName);
    EXPECT_EQ(className + " " + dxfName, "AcDbDictionaryWithDefault ACDBDICTIONARYWDFLT");
    EXPECT_FALSE(reader.bit());
    EXPECT_EQ(reader.bitShort(), 0x1F3);
}

TEST_F(FileLayoutTest, TheSecondHeaderRepeatsTheFirst) {
    const std::size_t start = file_.find(dwg::TextOf(dwg::kSecondHeaderBegin));
    ASSERT_NE(start, std::string::npos);
    const std::size_t size = dwg::LongAt(file_, start + 16);
    EXPECT_EQ(file_.substr(start + 16 + size, 16),
              dwg::TextOf(dwg::EndOf(dwg::kSecondHeaderBegin)));
    EXPECT_EQ(dwg::ShortAt(file_, start + 16 + size - 10),
              dwg::Crc(dwg::BytesOf(file_) + start + 16, size - 10));
    const std::string content = file_.substr(start + 16, size);
    DwgBitReader reader = bits(content);
    reader.rawLong();
    EXPECT_EQ(static_cast<std::size_t>(reader.bitLong()), start);
    std::vector<std::uint8_t> version;
    reader.bytes(13, version);
    EXPECT_EQ(std::string(version.begin(), version.begin() + 6), "AC1015");
    EXPECT_EQ(reader.bitShort(), 0x617);
    EXPECT_EQ(reader.rawShort(), 39);
    ASSERT_EQ(reader.bitShort(), 6);
    for (const std::size_t number : {0, 1, 2, 3, 4, 5}) {
        EXPECT_EQ(reader.rawChar(), number);
        const auto address = static_cast<std::size_t>(reader.bitLong());
        const auto length = static_cast<std::size_t>(reader.bitLong());
        if (number != 4) {
            EXPECT_EQ(file_.substr(address, length), section(number));
        }
    }
    ASSERT_EQ(reader.bitShort(), 14);
    EXPECT_EQ(reader.rawChar(), 1) << "the handle seed takes one byte";
    EXPECT_EQ(reader.rawChar(), 0);
    EXPECT_EQ(reader.rawChar(), database_.header().HANDSEED);
}

TEST_F(FileLayoutTest, ALineIsCodedAsTheFormatSays) {
    const AcDbHandle handle = entities(database_)[0]->objectId().handle();
    std::string object;
    for (const dwg::MapEntry& entry : dwg::ReadObjectMap(section(2))) {
        const dwg::ObjectFrame frame = dwg::FrameAt(file_, entry.position);
        ASSERT_TRUE(frame.fits);
        const std::size_t framedSize = frame.contentPosition + frame.contentSize - entry.position;
        EXPECT_EQ(dwg::ShortAt(file_, entry.position + framedSize),
                  dwg::Crc(dwg::BytesOf(file_) + entry.position, framedSize));
        if (entry.handle == handle) {
            object = file_.substr(frame.contentPosition, frame.contentSize);
        }
    }
    DwgBitReader reader = bits(object);
    EXPECT_EQ(reader.bitShort(), 19);
    const std::uint32_t valueBits = reader.rawLong();
    EXPECT_EQ(reader.handle().value, handle);
    EXPECT_EQ(reader.bitShort(), 0) << "no application data";
    EXPECT_EQ(reader.bits(1), 0U) << "no graphics";
    EXPECT_EQ(reader.bits(2), 2U) << "of model space";
    EXPECT_EQ(reader.bitLong(), 0) << "no reactors";
    EXPECT_EQ(reader.bits(1), 0U) << "neighbours are named";
    EXPECT_EQ(reader.bitShort(), 256);
    EXPECT_EQ(reader.bitDouble(), 1.0);
    EXPECT_EQ(reader.bits(4), 0U) << "line type and plot style by layer";
    EXPECT_EQ(reader.bitShort(), 0);
    EXPECT_EQ(reader.rawChar(), 29);
    EXPECT_EQ(reader.bits(1), 1U) << "in the plane";
    EXPECT_EQ(reader.rawDouble(), 1.0);
    EXPECT_EQ(reader.bits(2), 0U) << "the same x again";
    EXPECT_EQ(reader.rawDouble(), 2.0);
    EXPECT_EQ(reader.doubleWithDefault(2.0), 5.0);
    EXPECT_EQ(reader.bits(2), 3U) << "no thickness, the usual normal";
    EXPECT_EQ(reader.bitPosition(), valueBits);
    EXPECT_EQ(reader.rawChar(), 0x30) << "no extension dictionary";
    EXPECT_EQ(reader.rawShort(), 0x4040) << "no neighbours";
    const DwgFileHandle layer = reader.handle();
    EXPECT_EQ(layer.code, 5);
    EXPECT_EQ(layer.value, database_.clayer().handle());
    EXPECT_LT(reader.remaining(), 8U);
}

}  // namespace
