#include "apps/desk/application.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QStyleFactory>
#include <QTranslator>

#include "apps/windows/interface_text.h"
#include "host/phrase.h"

namespace desk {

void SetUpApplication() {
    QApplication::setOrganizationName(QStringLiteral("GRDX"));
    // No display name of its own: it would be appended to the caption of every window.
    QApplication::setApplicationName(QStringLiteral("GRDX"));
    if (windows::IsInterfaceChinese()) {
        host::SetLanguage(host::Language::kChinese);
        auto* const ofFileDialogs = new QTranslator(qApp);
        if (ofFileDialogs->load(QStringLiteral("qtbase_zh_CN"),
                                QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
            QApplication::installTranslator(ofFileDialogs);
        }
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
}

}  // namespace desk
