#pragma once

#include <string>
#include <utility>
#include <vector>

/// Shape fonts of a few characters, as bytes.
namespace shape_font {

/// Commands of a shape, the end left out.
using Commands = std::vector<int>;
using Shapes = std::vector<std::pair<int, Commands>>;

inline std::string Word(std::size_t value) {
    return {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8 & 0xFF)};
}

inline std::string Bytes(const Commands& commands) {
    std::string bytes;
    for (const int command : commands) {
        bytes += static_cast<char>(command);
    }
    return bytes + '\0';
}

inline std::string Signature(const std::string& kind) {
    return "ANY-86 " + kind + " 1.0\r\n\x1A";
}

/// "Box" font description: capitals 10 units high, 2 below.
inline std::string Description(const Commands& numbers = {10, 2, 0}) {
    return std::string("Box") + '\0' + Bytes(numbers);
}

inline std::string ShapesFont(const Shapes& shapes) {
    std::string index = Word(0) + Word(Description().size());
    std::string body = Description();
    for (const auto& [number, commands] : shapes) {
        const std::string shape = '\0' + Bytes(commands);  // without a name
        index += Word(static_cast<std::size_t>(number)) + Word(shape.size());
        body += shape;
    }
    return Signature("shapes") + Word(0) + Word(0xFFFF) + Word(shapes.size() + 1) + index + body;
}

inline std::string Unifont(const Shapes& shapes) {
    const std::string description = Description({10, 2, 0, 0, 0});
    std::string body;
    for (const auto& [number, commands] : shapes) {
        const std::string shape = std::string("name") + '\0' + Bytes(commands);
        body += Word(static_cast<std::size_t>(number)) + Word(shape.size()) + shape;
    }
    return Signature("unifont") + Word(shapes.size() + 1) + Word(0) + Word(description.size()) +
           description + body;
}

/// Lead bytes 0xA1 to 0xFE. `numbers` is the description's.
inline std::string BigFont(const Shapes& shapes, const Commands& numbers = {10, 2, 0}) {
    std::vector<std::pair<int, std::string>> entries{{0, Description(numbers)}};
    for (const auto& [number, commands] : shapes) {
        entries.emplace_back(number, Bytes(commands));
    }
    const std::string head = Signature("bigfont") + Word(8) + Word(entries.size() + 1) + Word(1) +
                             Word(0xA1) + Word(0xFE);
    std::string index = std::string(8, '\0');  // an unused entry
    std::string body;
    for (const auto& [number, bytes] : entries) {
        const std::size_t place = head.size() + 8 * (entries.size() + 1) + body.size();
        index +=
            Word(static_cast<std::size_t>(number)) + Word(bytes.size()) + Word(place) + Word(0);
        body += bytes;
    }
    return head + index + body;
}

}  // namespace shape_font
