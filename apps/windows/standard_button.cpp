#include "apps/windows/standard_button.h"

#include "platform/mfc/message_box.h"

namespace windows {

QString StandardButtonText(int id) {
    switch (id) {
        case IDYES:
            return QStringLiteral("是(&Y)");
        case IDNO:
            return QStringLiteral("否(&N)");
        case IDCANCEL:
            return QStringLiteral("取消");
        default:
            return QStringLiteral("确定");
    }
}

}  // namespace windows
