#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/ge/AcGePoint3d.h"

/// Kinds of records of proxy graphics.
enum class ProxyGraphicsKind : std::uint32_t {
    kExtents = 1,
    kCircle = 2,
    kCircleThrough3 = 3,
    kCircularArc = 4,
    kArcThrough3 = 5,
    kPolyline = 6,
    kPolygon = 7,
    kMesh = 8,
    kShell = 9,
    kText = 10,
    kText2 = 11,
    kColor = 14,
    kMarker = 19,
    kFill = 20,
    kTrueColor = 22,
    kPushMatrix = 29,
    kPushMatrix2 = 30,
    kPopMatrix = 31,
    kPolylineWithNormal = 32,
    kUnicodeText = 36,
    kUnicodeText2 = 38,
};

/// The bytes of proxy-graphics records, little-endian, every record a multiple of four bytes.
class ProxyGraphicsStream {
public:
    /// Starts a record; what is put until the next one belongs to it.
    void begin(ProxyGraphicsKind kind);
    void put(std::uint32_t value);
    void put(double value);
    void put(const AcGeVector3d& value);
    void put(const AcGePoint3d& value) { put(value - AcGePoint3d()); }
    /// A text with its end mark, filled up to a multiple of four bytes.
    void put(std::string_view text);
    /// A record of one number.
    void record(ProxyGraphicsKind kind, std::uint32_t value);

    std::uint32_t count() const { return count_; }
    const std::vector<std::uint8_t>& bytes() const { return bytes_; }

private:
    void append(std::uint64_t value, int size);
    void noteSize();

    std::vector<std::uint8_t> bytes_;
    std::size_t start_ = 0;  // of the last record
    std::uint32_t count_ = 0;
};
