#include "apps/desk/application.h"

#include <QApplication>
#include <QFont>
#include <QStyleFactory>

namespace desk {

void SetUpApplication() {
    QApplication::setOrganizationName(QStringLiteral("GRDX"));
    // No display name of its own: it would be appended to the caption of every window.
    QApplication::setApplicationName(QStringLiteral("GRDX"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
}

}  // namespace desk
