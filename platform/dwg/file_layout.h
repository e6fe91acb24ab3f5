#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/db/HeaderVariables.h"

/// How an AC1015 file is laid out: a head that tells where the sections are, and the marks around
/// them. All numbers are little-endian.
namespace dwg {

inline constexpr std::string_view kVersion = "AC1015";

/// Sections by their numbers in the head.
enum SectionNumber : std::uint8_t {
    kHeaderVariables = 0,
    kClasses = 1,
    kObjectMap = 2,
    kFreeSpace = 3,
    kTemplate = 4,
    kAuxiliaryHeader = 5,
    kKnownSections = 6
};

/// Where a section is; size 0 for one that is not there.
struct SectionLocator {
    std::uint8_t number = 0;
    std::uint32_t address = 0;
    std::uint32_t size = 0;
};

// Positions in the head.
inline constexpr std::size_t kMaintenancePosition = 11;
inline constexpr std::size_t kPreviewPosition = 13;
inline constexpr std::size_t kProgramPosition = 17;
inline constexpr std::size_t kCodePagePosition = 19;
inline constexpr std::size_t kSectionCountPosition = 21;
inline constexpr std::size_t kLocatorsPosition = 25;
inline constexpr std::size_t kLocatorSize = 9;

inline constexpr std::size_t kCrcSize = 2;

/// Stands between the classes section and the objects.
inline constexpr std::uint32_t kBeforeObjects = 0x0DCA;

/// What a file says of the program that wrote it.
struct WriterNumbers {
    std::uint8_t maintenance = 6;  ///< by default as the first release that wrote this format
    std::uint8_t version = 0x17;
    std::uint8_t release = 6;
};

using Sentinel = std::array<std::uint8_t, 16>;
inline constexpr Sentinel kHeadEnd{0x95, 0xA0, 0x4E, 0x28, 0x99, 0x82, 0x1A, 0xE5,
                                   0x5E, 0x41, 0xE0, 0x5F, 0x9D, 0x3A, 0x4D, 0x00};
inline constexpr Sentinel kPreviewBegin{0x1F, 0x25, 0x6D, 0x07, 0xD4, 0x36, 0x28, 0x28,
                                        0x9D, 0x57, 0xCA, 0x3F, 0x9D, 0x44, 0x10, 0x2B};
inline constexpr Sentinel kVariablesBegin{0xCF, 0x7B, 0x1F, 0x23, 0xFD, 0xDE, 0x38, 0xA9,
                                          0x5F, 0x7C, 0x68, 0xB8, 0x4E, 0x6D, 0x33, 0x5F};
inline constexpr Sentinel kClassesBegin{0x8D, 0xA1, 0xC4, 0xB8, 0xC4, 0xA9, 0xF8, 0xC5,
                                        0xC0, 0xDC, 0xF4, 0x5F, 0xE7, 0xCF, 0xB6, 0x8A};
inline constexpr Sentinel kSecondHeaderBegin{0xD4, 0x7B, 0x21, 0xCE, 0x28, 0x93, 0x9F, 0xBF,
                                             0x53, 0x24, 0x40, 0x09, 0x12, 0x3C, 0xAA, 0x01};

/// The mark at the end of what a mark begins: every bit turned over.
constexpr Sentinel EndOf(const Sentinel& begin) {
    Sentinel end{};
    for (std::size_t i = 0; i < end.size(); ++i) {
        end[i] = static_cast<std::uint8_t>(~begin[i]);
    }
    return end;
}

inline const std::uint8_t* BytesOf(std::string_view text) {
    return reinterpret_cast<const std::uint8_t*>(text.data());
}
inline std::string_view TextOf(const Sentinel& sentinel) {
    return {reinterpret_cast<const char*>(sentinel.data()), sentinel.size()};
}

void AppendShort(std::string& file, std::uint16_t value);
void AppendLong(std::string& file, std::uint32_t value);
/// Days and milliseconds.
void AppendTime(std::string& file, DrawingTime time);
void PutShort(std::string& file, std::size_t position, std::uint16_t value);
void PutLong(std::string& file, std::size_t position, std::uint32_t value);
/// The position must lie within the text.
std::uint16_t ShortAt(std::string_view file, std::size_t position);
std::uint32_t LongAt(std::string_view file, std::size_t position);

/// How an object is framed: its size, in words of 15 bits that say whether more follow, before it,
/// and its check sum behind it.
struct ObjectFrame {
    std::size_t contentPosition = 0;
    std::size_t contentSize = 0;
    bool fits = false;  ///< false when the file ends before the object does
};
ObjectFrame FrameAt(std::string_view file, std::size_t position);

}  // namespace dwg
