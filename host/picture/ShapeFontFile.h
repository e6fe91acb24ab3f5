#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace picture {

/// A compiled shape font as its file has it. After a line that names kind and version and ends with
/// CR, LF and 0x1A, all numbers little-endian:
/// - shapes: first and last number, count, then number and length of each, then the shapes, each
///   with its name up to a zero before its commands;
/// - unifont: count with the description, a 16-bit zero, length of the description, description,
///   then number, length, name and commands of each;
/// - big font: size of an index entry, count, number of ranges, first and last lead byte of each
///   range, then number, length and place in the file of each. Unused entries are zero.
/// The description stands under number 0: a name up to a zero, then height above and depth below
/// the baseline and orientation; extended big fonts have height, 0, orientation and width.
class ShapeFontFile {
public:
    enum class Kind { kShapes, kUnifont, kBigFont };

    /// False, with what is wrong and at which byte, for content that is no whole shape font.
    bool read(std::string content, std::string& error);

    Kind kind() const { return kind_; }
    /// Units of the font that capitals stand above the baseline; 0 when the font does not say.
    double height() const { return height_; }
    /// Units that a character of an extended big font is wide; 0 for other fonts.
    double width() const { return width_; }
    /// The commands of a shape; empty when there is none of that number.
    std::span<const std::uint8_t> commands(int number) const;
    /// Where in the file they start.
    std::size_t place(int number) const;
    /// True when the byte is the first of a double-byte character of this big font.
    bool isLeadByte(int byte) const;

private:
    class Reader;
    struct Extent {
        std::size_t start = 0;
        std::size_t length = 0;
    };
    void readShapes(Reader& reader);
    void readUnifont(Reader& reader);
    void readBigFont(Reader& reader);
    void addShape(Reader& reader, int number, std::size_t length);
    void readDescription(Reader& reader, std::size_t length);

    std::string content_;
    Kind kind_ = Kind::kShapes;
    double height_ = 0.0;
    double width_ = 0.0;
    std::unordered_map<int, Extent> shapes_;
    std::vector<std::pair<int, int>> leadBytes_;  ///< first and last of each range
};

}  // namespace picture
