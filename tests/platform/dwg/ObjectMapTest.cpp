#include "platform/dwg/object_map.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/dwg/DwgFault.h"
#include "platform/dwg/crc.h"
#include "platform/dwg/file_layout.h"

namespace {

using dwg::MapEntry;

std::string mapOf(const std::vector<MapEntry>& entries) {
    std::string map;
    dwg::AppendObjectMap(map, entries);
    return map;
}

/// A page with its size before and its check sum behind it, high bytes first.
std::string page(const std::string& content) {
    const std::size_t size = content.size() + 2;
    std::string text{static_cast<char>(size >> 8), static_cast<char>(size)};
    text += content;
    const std::uint16_t crc = dwg::Crc(dwg::BytesOf(text), text.size());
    return text + static_cast<char>(crc >> 8) + static_cast<char>(crc);
}

const std::string kEmptyPage = page("");

TEST(ObjectMap, WritesStepsOfHandlesAndPositions) {
    // 1 at 1051; 2 at 1072: 1 further, 21 further; 0x90 at 1000: 142 further, 72 back.
    EXPECT_EQ(mapOf({{1, 1051}, {2, 1072}, {0x90, 1000}}), page("\x01\x9B\x08"
                                                                "\x01\x15"
                                                                "\x8E\x01\xC8\x40") +
                                                               kEmptyPage);
    EXPECT_EQ(mapOf({}), kEmptyPage);
}

TEST(ObjectMap, ReadsBackWhatItWrites) {
    std::vector<MapEntry> entries;
    std::uint64_t handle = 0;
    for (std::uint32_t i = 0; i < 5000; ++i) {
        handle += 1 + i % 7 * (i % 11 == 0 ? 1000 : 1);
        entries.push_back({handle, i % 3 == 0 ? 3000000000U - i : 97 + i});
    }
    const std::string map = mapOf(entries);
    EXPECT_GT(map.size(), 2U * 2032) << "several pages";
    for (std::size_t at = 0, size = 0; at < map.size(); at += size + 2) {
        size = static_cast<std::size_t>(static_cast<std::uint8_t>(map[at])) << 8 |
               static_cast<std::uint8_t>(map[at + 1]);
        EXPECT_LE(size, 2032U);
    }
    const std::vector<MapEntry> read = dwg::ReadObjectMap(map);
    ASSERT_EQ(read.size(), entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        ASSERT_EQ(read[i].handle, entries[i].handle);
        ASSERT_EQ(read[i].position, entries[i].position);
    }
}

TEST(ObjectMap, RefusesDamage) {
    const std::string good = mapOf({{1, 100}, {2, 200}});
    std::string wrongSum = good;
    wrongSum[3] ^= 1;
    const std::pair<const char*, std::string> cases[] = {
        {"nothing at all", ""},
        {"no closing page", good.substr(0, good.size() - kEmptyPage.size())},
        {"cut within a page", good.substr(0, 5)},
        {"a wrong check sum", wrongSum},
        {"a size below its own", std::string("\0\1\0\0", 4)},
        {"a handle twice", page(std::string("\x01\x05\x00\x05", 4)) + kEmptyPage},
        {"a handle lower than those before", page("\x09\x05") + page("\x04\x05") + kEmptyPage},
        {"a position before the file", page("\x01\x45") + kEmptyPage},
        {"a number that does not end", page("\x01\x85\x85") + kEmptyPage},
        {"a number of too many bytes", page(std::string(12, '\x81') + "\x01\x01") + kEmptyPage},
    };
    for (const auto& [reason, map] : cases) {
        EXPECT_THROW(dwg::ReadObjectMap(map), DwgFault) << reason;
    }
}

}  // namespace
