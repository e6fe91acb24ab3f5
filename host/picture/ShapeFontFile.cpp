#include "host/picture/ShapeFontFile.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace picture {

namespace {

constexpr std::size_t kLongestSignature = 64;

/// What stands against the content, with the place.
struct Fault : std::runtime_error {
    Fault(std::size_t place, const std::string& what)
        : std::runtime_error("byte " + std::to_string(place) + ": " + what) {}
};

}  // namespace

/// The content from a place on, with bounds kept.
class ShapeFontFile::Reader {
public:
    explicit Reader(std::string_view content) : content_(content) {}

    std::size_t place() const { return place_; }
    void goTo(std::size_t place) { place_ = place; }

    void need(std::size_t bytes) const {
        if (place_ > content_.size() || content_.size() - place_ < bytes) {
            throw Fault(place_, "the file ends at byte " + std::to_string(content_.size()) +
                                    ", within what should stand here");
        }
    }
    int byte() {
        need(1);
        return static_cast<unsigned char>(content_[place_++]);
    }
    int word() {
        const int low = byte();
        return low + 256 * byte();
    }
    std::size_t place32() {
        const auto low = static_cast<std::size_t>(word());
        return low + 65536 * static_cast<std::size_t>(word());
    }
    void skip(std::size_t bytes) {
        need(bytes);
        place_ += bytes;
    }
    /// Skips a text and its zero, which must stand before `end`.
    void skipName(std::size_t end) {
        const std::size_t zero = content_.find('\0', place_);
        if (zero >= end) {
            throw Fault(place_, "a name without its end");
        }
        place_ = zero + 1;
    }

private:
    std::string_view content_;
    std::size_t place_ = 0;
};

bool ShapeFontFile::read(std::string content, std::string& error) {
    content_ = std::move(content);
    const std::string_view head = std::string_view(content_).substr(0, kLongestSignature);
    const std::size_t end = head.find("\r\n\x1A");
    const std::string_view signature = head.substr(0, end == head.npos ? 0 : end);
    Reader reader(content_);
    reader.goTo(end + 3);
    try {
        if (signature.ends_with(" shapes 1.0") || signature.ends_with(" shapes 1.1")) {
            readShapes(reader);
        } else if (signature.ends_with(" unifont 1.0")) {
            readUnifont(reader);
        } else if (signature.ends_with(" bigfont 1.0")) {
            readBigFont(reader);
        } else {
            throw Fault(0, "no compiled shape font of a known kind");
        }
    } catch (const Fault& fault) {
        error = fault.what();
        return false;
    }
    return true;
}

void ShapeFontFile::readShapes(Reader& reader) {
    kind_ = Kind::kShapes;
    reader.skip(4);  // first and last number
    const int count = reader.word();
    std::vector<std::pair<int, std::size_t>> index;
    for (int i = 0; i < count; ++i) {
        const int number = reader.word();
        index.emplace_back(number, static_cast<std::size_t>(reader.word()));
    }
    for (const auto& [number, length] : index) {
        addShape(reader, number, length);
    }
}

void ShapeFontFile::readUnifont(Reader& reader) {
    kind_ = Kind::kUnifont;
    const int count = reader.word();
    reader.skip(2);
    readDescription(reader, static_cast<std::size_t>(reader.word()));
    for (int i = 1; i < count; ++i) {
        const int number = reader.word();
        addShape(reader, number, static_cast<std::size_t>(reader.word()));
    }
}

/// Takes the shape that stands here, its name left out.
void ShapeFontFile::addShape(Reader& reader, int number, std::size_t length) {
    if (number == 0) {
        readDescription(reader, length);
        return;
    }
    reader.need(length);
    const std::size_t end = reader.place() + length;
    if (length > 0) {
        reader.skipName(end);
        shapes_[number] = {reader.place(), end - reader.place()};
    }
    reader.goTo(end);
}

void ShapeFontFile::readBigFont(Reader& reader) {
    kind_ = Kind::kBigFont;
    reader.skip(2);  // size of an index entry
    const int count = reader.word();
    const int ranges = reader.word();
    for (int i = 0; i < ranges; ++i) {
        const int first = reader.word();
        leadBytes_.emplace_back(first, reader.word());
    }
    Reader shape(content_);
    for (int i = 0; i < count; ++i) {
        const int number = reader.word();
        const auto length = static_cast<std::size_t>(reader.word());
        shape.goTo(reader.place32());
        if (length == 0) {
            continue;
        }
        shape.need(length);
        if (number == 0) {
            readDescription(shape, length);
        } else {
            shapes_[number] = {shape.place(), length};
        }
    }
}

void ShapeFontFile::readDescription(Reader& reader, std::size_t length) {
    constexpr std::size_t kExtendedBytes = 5;
    reader.need(length);
    const std::size_t end = reader.place() + length;
    reader.skipName(end);
    const std::size_t numbers = end - reader.place();
    if (numbers < 3) {
        throw Fault(reader.place(), "a font description of " + std::to_string(length) + " bytes");
    }
    height_ = reader.byte();
    reader.skip(2);
    if (kind_ == Kind::kBigFont && numbers >= kExtendedBytes) {
        width_ = reader.byte();
    }
    reader.goTo(end);
}

std::span<const std::uint8_t> ShapeFontFile::commands(int number) const {
    const auto found = shapes_.find(number);
    if (found == shapes_.end()) {
        return {};
    }
    // The commands are bytes whichever way they are looked at.
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(content_.data());
    return {bytes + found->second.start, found->second.length};
}

std::size_t ShapeFontFile::place(int number) const {
    const auto found = shapes_.find(number);
    return found == shapes_.end() ? 0 : found->second.start;
}

bool ShapeFontFile::isLeadByte(int byte) const {
    return std::any_of(leadBytes_.begin(), leadBytes_.end(), [byte](const auto& range) {
        return range.first <= byte && byte <= range.second;
    });
}

}  // namespace picture
