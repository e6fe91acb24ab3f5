#include "apps/desk/application.h"

#include <QApplication>
#include <QFont>
#include <QStyleFactory>

namespace desk {

void SetUpApplication() {
    QApplication::setOrganizationName(QStringLiteral("GRDX"));
    QApplication::setApplicationName(QStringLiteral("desk"));
    QApplication::setApplicationDisplayName(QStringLiteral("GRDX"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
}

}  // namespace desk
