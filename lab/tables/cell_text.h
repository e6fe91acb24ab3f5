#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lab {

/// The text with full-width letters, digits and signs as their plain forms, all kinds of blanks as
/// ' ', and none at its ends.
std::string PlainText(std::string_view utf8);
/// PlainText without any blanks and line breaks, letters of the alphabet small: two headers that
/// mean the same column are equal then.
std::string FoldedHeader(std::string_view utf8);

/// The units in which quantities are read.
enum class Unit { kNone, kGram, kMillimetre, kMetre, kPercent, kMinute, kCelsius, kCentimetre };
/// "g", "mm", …
const char* UnitText(Unit unit);
/// Whether the text, plain and small, names the unit: also by its Chinese name.
bool NamesUnit(std::string_view text, Unit unit);
/// Whether it names a unit that a quantity of soil tests could have.
bool NamesAnyUnit(std::string_view text);

/// A number that a cell holds, or why it holds none.
struct Quantity {
    double number = 0.0;
    std::string fault;  ///< empty, or what is wrong with the text

    bool Good() const { return fault.empty(); }
};
/// Reads a finite number, maybe with its unit behind it. Full-width digits and blanks around number
/// and unit do not matter; a decimal comma does.
Quantity ReadQuantity(std::string_view text, Unit unit);

/// A size in a wide table's header.
struct SizeHeader {
    double size = 0.0;   ///< mm: that of a sieve, or the finer end of a range; 0 for the pan
    double below = 0.0;  ///< of the form "<x": x, else 0
};
/// Reads "2", "0.5mm", "2~0.5", ">20", "<0.075", "底盘" or "pan", folded. Nothing for anything
/// else. `fault` is set when the text is a size that cannot be read as one in mm.
std::optional<SizeHeader> ReadSizeHeader(const std::string& folded, std::string& fault);

}  // namespace lab
