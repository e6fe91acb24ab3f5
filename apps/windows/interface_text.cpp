#include "apps/windows/interface_text.h"

#include <QLocale>

namespace windows {

bool IsInterfaceChinese() {
    static const bool isChinese = QLocale::system().language() == QLocale::Chinese;
    return isChinese;
}

QString InterfaceText(const char* english, const char* chinese) {
    return QString::fromUtf8(IsInterfaceChinese() ? chinese : english);
}

}  // namespace windows
