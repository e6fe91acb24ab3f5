#include "apps/windows/qt_text.h"

#include "platform/win32/code_page.h"

namespace windows {

QString FromGbk(std::string_view gbk) {
    return QString::fromStdU16String(win32::Utf16FromGbk(gbk));
}

std::string ToGbk(const QString& text) {
    return win32::GbkFromUtf16(text.toStdU16String());
}

bool IsGbk(const QString& text) {
    std::string gbk;
    return win32::TryGbkFromUtf8(text.toStdString(), gbk);
}

}  // namespace windows
