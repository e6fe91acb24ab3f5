#include "platform/gi/AcGiProxyGraphicsRecorder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <numbers>
#include <string>

#include "platform/win32/gbk_literal.h"

namespace {

using testing::ElementsAre;

/// One record as a reader sees it.
struct Record {
    std::uint32_t kind = 0;
    std::vector<std::uint8_t> data;

    std::uint32_t number(std::size_t at) const { return read<std::uint32_t>(at); }
    std::vector<double> doubles(std::size_t at, std::size_t count) const {
        std::vector<double> values;
        for (std::size_t i = 0; i < count; ++i) {
            values.push_back(read<double>(at + 8 * i));
        }
        return values;
    }
    /// The text at `at`, which moves behind it and what fills it up.
    std::string text(std::size_t& at) const {
        std::string found(reinterpret_cast<const char*>(&data.at(at)));
        at += (found.size() / 4 + 1) * 4;
        return found;
    }

private:
    template <class T>
    T read(std::size_t at) const {
        T value;
        EXPECT_LE(at + sizeof value, data.size());
        std::memcpy(&value, &data.at(at), sizeof value);
        return value;
    }
};

/// Takes the stream apart; checks its own statements about sizes and count.
std::vector<Record> recordsOf(const AcGiProxyGraphicsRecorder& recorder) {
    Record all{0, recorder.bytes()};
    EXPECT_EQ(all.number(0), all.data.size());
    std::vector<Record> records;
    std::size_t at = 8;
    while (at < all.data.size()) {
        const std::uint32_t size = all.number(at);
        EXPECT_EQ(size % 4, 0U);
        EXPECT_GE(size, 8U);
        const auto start = all.data.begin() + static_cast<std::ptrdiff_t>(at);
        records.push_back({all.number(at + 4), {start + 8, start + size}});
        at += size;
    }
    EXPECT_EQ(all.number(4), records.size());
    return records;
}

std::vector<std::uint32_t> kindsOf(const std::vector<Record>& records) {
    std::vector<std::uint32_t> kinds;
    kinds.reserve(records.size());
    for (const Record& record : records) {
        kinds.push_back(record.kind);
    }
    return kinds;
}

TEST(AcGiProxyGraphicsRecorderTest, NothingDrawnIsNothingRecorded) {
    AcGiProxyGraphicsRecorder recorder;
    recorder.subEntityTraits().setColor(3);
    recorder.geometry().text({}, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, "", -1, false, {});
    EXPECT_TRUE(recorder.bytes().empty());
}

TEST(AcGiProxyGraphicsRecorderTest, ACurveWithALabel) {
    AcGiProxyGraphicsRecorder recorder;
    const AcGePoint3d points[] = {{1, 2, 0}, {5, 9, 0}};
    recorder.subEntityTraits().setSelectionMarker(1);
    recorder.subEntityTraits().setColor(3);
    recorder.geometry().polyline(2, points);
    AcGiTextStyle style;
    style.setFileName("comfont.shx");
    style.setBigFontFileName("hztxt.shx");
    style.setTextSize(3.0);
    style.setXScale(0.7);
    style.setTrackingPercent(80.0);
    recorder.subEntityTraits().setSelectionMarker(2);
    recorder.subEntityTraits().setColor(257);
    recorder.geometry().text({6, 1, 0}, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, "=砾石"_gbk, -1,
                             false, style);

    const std::vector<Record> records = recordsOf(recorder);
    ASSERT_THAT(kindsOf(records), ElementsAre(1, 14, 19, 6, 14, 19, 11));
    EXPECT_EQ(records[1].number(0), 3U);
    EXPECT_EQ(records[2].number(0), 1U);
    EXPECT_EQ(records[3].number(0), 2U);
    EXPECT_THAT(records[3].doubles(4, 6), ElementsAre(1, 2, 0, 5, 9, 0));
    EXPECT_EQ(records[4].number(0), 256U);

    const Record& label = records[6];
    EXPECT_THAT(label.doubles(0, 9), ElementsAre(6, 1, 0, 0, 0, 1, 1, 0, 0));
    std::size_t at = 72;
    EXPECT_EQ(label.text(at), "=砾石"_gbk);
    EXPECT_EQ(at, 80U);
    EXPECT_EQ(label.number(at), 0xFFFFFFFFU);
    EXPECT_EQ(label.number(at + 4), 0U);
    EXPECT_THAT(label.doubles(at + 8, 4), ElementsAre(3.0, 0.7, 0.0, 80.0));
    at += 8 + 4 * 8 + 5 * 4;
    EXPECT_EQ(label.text(at), "comfont.shx");
    EXPECT_EQ(label.text(at), "hztxt.shx");
    EXPECT_EQ(at, label.data.size());

    // Three characters, one of them single-byte.
    EXPECT_THAT(records[0].doubles(0, 6),
                ElementsAre(1, 1, 0, testing::DoubleEq(6 + 3 * 2.1), 9, 0));
}

TEST(AcGiProxyGraphicsRecorderTest, FilledShapesSayThatTheyAreFilled) {
    AcGiProxyGraphicsRecorder recorder;
    const AcGePoint3d triangle[] = {{0, 0, 0}, {4, 0, 0}, {0, 4, 0}};
    recorder.geometry().polygon(3, triangle);
    recorder.geometry().wideLine({0, 0, 0}, {10, 0, 0}, 1.0, 3.0);
    recorder.geometry().circle({5, 5, 0}, 2.0, AcGeVector3d::kZAxis);
    recorder.geometry().circularArc({0, 0, 0}, 2.0, std::numbers::pi / 2, std::numbers::pi);

    const std::vector<Record> records = recordsOf(recorder);
    ASSERT_THAT(kindsOf(records), ElementsAre(1, 20, 7, 20, 7, 20, 2, 4));
    EXPECT_EQ(records[1].number(0), 1U);
    EXPECT_EQ(records[3].number(0), 1U);
    EXPECT_THAT(records[4].doubles(4, 12),
                ElementsAre(0, 0.5, 0, 0, -0.5, 0, 10, -1.5, 0, 10, 1.5, 0));
    EXPECT_EQ(records[5].number(0), 0U);
    EXPECT_THAT(records[6].doubles(0, 7), ElementsAre(5, 5, 0, 2, 0, 0, 1));
    const std::vector<double> arc = records[7].doubles(0, 11);
    EXPECT_NEAR(arc[7], 0.0, 1e-15);  // the arc starts upwards
    EXPECT_DOUBLE_EQ(arc[8], 1.0);
    EXPECT_DOUBLE_EQ(arc[10], std::numbers::pi);
    EXPECT_THAT(records[0].doubles(0, 6), ElementsAre(-2, -2, 0, 10, 7, 0));
}

}  // namespace
