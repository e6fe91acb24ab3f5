#include "platform/win32/format_text.h"

#include <algorithm>
#include <cstdio>

namespace win32 {

namespace {
/// While it lives, the thread's locale is the plain one.
class PlainScope {
public:
    PlainScope() : before_(uselocale(PlainLocale())) {}
    ~PlainScope() { uselocale(before_); }
    PlainScope(const PlainScope&) = delete;
    PlainScope& operator=(const PlainScope&) = delete;

private:
    locale_t before_;
};
}  // namespace

locale_t PlainLocale() {
    static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    return plain;
}

std::string FormatText(const char* format, std::va_list arguments) {
    const PlainScope plain;
    std::va_list measured;
    va_copy(measured, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, measured);
    va_end(measured);
    std::string text(static_cast<std::size_t>(std::max(length, 0)), '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, arguments);
    return text;
}

}  // namespace win32
