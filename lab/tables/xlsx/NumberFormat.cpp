#include "lab/tables/xlsx/NumberFormat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <vector>

#include "lab/numbers.h"

namespace lab {

namespace {
/// A piece of a format: signs that stand for digits or parts of a date, or a text as it is.
struct Piece {
    bool literal;
    std::string text;
};

bool IsDateSign(char c) {
    return std::string_view("yYmMdDhHsS").find(c) != std::string_view::npos;
}

std::string_view Section(std::string_view code, std::size_t which) {
    std::size_t start = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < code.size(); ++i) {
        quoted = quoted != (code[i] == '"');
        if (code[i] == '\\') {
            ++i;
        } else if (code[i] == ';' && !quoted) {
            if (which == 0) {
                return code.substr(start, i - start);
            }
            --which;
            start = i + 1;
        }
    }
    return which == 0 ? code.substr(start) : std::string_view();
}

/// Takes quotes, escapes, colours and spaces of a width out.
std::vector<Piece> PiecesOf(std::string_view section) {
    std::vector<Piece> pieces;
    const auto add = [&](bool literal, std::string_view text) {
        if (pieces.empty() || pieces.back().literal != literal) {
            pieces.push_back({literal, {}});
        }
        pieces.back().text += text;
    };
    for (std::size_t i = 0; i < section.size(); ++i) {
        const char c = section[i];
        if (c == '"') {
            const std::size_t end = std::min(section.find('"', i + 1), section.size());
            add(true, section.substr(i + 1, end - i - 1));
            i = end;
        } else if (c == '[') {
            const std::size_t end = std::min(section.find(']', i), section.size());
            const std::string_view inside = section.substr(i + 1, end - i - 1);
            if (!inside.empty() && IsDateSign(inside[0]) &&
                inside.find_first_not_of(inside[0]) == std::string_view::npos) {
                add(false, inside);  // hours that are not cut at a day
            }
            i = end;
        } else if (c == '\\' || c == '_' || c == '*') {
            if (c == '\\' && i + 1 < section.size()) {
                add(true, section.substr(i + 1, 1));
            }
            ++i;
        } else {
            const bool sign =
                IsDateSign(c) || std::string_view("0#?.,%eE+-@/").find(c) != std::string_view::npos;
            add(!sign, section.substr(i, 1));
        }
    }
    return pieces;
}

constexpr std::string_view kGeneralCode = "General";

/// A format of General and texts shows the number with the digits that it has.
std::string PlainCode(std::string_view code) {
    constexpr const char* kAnyDigits = "0.##########";
    std::string plain(code);
    for (std::size_t at = 0;
         plain != kGeneralCode && (at = plain.find(kGeneralCode, at)) != std::string::npos;) {
        plain.replace(at, kGeneralCode.size(), kAnyDigits);
    }
    return plain;
}

NumberFormat::Kind KindOf(std::string_view code) {
    using Kind = NumberFormat::Kind;
    std::string signs;
    for (const Piece& piece : PiecesOf(Section(code, 0))) {
        signs += piece.literal ? "" : piece.text;
    }
    if (code.empty() || code == kGeneralCode) {
        return Kind::kGeneral;
    }
    if (std::any_of(signs.begin(), signs.end(), IsDateSign)) {
        return Kind::kDate;
    }
    if (signs.find('@') != std::string::npos) {
        return Kind::kText;
    }
    return signs.find('%') != std::string::npos ? Kind::kPercent : Kind::kNumber;
}

std::string Fixed(double number, int places) {
    std::array<char, 400> digits;
    const auto written =
        std::to_chars(digits.begin(), digits.end(), number, std::chars_format::fixed, places);
    return {digits.data(), static_cast<std::size_t>(written.ptr - digits.data())};
}

/// What a run of digit signs makes of a number from 0 up.
std::string Digits(double number, const std::string& signs) {
    const std::size_t point = std::min(signs.find('.'), signs.size());
    const std::string_view decimals = std::string_view(signs).substr(point);
    const auto count = [](std::string_view text, std::string_view wanted) {
        return std::count_if(text.begin(), text.end(),
                             [&](char c) { return wanted.find(c) != std::string_view::npos; });
    };
    const auto places = std::min<std::ptrdiff_t>(count(decimals, "0#?"), 30);
    const auto needed = count(decimals, "0");
    std::string text = Fixed(number, static_cast<int>(places));
    for (auto more = places; more > needed && text.ends_with('0'); --more) {
        text.pop_back();
    }
    if (text.ends_with('.')) {
        text.pop_back();
    }
    const std::string_view whole = std::string_view(signs).substr(0, point);
    const std::size_t length = std::min(text.find('.'), text.size());
    const auto atLeast = static_cast<std::size_t>(count(whole, "0"));
    if (length < atLeast) {
        text.insert(0, atLeast - length, '0');
    }
    if (whole.find(',') != std::string_view::npos) {
        for (std::size_t i = std::min(text.find('.'), text.size()); i > 3; i -= 3) {
            text.insert(i - 3, 1, ',');
        }
    }
    return text;
}

struct Moment {
    std::chrono::year_month_day day;
    int hour;
    int minute;
    int second;
};

Moment MomentOf(double number, bool since1904) {
    using namespace std::chrono;
    constexpr double kSeconds = 86400.0;
    const double whole = std::floor(number);
    const auto seconds = static_cast<int>(std::round((number - whole) * kSeconds));
    // Spreadsheets take 1900 for a leap year: day 60 is one that never was.
    const int shift = since1904 || whole >= 60.0 ? 0 : 1;
    const sys_days first =
        since1904 ? sys_days(year(1904) / 1 / 1) : sys_days(year(1899) / 12 / 30);
    return {year_month_day(first + days(static_cast<int>(whole) + shift)), seconds / 3600,
            seconds / 60 % 60, seconds % 60};
}

std::string Padded(int number, std::size_t width) {
    std::string text = std::to_string(number);
    return width > text.size() ? std::string(width - text.size(), '0') + text : text;
}

std::string ShowDate(const Moment& moment, std::string_view section) {
    static constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                              "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    std::string shown;
    bool time = false;  ///< an m after hours is minutes
    for (const Piece& piece : PiecesOf(section)) {
        for (std::size_t i = 0; i < piece.text.size();) {
            const char c = piece.text[i];
            const std::size_t end = std::min(piece.text.find_first_not_of(c, i), piece.text.size());
            const std::size_t width = end - i;
            if (piece.literal || !IsDateSign(c)) {
                shown += piece.text.substr(i, width);
            } else if (c == 'y' || c == 'Y') {
                const int year = static_cast<int>(moment.day.year());
                shown += width > 2 ? Padded(year, 4) : Padded(year % 100, 2);
            } else if ((c == 'm' || c == 'M') && !time) {
                const unsigned month = static_cast<unsigned>(moment.day.month());
                shown += width > 2 ? kMonths[month - 1] : Padded(static_cast<int>(month), width);
            } else if (c == 'd' || c == 'D') {
                shown += Padded(static_cast<int>(static_cast<unsigned>(moment.day.day())),
                                std::min<std::size_t>(width, 2));
            } else {
                const bool hours = c == 'h' || c == 'H';
                shown += Padded(hours                  ? moment.hour
                                : c == 's' || c == 'S' ? moment.second
                                                       : moment.minute,
                                width);
                time = hours;
            }
            i = end;
        }
    }
    return shown;
}
}  // namespace

NumberFormat::NumberFormat(std::string_view code) : code_(PlainCode(code)), kind_(KindOf(code_)) {}

NumberFormat NumberFormat::BuiltIn(int id) {
    struct Known {
        int id;
        const char* code;
    };
    constexpr Known kCodes[] = {
        {1, "0"},         {2, "0.00"},      {3, "#,##0"},          {4, "#,##0.00"},
        {9, "0%"},        {10, "0.00%"},    {14, "yyyy/m/d"},      {15, "d-mmm-yy"},
        {16, "d-mmm"},    {17, "mmm-yy"},   {18, "h:mm"},          {19, "h:mm:ss"},
        {20, "h:mm"},     {21, "h:mm:ss"},  {22, "yyyy/m/d h:mm"}, {27, "yyyy/m"},
        {28, "m/d"},      {29, "m/d"},      {30, "m-d-yy"},        {31, "yyyy/m/d"},
        {32, "h:mm"},     {33, "h:mm:ss"},  {37, "#,##0"},         {38, "#,##0"},
        {39, "#,##0.00"}, {40, "#,##0.00"}, {45, "mm:ss"},         {46, "h:mm:ss"},
        {47, "mm:ss"},    {49, "@"},        {57, "yyyy/m"},        {58, "m/d"}};
    const auto* const found = std::find_if(std::begin(kCodes), std::end(kCodes),
                                           [&](const Known& known) { return known.id == id; });
    return NumberFormat(found == std::end(kCodes) ? "General" : found->code);
}

std::string NumberFormat::Show(double number, bool since1904) const {
    constexpr double kLastDay = 2958466.0;  // of the year 9999
    switch (kind_) {
        case Kind::kGeneral:
        case Kind::kText:
            return ShortestText(number);
        case Kind::kDate:
            return number >= 0.0 && number < kLastDay
                       ? ShowDate(MomentOf(number, since1904), Section(code_, 0))
                       : ShortestText(number);
        default:
            break;
    }
    const std::string_view negative = Section(code_, 1);
    if (number < 0.0 && !negative.empty()) {
        return ShowNumber(-number, negative);
    }
    return (number < 0.0 ? "-" : "") + ShowNumber(std::abs(number), Section(code_, 0));
}

std::string NumberFormat::ShowNumber(double number, std::string_view section) const {
    std::string shown;
    for (const Piece& piece : PiecesOf(section)) {
        const bool exponent = piece.text.find_first_of("eE") != std::string::npos;
        const std::size_t digits = piece.text.find_first_of("0#?");
        if (piece.literal || digits == std::string::npos) {
            shown += piece.text;
        } else if (exponent || piece.text.find('/') != std::string::npos) {
            shown += ShortestText(number);
        } else {
            const std::size_t end = piece.text.find_last_of("0#?.,") + 1;
            const double scaled = kind_ == Kind::kPercent ? number * 100.0 : number;
            shown += piece.text.substr(0, digits) +
                     Digits(scaled, piece.text.substr(digits, end - digits)) +
                     piece.text.substr(end);
        }
    }
    return shown;
}

}  // namespace lab
