#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/ge/AcGePoint3d.h"

/// The data of one record of proxy graphics, read from the front, little-endian. Reading past the
/// end yields zeros and sets failed() for good.
class ProxyGraphicsRecord {
public:
    explicit ProxyGraphicsRecord(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    bool failed() const { return failed_; }
    std::uint32_t number() { return static_cast<std::uint32_t>(integer(4)); }
    double real() { return std::bit_cast<double>(integer(8)); }
    AcGeVector3d vector() {
        const double x = real();
        const double y = real();
        return {x, y, real()};
    }
    AcGePoint3d point() { return AcGePoint3d() + vector(); }
    /// Their number, and the points.
    std::vector<AcGePoint3d> points() { return points(number()); }
    std::vector<AcGePoint3d> points(std::size_t count) {
        constexpr std::size_t kPointBytes = 24;
        if (count > bytes_.size() / kPointBytes) {
            failed_ = true;
            count = 0;
        }
        std::vector<AcGePoint3d> result(count);
        std::generate(result.begin(), result.end(), [this] { return point(); });
        return result;
    }
    /// A text up to its end mark; what fills it up to a multiple of four bytes is passed over.
    std::string text() {
        const auto end = std::find(bytes_.begin(), bytes_.end(), 0);
        std::string result(bytes_.begin(), end);
        pass(result.size() + 1);
        return result;
    }
    /// The same in UTF-16.
    std::u16string wideText() {
        std::u16string result;
        std::size_t at = 0;
        for (; at + 1 < bytes_.size() && (bytes_[at] != 0 || bytes_[at + 1] != 0); at += 2) {
            result += static_cast<char16_t>(bytes_[at] | bytes_[at + 1] << 8U);
        }
        pass(at + 2);
        return result;
    }

private:
    std::uint64_t integer(std::size_t size) {
        std::uint64_t value = 0;
        if (size > bytes_.size()) {
            failed_ = true;
            bytes_ = {};
            return 0;
        }
        for (std::size_t i = 0; i < size; ++i) {
            value |= std::uint64_t{bytes_[i]} << (8 * i);
        }
        bytes_ = bytes_.subspan(size);
        return value;
    }
    void pass(std::size_t count) {
        const std::size_t whole = (count + 3) / 4 * 4;
        failed_ = failed_ || count > bytes_.size();
        bytes_ = bytes_.subspan(std::min(whole, bytes_.size()));
    }

    std::span<const std::uint8_t> bytes_;
    bool failed_ = false;
};
