#include "platform/dwg/file_layout.h"

namespace dwg {

void AppendShort(std::string& file, std::uint16_t value) {
    file.push_back(static_cast<char>(value));
    file.push_back(static_cast<char>(value >> 8U));
}

void AppendLong(std::string& file, std::uint32_t value) {
    AppendShort(file, static_cast<std::uint16_t>(value));
    AppendShort(file, static_cast<std::uint16_t>(value >> 16U));
}

void AppendTime(std::string& file, DrawingTime time) {
    AppendLong(file, static_cast<std::uint32_t>(time.days));
    AppendLong(file, static_cast<std::uint32_t>(time.milliseconds));
}

void PutShort(std::string& file, std::size_t position, std::uint16_t value) {
    file[position] = static_cast<char>(value);
    file[position + 1] = static_cast<char>(value >> 8U);
}

void PutLong(std::string& file, std::size_t position, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) {
        file[position + i] = static_cast<char>(value >> (8 * i));
    }
}

std::uint16_t ShortAt(std::string_view file, std::size_t position) {
    const std::uint8_t* bytes = BytesOf(file) + position;
    return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8U);
}

std::uint32_t LongAt(std::string_view file, std::size_t position) {
    return ShortAt(file, position) | static_cast<std::uint32_t>(ShortAt(file, position + 2)) << 16U;
}

ObjectFrame FrameAt(std::string_view file, std::size_t position) {
    ObjectFrame frame;
    for (unsigned shift = 0; shift <= 30 && position + 2 <= file.size(); shift += 15) {
        const std::uint32_t word = ShortAt(file, position);
        position += 2;
        frame.contentSize |= static_cast<std::size_t>(word & 0x7FFFU) << shift;
        if ((word & 0x8000U) == 0) {
            frame.contentPosition = position;
            frame.fits = frame.contentSize + kCrcSize <= file.size() - position;
            return frame;
        }
    }
    return frame;
}

}  // namespace dwg
