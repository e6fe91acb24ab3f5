#include "apps/windows/standard_button.h"

#include "platform/mfc/message_box.h"

namespace windows {

QString StandardButtonText(int id, bool chinese) {
    switch (id) {
        case IDYES:
            return chinese ? QStringLiteral("是(&Y)") : QStringLiteral("&Yes");
        case IDNO:
            return chinese ? QStringLiteral("否(&N)") : QStringLiteral("&No");
        case IDCANCEL:
            return chinese ? QStringLiteral("取消") : QStringLiteral("Cancel");
        default:
            return chinese ? QStringLiteral("确定") : QStringLiteral("OK");
    }
}

}  // namespace windows
