#pragma once

#include <string>
#include <string_view>

namespace lab {

/// How a spreadsheet's format shows numbers.
class NumberFormat {
public:
    enum class Kind { kGeneral, kNumber, kPercent, kDate, kText };

    /// Of a format code, as "0.00" or "yyyy-mm-dd".
    explicit NumberFormat(std::string_view code);
    /// Of one of the formats that have a number only.
    static NumberFormat BuiltIn(int id);

    Kind GetKind() const { return kind_; }
    /// The number as it is shown. `since1904`: days count from 1904 and not from 1900. Fractions
    /// are shown as decimals.
    std::string Show(double number, bool since1904) const;

private:
    std::string ShowNumber(double number, std::string_view section) const;

    std::string code_;
    Kind kind_;
};

}  // namespace lab
