#include "platform/oledb/value_conversion.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <string_view>
#include <system_error>

#include "platform/win32/code_page.h"
#include "platform/win32/number_text.h"

namespace oledb {
namespace {

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool IsText(DBTYPE type) {
    return type == DBTYPE_STR || type == DBTYPE_WSTR;
}

std::string_view WithoutBlanks(std::string_view text) {
    text = win32::TrimBlanks(text);
    return text.size() > 1 && text.front() == '+' && text[1] != '-' ? text.substr(1) : text;
}

/// A text as a number: an integer where it is one, else a real.
std::optional<Value> NumberIn(std::string_view text) {
    text = WithoutBlanks(text);
    const char* const end = text.data() + text.size();
    std::int64_t integer = 0;
    if (const auto read = std::from_chars(text.data(), end, integer);
        !text.empty() && read.ec == std::errc{} && read.ptr == end) {
        return Value::Of(integer);
    }
    double real = 0.0;
    if (const auto read = std::from_chars(text.data(), end, real);
        !text.empty() && read.ec == std::errc{} && read.ptr == end) {
        return Value::Of(real);
    }
    return std::nullopt;
}

template <class T>
DBSTATUS StoreInteger(const Value& number, std::byte* place) {
    std::int64_t whole = number.integer;
    DBSTATUS status = DBSTATUS_S_OK;
    if (number.kind == Value::Kind::Real) {
        const double truncated = std::trunc(number.real);
        // The bound is exact: 2^63 is the first double above the range.
        if (!(truncated >= -0x1p63 && truncated < 0x1p63)) return DBSTATUS_E_DATAOVERFLOW;
        whole = static_cast<std::int64_t>(truncated);
        if (truncated != number.real) status = DBSTATUS_S_TRUNCATED;
    }
    if (whole < std::numeric_limits<T>::min() || whole > std::numeric_limits<T>::max()) {
        return DBSTATUS_E_DATAOVERFLOW;
    }
    const T narrow = static_cast<T>(whole);
    std::memcpy(place, &narrow, sizeof(T));
    return status;
}

DBSTATUS StoreFloat(const Value& number, std::byte* place) {
    const double wide =
        number.kind == Value::Kind::Real ? number.real : static_cast<double>(number.integer);
    // Beyond the largest float by half a step or more, the conversion would give infinity.
    if (std::isfinite(wide) && std::abs(wide) >= 0x1.ffffffp127) return DBSTATUS_E_DATAOVERFLOW;
    const auto narrow = static_cast<float>(wide);
    std::memcpy(place, &narrow, sizeof(narrow));
    return DBSTATUS_S_OK;
}

DBSTATUS StoreNumber(const Value& value, DBTYPE type, std::byte* place) {
    std::optional<Value> number;
    if (value.kind == Value::Kind::Text) {
        number = NumberIn(value.text);
    } else if (value.kind != Value::Kind::Blob) {
        number = value;
    }
    if (!number) return DBSTATUS_E_CANTCONVERTVALUE;
    switch (type) {
        case DBTYPE_I4:
            return StoreInteger<std::int32_t>(*number, place);
        case DBTYPE_I2:
            return StoreInteger<std::int16_t>(*number, place);
        case DBTYPE_UI1:
            return StoreInteger<std::uint8_t>(*number, place);
        default:
            return StoreFloat(*number, place);
    }
}

/// Copies a text and its terminator, as many of its units as there is room for; `wholeUnits` gives
/// the largest count up to a limit that ends with a whole character.
template <class Unit, class WholeUnits>
DBSTATUS StoreUnits(std::basic_string_view<Unit> text, DBLENGTH bytes, std::byte* place,
                    WholeUnits wholeUnits) {
    const std::size_t room = bytes / sizeof(Unit) - 1;
    const bool fits = text.size() <= room;
    const std::size_t count = fits ? text.size() : wholeUnits(text, room);
    const Unit terminator = 0;
    std::memcpy(place, text.data(), count * sizeof(Unit));
    std::memcpy(place + count * sizeof(Unit), &terminator, sizeof(Unit));
    return fits ? DBSTATUS_S_OK : DBSTATUS_S_TRUNCATED;
}

std::size_t WholeGbk(std::string_view text, std::size_t limit) {
    return win32::WholePrefix(text, limit).size();
}

std::size_t WholeUtf16(std::u16string_view text, std::size_t limit) {
    const bool splitsPair = limit > 0 && (text[limit - 1] & 0xFC00) == 0xD800;
    return splitsPair ? limit - 1 : limit;
}

DBSTATUS StoreText(const Value& value, const DBBINDING& binding, std::byte* place) {
    std::string digits;
    std::string_view utf8 = value.text;
    if (value.kind == Value::Kind::Integer) {
        utf8 = digits = std::to_string(value.integer);
    } else if (value.kind == Value::Kind::Real) {
        utf8 = digits = win32::ShortestText(value.real);
    } else if (value.kind == Value::Kind::Blob) {
        return DBSTATUS_E_CANTCONVERTVALUE;
    }
    const bool ascii = IsAscii(utf8);
    if (binding.wType == DBTYPE_STR) {
        if (ascii) return StoreUnits(utf8, binding.cbMaxLen, place, WholeGbk);
        const std::string gbk = win32::GbkFromUtf8(utf8);
        return StoreUnits(std::string_view(gbk), binding.cbMaxLen, place, WholeGbk);
    }
    const std::u16string wide =
        ascii ? std::u16string(utf8.begin(), utf8.end()) : win32::Utf16FromUtf8(utf8);
    return StoreUnits(std::u16string_view(wide), binding.cbMaxLen, place, WholeUtf16);
}

template <class T>
T Load(const std::byte* place) {
    T value;
    std::memcpy(&value, place, sizeof(T));
    return value;
}

/// The text in a place, up to its terminator.
template <class Unit>
std::basic_string<Unit> LoadUnits(const std::byte* place, DBLENGTH bytes) {
    std::basic_string<Unit> text(bytes / sizeof(Unit), Unit{});
    std::memcpy(text.data(), place, text.size() * sizeof(Unit));
    text.resize(std::min(text.find(Unit{}), text.size()));
    return text;
}

std::string Utf8In(const DBBINDING& binding, const std::byte* place) {
    if (binding.wType == DBTYPE_STR) {
        std::string gbk = LoadUnits<char>(place, binding.cbMaxLen);
        return IsAscii(gbk) ? gbk : win32::Utf8FromGbk(gbk);
    }
    return win32::Utf8FromUtf16(LoadUnits<char16_t>(place, binding.cbMaxLen));
}

}  // namespace

bool IsBindableType(DBTYPE type) {
    return MinimumLength(type) != 0;
}

DBLENGTH MinimumLength(DBTYPE type) {
    switch (type) {
        case DBTYPE_UI1:
        case DBTYPE_STR:
            return 1;
        case DBTYPE_I2:
        case DBTYPE_WSTR:
            return 2;
        case DBTYPE_I4:
        case DBTYPE_R4:
            return 4;
        default:
            return 0;
    }
}

bool CountsAsNull(const Value& value, DBTYPE type) {
    return value.kind == Value::Kind::Null ||
           (value.kind == Value::Kind::Text && !IsText(type) && WithoutBlanks(value.text).empty());
}

DBSTATUS CheckConversion(const Value& value, DBTYPE type) {
    if (!IsText(type)) {
        std::byte place[sizeof(float)];
        return StoreNumber(value, type, place);
    }
    const bool readable = value.kind == Value::Kind::Text ? win32::IsUtf8(value.text)
                                                          : value.kind != Value::Kind::Blob;
    return readable ? DBSTATUS_S_OK : DBSTATUS_E_CANTCONVERTVALUE;
}

DBSTATUS ToPlace(const Value& value, const DBBINDING& binding, std::byte* place) {
    return IsText(binding.wType) ? StoreText(value, binding, place)
                                 : StoreNumber(value, binding.wType, place);
}

DBSTATUS FromPlace(const DBBINDING& binding, const std::byte* place, Value& value,
                   std::string& storage) {
    switch (binding.wType) {
        case DBTYPE_I4:
            value = Value::Of(std::int64_t{Load<std::int32_t>(place)});
            return DBSTATUS_S_OK;
        case DBTYPE_I2:
            value = Value::Of(std::int64_t{Load<std::int16_t>(place)});
            return DBSTATUS_S_OK;
        case DBTYPE_UI1:
            value = Value::Of(std::int64_t{Load<std::uint8_t>(place)});
            return DBSTATUS_S_OK;
        case DBTYPE_R4: {
            const auto narrow = Load<float>(place);
            if (!std::isfinite(narrow)) return DBSTATUS_E_CANTCONVERTVALUE;
            value = Value::Of(win32::ShortestDouble(narrow));
            return DBSTATUS_S_OK;
        }
        default:
            storage = Utf8In(binding, place);
            value = Value::Of(std::string_view(storage));
            return DBSTATUS_S_OK;
    }
}

bool SamePlaces(const DBBINDING& binding, const std::byte* left, const std::byte* right) {
    switch (binding.wType) {
        case DBTYPE_STR:
            return LoadUnits<char>(left, binding.cbMaxLen) ==
                   LoadUnits<char>(right, binding.cbMaxLen);
        case DBTYPE_WSTR:
            return LoadUnits<char16_t>(left, binding.cbMaxLen) ==
                   LoadUnits<char16_t>(right, binding.cbMaxLen);
        default:
            return std::memcmp(left, right, MinimumLength(binding.wType)) == 0;
    }
}

}  // namespace oledb
