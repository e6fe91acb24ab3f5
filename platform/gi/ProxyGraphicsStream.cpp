#include "platform/gi/ProxyGraphicsStream.h"

#include <bit>

void ProxyGraphicsStream::begin(ProxyGraphicsKind kind) {
    constexpr int kSizeBytes = 4;
    start_ = bytes_.size();
    ++count_;
    append(0, kSizeBytes);
    put(static_cast<std::uint32_t>(kind));
}

void ProxyGraphicsStream::put(std::uint32_t value) {
    append(value, sizeof value);
    noteSize();
}

void ProxyGraphicsStream::put(double value) {
    append(std::bit_cast<std::uint64_t>(value), sizeof value);
    noteSize();
}

void ProxyGraphicsStream::put(const AcGeVector3d& value) {
    put(value.x);
    put(value.y);
    put(value.z);
}

void ProxyGraphicsStream::put(std::string_view text) {
    bytes_.insert(bytes_.end(), text.begin(), text.end());
    bytes_.push_back(0);
    while (bytes_.size() % 4 != 0) {
        bytes_.push_back(0);
    }
    noteSize();
}

void ProxyGraphicsStream::record(ProxyGraphicsKind kind, std::uint32_t value) {
    begin(kind);
    put(value);
}

void ProxyGraphicsStream::append(std::uint64_t value, int size) {
    for (int i = 0; i < size; ++i) {
        bytes_.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    }
}

/// Keeps the size at the head of the record that is being written true.
void ProxyGraphicsStream::noteSize() {
    const std::size_t size = bytes_.size() - start_;
    for (std::size_t i = 0; i < 4; ++i) {
        bytes_[start_ + i] = static_cast<std::uint8_t>(size >> (8 * i));
    }
}
