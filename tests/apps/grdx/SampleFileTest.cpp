#include "apps/grdx/sample_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apps/grdx/layer_file.h"
#include "apps/grdx/numbers.h"
#include "apps/grdx/text_encoding.h"
#include "platform/win32/code_page.h"

using console::LineError;
using console::SampleData;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {
const std::string kHeader = "borehole,sample,depth,thickness,method,total,size,mass\n";

struct ReadResult {
    std::vector<SampleData> samples;
    std::vector<LineError> errors;
};

ReadResult Read(const std::string& lines) {
    ReadResult result;
    result.samples = console::ReadSampleFile(kHeader + lines, result.errors);
    return result;
}

std::vector<double> Sizes(const SampleData& sample) {
    std::vector<double> sizes;
    for (const auto& item : sample.items) {
        sizes.push_back(item.size);
    }
    return sizes;
}
}  // namespace

TEST(SampleFileTest, GathersTheLinesOfASampleInFileOrder) {
    const ReadResult read = Read(
        "ZK1,1-1,1.20,0.20,筛析法,161.6,0.5,11.6\n"
        "ZK1,1-2,,,,30,2,1\r\n"
        "\n"
        "\"ZK1\",\"1-1\",1.2,0.2,\"筛析法\",161.60,2,150");
    ASSERT_THAT(read.errors, IsEmpty());
    ASSERT_EQ(read.samples.size(), 2U);
    EXPECT_EQ(read.samples[0].method, "筛析法");
    EXPECT_EQ(read.samples[0].depth, 1.2);
    EXPECT_EQ(read.samples[0].total, 161.6);
    EXPECT_THAT(Sizes(read.samples[0]), ElementsAre(0.5, 2.0));
    EXPECT_EQ(read.samples[1].depth, std::nullopt);
    EXPECT_EQ(read.samples[1].thickness, std::nullopt);
    EXPECT_EQ(read.samples[1].firstLine, 3U);
}

TEST(SampleFileTest, NamesEveryBadLineWithItsReason) {
    struct Case {
        const char* line;
        const char* reason;
    };
    const Case cases[] = {
        {"K,1,1,1,m,10,2", "7 fields instead of 8"},
        {"K,1,1,1,m,10,2,1,", "9 fields instead of 8"},
        {",1,1,1,m,10,2,1", "borehole: missing"},
        {"K,,1,1,m,10,2,1", "sample: missing"},
        {" K,1,1,1,m,10,2,1", "blanks around"},
        {"K,1 ,1,1,m,10,2,1", "blanks around"},
        {"K　,1,1,1,m,10,2,1", "blanks around"},
        {"K'1,1,1,1,m,10,2,1", "borehole \"K'1\": ' cannot stand in the name of a sheet"},
        {"K,*1,1,1,m,10,2,1", "sample \"*1\": * cannot stand in the name of a sheet"},
        {"K,x/../../y,1,1,m,10,2,1", "sample \"x/../../y\": / cannot stand"},
        {"\"\"\"q\"\"\",1,1,1,m,10,2,1", "borehole \"\"q\"\": \" cannot stand"},
        {"K\t,1,1,1,m,10,2,1", "control character"},
        {"\xF0\x9F\x98\x80,1,1,1,m,10,2,1", "a character that GBK does not have"},
        {"K,1,1,1,한,10,2,1", "a character that GBK does not have"},
        {"钻孔钻孔钻孔钻孔钻孔钻孔钻孔钻孔钻孔钻孔1,1,1,1,m,10,2,1", "more than 20 characters"},
        {"K,1234567890123,1,1,m,10,2,1", "more than 12 characters"},
        {"K,1,1,1,1234567890123456,10,2,1", "more than 15 characters"},
        {"K,1,x,1,m,10,2,1", "depth \"x\": not a number"},
        {"K,1,1,-0.1,m,10,2,1", "thickness \"-0.1\": below 0"},
        {"K,1,1,1,m,,2,1", "total: missing"},
        {"K,1,1,1,m,1e60,2,1", "32-bit float"},
        {"K,1,1,1,m,10,2mm,1", "size \"2mm\": not a number"},
        {"K,1,1,1,m,10,nan,1", "size \"nan\": not a number"},
        {"K,1,1,1,m,10,2,", "mass: missing"},
        {"K,1,1,1,m,10,2, 1", "mass \" 1\": not a number"},
        {"K,1,1,1,m,10,2,\"1", "closing quote is missing"},
        {"K,1,1,1,\"m\"x,10,2,1", "after the closing quote"},
        {"K,1,1,1,m\"m\",10,2,1", "does not stand in quotes"},
        {"A,0,1,1,m,11,2,1", "total differs from that of line 2"},
        {"A,0,,1,m,10,2,1", "depth differs from that of line 2"},
        {"A,0,1,2,m,10,2,1", "thickness differs"},
        {"A,0,1,1,n,10,2,1", "method differs"},
    };
    for (const Case& bad : cases) {
        const ReadResult read = Read(std::string("A,0,1,1,m,10,2,1\n") + bad.line + "\n");
        ASSERT_EQ(read.errors.size(), 1U) << bad.line;
        EXPECT_EQ(read.errors[0].line, 3U) << bad.line;
        EXPECT_THAT(read.errors[0].reason, HasSubstr(bad.reason)) << bad.line;
    }
}

TEST(SampleFileTest, TellsAllBadLinesInOrderAndCountsQuotedLineBreaks) {
    const ReadResult read = Read(
        "A,1,1,1,m,x,2,1\n"
        "A,1,1,1,m,10,2,1\n"
        "A,1,1,1,\"m\nm\",10,2,1\n"
        "A,2\n"
        "A,1,1,1,m,10,2,y\n");
    std::vector<std::size_t> lines;
    for (const LineError& error : read.errors) {
        lines.push_back(error.line);
    }
    EXPECT_THAT(lines, ElementsAre(2U, 4U, 6U, 7U));
}

TEST(SampleFileTest, AFileWithoutItsHeaderOrDataIsRefused) {
    for (const char* text : {"", "\n", "borehole,sample\nA,1\n", "K,1,1,1,m,10,2,1\n",
                             "Borehole,sample,depth,thickness,method,total,size,mass\n"}) {
        std::vector<LineError> errors;
        EXPECT_THAT(console::ReadSampleFile(text, errors), IsEmpty()) << text;
        ASSERT_EQ(errors.size(), 1U) << text;
        EXPECT_THAT(errors[0].reason, HasSubstr("must begin with the line borehole,sample,"));
    }
    EXPECT_THAT(Read("").errors, ElementsAre(LineError{1, "no data after the header line"}));
}

TEST(LayerFileTest, SizesAreGrainClassesAndTextsStay) {
    std::vector<LineError> errors;
    const auto layers = console::ReadLayerFile(
        "main,sub,size,percent\n2,1,800,25.50\n3,0,0.075,10\n2,1,0.0740,5\n2,1,0,1e1\n", errors);
    ASSERT_THAT(errors, IsEmpty());
    ASSERT_EQ(layers.size(), 2U);
    EXPECT_EQ(layers[0].main, 2);
    EXPECT_EQ(layers[0].sub, 1);
    ASSERT_EQ(layers[0].percentages.size(), 3U);
    EXPECT_EQ(layers[0].percentages[0].code, 1100);
    EXPECT_EQ(layers[0].percentages[0].text, "25.50");
    EXPECT_EQ(layers[0].percentages[1].code, 1113);
    EXPECT_EQ(layers[0].percentages[2].code, 1118);
    EXPECT_EQ(layers[1].percentages[0].code, 1112);
}

TEST(LayerFileTest, NamesBadLines) {
    struct Case {
        const char* line;
        const char* reason;
    };
    const Case cases[] = {
        {"256,0,2,10", "main \"256\": not an integer from 0 to 255"},
        {"1,-1,2,10", "sub \"-1\": not an integer"},
        {"1,0.5,2,10", "sub \"0.5\": not an integer"},
        {"1,0,3,10", "none of the standard sizes"},
        {"1,0,2,ten", "percent \"ten\": not a number"},
        {"1,0,20,7", "given twice"},
    };
    for (const Case& bad : cases) {
        std::vector<LineError> errors;
        console::ReadLayerFile("main,sub,size,percent\n1,0,20,7\n" + std::string(bad.line) + "\n",
                               errors);
        ASSERT_EQ(errors.size(), 1U) << bad.line;
        EXPECT_EQ(errors[0].line, 3U) << bad.line;
        EXPECT_THAT(errors[0].reason, HasSubstr(bad.reason)) << bad.line;
    }
}

TEST(TextEncodingTest, TellsUtf8FromGbk) {
    struct Case {
        const char* why;
        std::string bytes;
        const char* utf8;  ///< null: refused
    };
    const Case cases[] = {
        {"plain", "a,b", "a,b"},
        {"UTF-8", "钻孔", "钻孔"},
        {"UTF-8 with mark", "\xEF\xBB\xBF钻孔", "钻孔"},
        {"GBK", win32::GbkFromUtf8("钻孔"), "钻孔"},
        {"GBK with a trail byte below 0x80", win32::GbkFromUtf8("一丂"), "一丂"},
        {"a mark and then GBK", "\xEF\xBB\xBF" + win32::GbkFromUtf8("钻孔"), nullptr},
        {"a mark and then a long form of '/'", "\xEF\xBB\xBF\xC0\xAF", nullptr},
        {"a mark and then a surrogate", "\xEF\xBB\xBF\xED\xA0\x80", nullptr},
        {"a mark and then half a character", "\xEF\xBB\xBF\xE9\x92", nullptr},
        {"a lead byte alone", "a\xFE", nullptr},
        {"UTF-16", std::string("a\0b\0", 4), nullptr},
    };
    for (const Case& row : cases) {
        std::string utf8;
        std::string error;
        EXPECT_EQ(console::DecodeText(row.bytes, utf8, error), row.utf8 != nullptr) << row.why;
        EXPECT_EQ(utf8, row.utf8 != nullptr ? row.utf8 : "") << row.why;
        EXPECT_EQ(error.empty(), row.utf8 != nullptr) << row.why;
    }
}

TEST(NumbersTest, AreStoredAsTheShortestDecimalOfAFloat) {
    EXPECT_EQ(console::StoredNumber(161.6), 161.6);
    EXPECT_EQ(console::StoredNumber(0.00125), 0.00125);
    EXPECT_EQ(console::StoredNumber(52340.5), 52340.5);
    EXPECT_EQ(console::StoredNumber(123456.789), 123456.79);
    EXPECT_EQ(console::StoredNumber(1e39), std::nullopt);
    EXPECT_EQ(console::StoredNumber(1e-60), std::nullopt);
}

TEST(NumbersTest, KnowTheCalendar) {
    for (const char* day : {"2026-05-20", "2024-02-29", "0001-12-31"}) {
        EXPECT_TRUE(console::IsDate(day)) << day;
    }
    for (const char* text : {"2026-02-29", "2026-5-20", "2026-13-01", "2026-00-01", "2026-01-00",
                             "20260520", "2026/05/20", "2026-05-2x", "-026-05-20", ""}) {
        EXPECT_FALSE(console::IsDate(text)) << text;
    }
}
