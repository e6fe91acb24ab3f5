#include "apps/windows/interface_text.h"

#include <QLocale>

namespace windows {

QString InterfaceText(const char* english, const char* chinese) {
    static const bool inChinese = QLocale::system().language() == QLocale::Chinese;
    return QString::fromUtf8(inChinese ? chinese : english);
}

}  // namespace windows
