#include "apps/windows/DialogUnits.h"

#include <QFontMetricsF>

namespace windows {

namespace {
constexpr double kUnitsAcross = 4.0;
constexpr double kUnitsDown = 8.0;
}  // namespace

DialogUnits::DialogUnits(const QFont& font) {
    const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    const QFontMetricsF metrics(font);
    width_ = metrics.horizontalAdvance(letters) / static_cast<double>(letters.size());
    height_ = metrics.height();
}

QRect DialogUnits::ToPixels(const mfc::DialogRect& rect) const {
    const auto across = [this](int units) { return qRound(units * width_ / kUnitsAcross); };
    const auto down = [this](int units) { return qRound(units * height_ / kUnitsDown); };
    return {QPoint(across(rect.x), down(rect.y)), QSize(across(rect.width), down(rect.height))};
}

}  // namespace windows
