#include "host/plot/SvgPlot.h"

#include <cmath>
#include <cstdio>
#include <numbers>
#include <string_view>

#include "host/model_space.h"
#include "host/plot/color_index.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/ed/file_search.h"
#include "platform/gi/AcGiWorldDraw.h"
#include "platform/win32/code_page.h"

namespace plot {
namespace {

constexpr double kLineWidth = 0.18;   // millimetres, of lines without a width
constexpr double kPageMargin = 10.0;  // around a drawing that fits no sheet
constexpr const char* kDefaultFont = "WenQuanYi Zen Hei";

/// How a font's em relates to the height that a text is given.
struct GlyphMetrics {
    double emPerHeight;
    double advancePerEm;
};
constexpr GlyphMetrics kLatin{1.36, 0.5};  // capitals reach the height; half-width advance
constexpr GlyphMetrics kChinese{1.1, 1.0};

std::string Number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4f", value);
    std::string result = text;
    result.erase(result.find_last_not_of('0') + 1);
    if (result.back() == '.') {
        result.pop_back();
    }
    return result == "-0" ? "0" : result;
}

std::string Escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
            case '<':
                result += "&lt;";
                break;
            case '>':
                result += "&gt;";
                break;
            case '&':
                result += "&amp;";
                break;
            case '"':
                result += "&quot;";
                break;
            default:
                result += c;
        }
    }
    return result;
}

/// Collects shapes as SVG elements in drawing coordinates; the page turns y over.
class SvgDraw : public AcGiWorldDraw, private AcGiWorldGeometry, private AcGiSubEntityTraits {
public:
    AcGiWorldGeometry& geometry() const override { return const_cast<SvgDraw&>(*this); }
    AcGiSubEntityTraits& subEntityTraits() const override { return const_cast<SvgDraw&>(*this); }

    /// Colour that indices without one of their own fall back to.
    void setLayerColor(int index) { layerColor_ = index; }
    const std::string& body() const { return body_; }

private:
    void setColor(Adesk::UInt16 colorIndex) override { color_ = colorIndex; }
    void setSelectionMarker(Adesk::Int32) override {}

    std::string colorText() const {
        const bool own = color_ >= 1 && color_ <= 255;
        const Rgb rgb = PaperColor(own ? color_ : layerColor_);
        char text[8];
        std::snprintf(text, sizeof text, "#%02x%02x%02x", rgb.red, rgb.green, rgb.blue);
        return text;
    }
    std::string strokeText() const {
        return " fill=\"none\" stroke=\"" + colorText() + "\" stroke-width=\"" +
               Number(kLineWidth) + "\"/>\n";
    }
    std::string fillText() const { return " fill=\"" + colorText() + "\" stroke=\"none\"/>\n"; }
    static std::string place(double x, double y) { return Number(x) + "," + Number(-y); }
    static std::string placesOf(Adesk::UInt32 count, const AcGePoint3d* points) {
        std::string result;
        for (Adesk::UInt32 i = 0; i < count; ++i) {
            result += (i == 0 ? "" : " ") + place(points[i].x, points[i].y);
        }
        return result;
    }

    Adesk::Boolean polyline(Adesk::UInt32 count, const AcGePoint3d* points) override {
        body_ += "<polyline points=\"" + placesOf(count, points) + "\"" + strokeText();
        return true;
    }
    Adesk::Boolean polygon(Adesk::UInt32 count, const AcGePoint3d* points) override {
        body_ += "<polygon points=\"" + placesOf(count, points) + "\"" + fillText();
        return true;
    }
    Adesk::Boolean circle(const AcGePoint3d& center, double radius, const AcGeVector3d&) override {
        body_ += "<circle cx=\"" + Number(center.x) + "\" cy=\"" + Number(-center.y) + "\" r=\"" +
                 Number(radius) + "\"" + strokeText();
        return true;
    }
    Adesk::Boolean circularArc(const AcGePoint3d& center, double radius, double startAngle,
                               double sweepAngle) override {
        const double end = startAngle + sweepAngle;
        body_ += "<path d=\"M" +
                 place(center.x + radius * std::cos(startAngle),
                       center.y + radius * std::sin(startAngle)) +
                 " A" + Number(radius) + "," + Number(radius) + " 0 " +
                 (std::abs(sweepAngle) > std::numbers::pi ? "1" : "0") + " " +
                 (sweepAngle > 0 ? "0" : "1") + " " +
                 place(center.x + radius * std::cos(end), center.y + radius * std::sin(end)) +
                 "\"" + strokeText();
        return true;
    }
    Adesk::Boolean wideLine(const AcGePoint3d& start, const AcGePoint3d& end, double startWidth,
                            double endWidth) override {
        const AcGeVector3d along = end - start;
        const double length = along.length();
        if (length == 0.0) {
            return true;
        }
        const AcGeVector3d side(-along.y / length, along.x / length, 0.0);
        const AcGePoint3d corners[] = {start + side * (startWidth / 2), end + side * (endWidth / 2),
                                       end - side * (endWidth / 2),
                                       start - side * (startWidth / 2)};
        return polygon(4, corners);
    }
    Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d&,
                        const AcGeVector3d& direction, const char* message, Adesk::Int32 length,
                        Adesk::Boolean, const AcGiTextStyle& style) override {
        const std::string_view gbk =
            length < 0 ? std::string_view(message)
                       : std::string_view(message, static_cast<std::size_t>(length));
        const double advance = style.textSize() * style.xScale();
        const AcGeVector3d unit = direction * (1.0 / direction.length());
        AcGePoint3d pen = position;
        for (std::size_t i = 0; i < gbk.size();) {
            const std::size_t bytes = win32::CharLength(gbk, i);
            if (gbk[i] != ' ') {
                glyph(pen, unit, gbk.substr(i, bytes), advance, style);
            }
            pen += unit * advance;
            i += bytes;
        }
        return true;
    }

    void glyph(const AcGePoint3d& pen, const AcGeVector3d& unit, std::string_view gbk,
               double advance, const AcGiTextStyle& style) {
        const bool chinese = gbk.size() == 2;
        const GlyphMetrics& metrics = chinese ? kChinese : kLatin;
        const double em = style.textSize() * metrics.emPerHeight;
        const double stretch = advance / (em * metrics.advancePerEm);
        std::string font = ed::MappedFont(chinese ? style.bigFontFileName() : style.fileName());
        if (font.empty()) {
            font = kDefaultFont;
        }
        if (!chinese) {
            font += " Mono";
        }
        body_ += "<text font-family=\"" + Escaped(font) + "\" font-size=\"" + Number(em) +
                 "\" fill=\"" + colorText() + "\" transform=\"matrix(" + Number(unit.x * stretch) +
                 " " + Number(-unit.y * stretch) + " " + Number(unit.y) + " " + Number(unit.x) +
                 " " + Number(pen.x) + " " + Number(-pen.y) + ")\">" +
                 Escaped(win32::Utf8FromGbk(gbk)) + "</text>\n";
    }

    std::string body_;
    int color_ = 7;
    int layerColor_ = 7;
};

/// The page's lower left corner and size, drawing units.
struct Page {
    double x = 0.0;
    double y = 0.0;
    double width = 0.0;
    double height = 0.0;
};

Page PageOf(const AcDbExtents& extents) {
    if (extents.isEmpty()) {
        return {0.0, 0.0, 210.0, 297.0};
    }
    for (const double width : {210.0, 420.0}) {
        if (extents.minPoint().x >= 0.0 && extents.minPoint().y >= 0.0 &&
            extents.maxPoint().x <= width && extents.maxPoint().y <= 297.0) {
            return {0.0, 0.0, width, 297.0};
        }
    }
    const AcGeVector3d size = extents.maxPoint() - extents.minPoint();
    return {extents.minPoint().x - kPageMargin, extents.minPoint().y - kPageMargin,
            size.x + 2 * kPageMargin, size.y + 2 * kPageMargin};
}

/// Colour of the layer, or 0 when what stands on it is not shown.
int ShownLayerColor(AcDbObjectId layerId) {
    AcDbLayerTableRecord* layer = nullptr;
    if (acdbOpenObject(layer, layerId, AcDb::kForRead) != Acad::eOk) {
        return 7;
    }
    const bool shown = !layer->isOff() && !layer->isFrozen();
    const int color = layer->color().colorIndex();
    layer->close();
    return shown ? color : 0;
}

void DrawModelSpace(AcDbDatabase& database, SvgDraw& draw, AcDbExtents& extents) {
    host::ForEachModelSpaceEntity(database, [&](AcDbEntity& entity) {
        const int layerColor = ShownLayerColor(entity.layerId());
        if (layerColor == 0 || entity.visibility() != AcDb::kVisible) {
            return;
        }
        draw.setLayerColor(layerColor);
        draw.subEntityTraits().setColor(entity.colorIndex());
        entity.worldDraw(&draw);
        AcDbExtents own;
        if (entity.getGeomExtents(own) == Acad::eOk) {
            extents.addExt(own);
        }
    });
}

}  // namespace

std::string SvgOf(AcDbDatabase& database) {
    SvgDraw draw;
    AcDbExtents extents;
    DrawModelSpace(database, draw, extents);
    const Page page = PageOf(extents);
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\""
           " width=\"" +
           Number(page.width) + "mm\" height=\"" + Number(page.height) + "mm\" viewBox=\"" +
           Number(page.x) + " " + Number(-page.y - page.height) + " " + Number(page.width) + " " +
           Number(page.height) + "\">\n<rect x=\"" + Number(page.x) + "\" y=\"" +
           Number(-page.y - page.height) + "\" width=\"" + Number(page.width) + "\" height=\"" +
           Number(page.height) + "\" fill=\"#ffffff\"/>\n" + draw.body() + "</svg>\n";
}

}  // namespace plot
