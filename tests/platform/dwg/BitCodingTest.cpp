#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/dwg/DwgBitReader.h"
#include "platform/dwg/DwgBitWriter.h"
#include "platform/dwg/crc.h"

namespace {

/// The bits of a stream, "0100…".
std::string bitsOf(DwgBitWriter& writer) {
    const std::size_t count = writer.bitPosition();
    const auto bytes = writer.view();
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += (bytes[i / 8] >> (7 - i % 8) & 1) != 0 ? '1' : '0';
    }
    return text;
}

template <class Write>
std::string coded(Write write) {
    DwgBitWriter writer;
    write(writer);
    return bitsOf(writer);
}

DwgBitReader readerOf(DwgBitWriter& writer) {
    const std::size_t end = writer.bitPosition();
    return {writer.view().data(), 0, end};
}

const std::string kOneAsDouble = "0000000000000000000000000000000000000000000000001111000000111111";

TEST(BitCoding, ShortNumbers) {
    const auto code = [](int value) {
        return coded([=](auto& w) { w.bitShort(static_cast<std::int16_t>(value)); });
    };
    EXPECT_EQ(code(0), "10");
    EXPECT_EQ(code(256), "11");
    EXPECT_EQ(code(15), "0100001111");
    EXPECT_EQ(code(255), "0111111111");
    EXPECT_EQ(code(257), "000000000100000001");
    EXPECT_EQ(code(-1), "001111111111111111");
    for (const int value : {0, 1, 255, 256, 257, 32767, -1, -32768}) {
        DwgBitWriter writer;
        writer.bitShort(static_cast<std::int16_t>(value));
        EXPECT_EQ(readerOf(writer).bitShort(), value);
    }
}

TEST(BitCoding, LongNumbers) {
    const auto code = [](std::int32_t value) { return coded([=](auto& w) { w.bitLong(value); }); };
    EXPECT_EQ(code(0), "10");
    EXPECT_EQ(code(5), "0100000101");
    EXPECT_EQ(code(256), "0000000000000000010000000000000000");
    for (const std::int32_t value : {0, 255, 256, -1, std::numeric_limits<std::int32_t>::min()}) {
        DwgBitWriter writer;
        writer.bitLong(value);
        EXPECT_EQ(readerOf(writer).bitLong(), value);
    }
}

TEST(BitCoding, Doubles) {
    EXPECT_EQ(coded([](auto& w) { w.bitDouble(0.0); }), "10");
    EXPECT_EQ(coded([](auto& w) { w.bitDouble(1.0); }), "01");
    EXPECT_EQ(coded([](auto& w) { w.bitDouble(-0.0); }).size(), 66U);
    EXPECT_EQ(coded([](auto& w) { w.rawDouble(1.0); }), kOneAsDouble);
}

TEST(BitCoding, DoublesThatRepeatPartOfAnother) {
    // 2.0 and 2.0 plus its last bit; 2.5 shares the two highest bytes with neither half of 2.0.
    const double near = std::nextafter(2.0, 3.0);
    const std::tuple<double, double, const char*, std::size_t> cases[] = {{2.0, 2.0, "00", 2},
                                                                          {near, 2.0, "01", 34},
                                                                          {2.0001, 2.0, "10", 50},
                                                                          {-7.0, 2.0, "11", 66},
                                                                          {0.0, -0.0, "11", 66}};
    for (const auto& [value, other, head, size] : cases) {
        DwgBitWriter writer;
        writer.doubleWithDefault(value, other);
        const std::string bits = bitsOf(writer);
        EXPECT_EQ(bits.substr(0, 2), head) << value;
        EXPECT_EQ(bits.size(), size) << value;
        EXPECT_EQ(readerOf(writer).doubleWithDefault(other), value);
    }
}

TEST(BitCoding, HandlesTakeAsFewBytesAsTheyNeed) {
    EXPECT_EQ(coded([](auto& w) { w.handle(5, 0); }), "01010000");
    EXPECT_EQ(coded([](auto& w) { w.handle(5, 0xF); }), "0101000100001111");
    EXPECT_EQ(coded([](auto& w) { w.handle(3, 0x2D1); }), "001100100000001011010001");
    constexpr AcDbHandle kHolder = 0x30;
    EXPECT_EQ((DwgFileHandle{4, 0x2C}.resolved(kHolder)), 0x2CU);
    EXPECT_EQ((DwgFileHandle{6, 0}.resolved(kHolder)), 0x31U);
    EXPECT_EQ((DwgFileHandle{8, 0}.resolved(kHolder)), 0x2FU);
    EXPECT_EQ((DwgFileHandle{10, 6}.resolved(kHolder)), 0x36U);
    EXPECT_EQ((DwgFileHandle{12, 6}.resolved(kHolder)), 0x2AU);
}

TEST(BitCoding, TextsKeepEveryByte) {
    EXPECT_EQ(coded([](auto& w) { w.text("A3"); }), "01000000100100000100110011");
    const std::string text = std::string(300, 'x') + "\xBF\xC5";
    DwgBitWriter writer;
    writer.bit(true);  // not at the start of a byte
    writer.text(text);
    writer.text(std::string("end\0", 4));
    DwgBitReader reader = readerOf(writer);
    EXPECT_TRUE(reader.bit());
    std::string read;
    reader.text(read);
    EXPECT_EQ(read, text);
    reader.text(read);
    EXPECT_EQ(read, "end") << "a closing zero byte is no part of the text";
}

TEST(BitCoding, BitStringsFitAtAnyPosition) {
    const std::uint8_t bytes[] = {0xA5, 0x0F, 0xC3, 0x3C, 0x81, 0x7E, 0xE0};
    for (unsigned offset = 0; offset < 8; ++offset) {
        for (const std::size_t count : {0, 1, 7, 8, 31, 32, 33, 51}) {
            DwgBitWriter writer;
            writer.bits(0, offset);
            writer.bitString(bytes, count);
            DwgBitReader reader = readerOf(writer);
            reader.skip(offset);
            std::vector<std::uint8_t> read;
            reader.bitString(count, read);
            for (std::size_t i = 0; i < count; ++i) {
                ASSERT_EQ(read[i / 8] >> (7 - i % 8) & 1, bytes[i / 8] >> (7 - i % 8) & 1)
                    << offset << " " << count << " " << i;
            }
            EXPECT_EQ(reader.remaining(), 0U);
        }
    }
}

TEST(BitCoding, WhatWasWrittenCanBeTakenBackAndAmended) {
    for (const unsigned kept : {0, 3, 31, 32, 33, 70}) {
        DwgBitWriter writer;
        for (unsigned i = 0; i < kept; ++i) {
            writer.bit(i % 3 == 0);
        }
        const std::string before = bitsOf(writer);
        writer.rawDouble(1.0);
        writer.truncate(kept);
        EXPECT_EQ(bitsOf(writer), before);
        writer.rawChar(0x81);
        EXPECT_EQ(bitsOf(writer), before + "10000001");
    }
    DwgBitWriter writer;
    writer.bits(0x3, 2);
    writer.rawLong(0);
    writer.bits(0x3F, 6);
    writer.amendRawLong(2, 0x12345678);
    EXPECT_EQ(bitsOf(writer), "1101111000010101100011010000010010111111");
}

TEST(BitCoding, ReadingPastTheEndGivesNothing) {
    DwgBitWriter writer;
    writer.bits(0, 30);  // a long number of full length, cut off
    DwgBitReader reader = readerOf(writer);
    EXPECT_EQ(reader.bitLong(), 0);
    EXPECT_TRUE(reader.failed());
    EXPECT_EQ(reader.rawDouble(), 0.0);
    EXPECT_EQ(reader.handle().value, 0U);
    std::string text = "old";
    reader.text(text);
    EXPECT_EQ(text, "");
    std::vector<std::uint8_t> bytes{1};
    reader.bytes(std::size_t{1} << 61U, bytes);
    EXPECT_TRUE(bytes.empty());

    DwgBitWriter longText;
    longText.bitShort(1000);
    longText.rawLong(0);
    DwgBitReader again = readerOf(longText);
    again.text(text);
    EXPECT_TRUE(again.failed()) << "a text longer than its file";
}

TEST(BitCoding, CodesWithoutAMeaningAreFaults) {
    const std::uint8_t ones[] = {0xFF, 0xFF, 0xFF};
    DwgBitReader number(ones, 0, 24);
    EXPECT_EQ(number.bitLong(), 0);
    EXPECT_TRUE(number.failed());
    DwgBitReader real(ones, 0, 24);
    EXPECT_EQ(real.bitDouble(), 0.0);
    EXPECT_TRUE(real.failed());
    DwgBitReader handle(ones, 0, 24);
    EXPECT_EQ(handle.handle().value, 0U) << "of fifteen bytes";
    EXPECT_TRUE(handle.failed());
}

TEST(Crc, MatchesThePublishedCheckValue) {
    const std::string digits = "123456789";
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(digits.data());
    EXPECT_EQ(dwg::Crc(bytes, digits.size(), 0), 0xBB3D);
    for (std::size_t split = 0; split <= digits.size(); ++split) {
        const std::uint16_t first = dwg::Crc(bytes, split, 0);
        EXPECT_EQ(dwg::Crc(bytes + split, digits.size() - split, first), 0xBB3D) << split;
    }
}

}  // namespace
