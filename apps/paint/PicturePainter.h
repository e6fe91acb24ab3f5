#pragma once

#include <QPainter>
#include <QTransform>
#include <functional>
#include <map>
#include <memory>

#include "apps/paint/GlyphFont.h"
#include "host/picture/DisplayList.h"
#include "host/picture/color_index.h"

namespace paint {

/// How one entity is shown.
enum class Emphasis {
    kNone,
    kOffered,  ///< what a click would take
    kHighlighted,
    kLeftOut
};

/// How a picture is shown.
struct Look {
    picture::Background background = picture::Background::kLight;
    bool monochrome = false;  ///< everything in the colour of index 7
    /// False, on a screen: lines are one device pixel wide at any zoom. True: they are as wide as
    /// their weights say, in millimetres of a drawing whose unit is one, and what is on layers
    /// that are not printed is left out.
    bool onPaper = false;
    /// Of lines on paper, device pixels: a page seen from afar on a screen keeps its thin ones.
    double leastLineWidth = 0.0;
    /// Characters as filled outlines, for devices that cannot carry fonts.
    bool textAsOutlines = false;
    /// Asked for each entity in view when set.
    std::function<Emphasis(AcDbObjectId entity)> emphasis;
};

/// Paints display lists with QPainter: on the screen, a page or a picture. Keeps the fonts it has
/// met, so that one painter serves a whole run. Needs a QGuiApplication.
class PicturePainter {
public:
    /// Paints what of the list is within `view` (drawing units). `worldToDevice` maps drawing
    /// coordinates, y upwards, to those of the painter. Neither the background nor the painter's
    /// clip is touched, and the painter's state is kept.
    void paint(QPainter& painter, const picture::DisplayList& list, const QTransform& worldToDevice,
               const picture::Box& view, const Look& look);

    /// Width of lines on paper that have no weight of their own, millimetres.
    static constexpr double kDefaultLineWeight = 0.18;

private:
    const GlyphFont& font(const std::string& family, bool fullWidth);

    class Pass;
    std::map<std::pair<std::string, bool>, std::unique_ptr<GlyphFont>> fonts_;
};

/// The map that shows `view` in a rectangle of the device, as large as it fits, in the middle.
QTransform FitTransform(const picture::Box& view, const QRectF& device);

/// The part of the drawing that `device` shows under a map.
picture::Box ViewOf(const QTransform& worldToDevice, const QRectF& device);

}  // namespace paint
