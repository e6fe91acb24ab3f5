#include "apps/grdx/sheet_template.h"

#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbLine.h"
#include "platform/db/AcDbPolyline.h"
#include "platform/db/AcDbText.h"
#include "platform/db/AcDbTextStyleTable.h"
#include "platform/win32/gbk_literal.h"

namespace console {

namespace {
constexpr double kScale = 0.001;

// Millimetres of the printed sheet, 420 x 297.
constexpr double kSheetWidth = 420.0;
constexpr double kSheetHeight = 297.0;
constexpr double kLeft = 25.0;    // the side on which sheets are bound
constexpr double kRight = 416.5;  // the date, ten characters from 388 on, ends at 416
constexpr double kBottom = 5.0;
constexpr double kTop = 292.0;
constexpr double kTitleTop = 16.0;  // of the title block, a strip along the lower edge
constexpr double kFrameWidth = 0.7;
constexpr double kLabelHeight = 3.0;
constexpr double kLabelWidthFactor = 0.7;
constexpr double kLabelBaseline = 9.0;

// Charts stand in two columns and three rows, 88.5 apart; the lines run between them.
constexpr double kBetweenColumns = 225.0;
constexpr double kBetweenRows[] = {197.25, 108.75};

/// A cell of the title block from its left edge to that of the next; a cell without a label is
/// filled by the chart command or by hand.
struct TitleCell {
    double left;
    const char* label;  ///< GBK
};

const std::vector<TitleCell>& TitleCells() {
    static const std::vector<TitleCell> cells = {
        {25.0, "工程名称"_gbk}, {41.0, ""},  {126.0, "图名"_gbk}, {138.0, ""},
        {196.0, "试验"_gbk},    {208.0, ""}, {232.0, "检查"_gbk}, {244.0, ""},
        {270.0, "审核"_gbk},    {282.0, ""}, {308.0, "图号"_gbk}, {320.0, ""},
        {374.0, "日期"_gbk},    {386.0, ""},
    };
    return cells;
}

/// Draws into a database's model space in millimetres of the sheet.
class SheetPen {
public:
    explicit SheetPen(AcDbDatabase& database) {
        AcDbBlockTable* blocks = nullptr;
        database.getSymbolTable(blocks, AcDb::kForRead);
        blocks->getAt(ACDB_MODEL_SPACE, modelSpace_, AcDb::kForWrite);
        blocks->close();
    }
    ~SheetPen() { modelSpace_->close(); }
    SheetPen(const SheetPen&) = delete;
    SheetPen& operator=(const SheetPen&) = delete;

    void Line(double x1, double y1, double x2, double y2) {
        Add(std::make_unique<AcDbLine>(Point(x1, y1), Point(x2, y2)));
    }

    void Rectangle(double left, double bottom, double right, double top, double width) {
        auto frame = std::make_unique<AcDbPolyline>();
        const double corners[][2] = {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
        unsigned index = 0;
        for (const auto& [x, y] : corners) {
            frame->addVertexAt(index++, AcGePoint2d(x * kScale, y * kScale), 0.0, width * kScale,
                               width * kScale);
        }
        frame->setClosed(true);
        Add(std::move(frame));
    }

    void Text(double x, double y, const char* text) {
        auto label = std::make_unique<AcDbText>(Point(x, y), text, AcDbObjectId::kNull,
                                                kLabelHeight * kScale);
        label->setWidthFactor(kLabelWidthFactor);
        Add(std::move(label));
    }

private:
    static AcGePoint3d Point(double x, double y) { return {x * kScale, y * kScale, 0.0}; }

    void Add(std::unique_ptr<AcDbEntity> entity) {
        if (modelSpace_->appendAcDbEntity(entity.get()) == Acad::eOk) {
            entity.release()->close();
        }
    }

    AcDbBlockTableRecord* modelSpace_ = nullptr;
};

/// The style of the labels, with fonts that know Chinese; current from then on.
void MakeLabelStyle(AcDbDatabase& database) {
    AcDbTextStyleTable* styles = nullptr;
    database.getSymbolTable(styles, AcDb::kForWrite);
    auto style = std::make_unique<AcDbTextStyleTableRecord>();
    style->setName("SHEET");
    style->setFileName("ComFont.shx");
    style->setBigFontFileName("Hztxt.shx");
    AcDbObjectId id;
    if (styles->add(id, style.get()) == Acad::eOk) {
        style.release()->close();
    }
    styles->close();
    database.setTextstyle(id);
}

void DrawChartCells(SheetPen& pen) {
    pen.Line(kBetweenColumns, kTitleTop, kBetweenColumns, kTop);
    for (const double y : kBetweenRows) {
        pen.Line(kLeft, y, kRight, y);
    }
}

void DrawTitleBlock(SheetPen& pen) {
    constexpr double kLabelMargin = 2.0;
    pen.Line(kLeft, kTitleTop, kRight, kTitleTop);
    for (const TitleCell& cell : TitleCells()) {
        if (cell.left > kLeft) {
            pen.Line(cell.left, kBottom, cell.left, kTitleTop);
        }
        if (*cell.label != '\0') {
            pen.Text(cell.left + kLabelMargin, kLabelBaseline, cell.label);
        }
    }
}
}  // namespace

std::unique_ptr<AcDbDatabase> MakeSheetTemplate() {
    auto database = std::make_unique<AcDbDatabase>(true, true);
    MakeLabelStyle(*database);
    SheetPen pen(*database);
    pen.Rectangle(0.0, 0.0, kSheetWidth, kSheetHeight, 0.0);
    pen.Rectangle(kLeft, kBottom, kRight, kTop, kFrameWidth);
    DrawChartCells(pen);
    DrawTitleBlock(pen);
    return database;
}

}  // namespace console
