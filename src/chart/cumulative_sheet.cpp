#include "src/chart/cumulative_sheet.h"

#include "platform/db/AcDbPolyline.h"
#include "platform/ed/adesk_results.h"
#include "platform/ed/file_search.h"
#include "platform/mfc/CTime.h"
#include "platform/win32/gbk_literal.h"
#include "src/chart/CSheetPen.h"
#include "src/chart/sheet_setup.h"
#include "src/common/module_state.h"

namespace {

constexpr double kTemplateScale = 1000.0;  // the template is drawn in metres

void InsertTemplate(const CDrawTools& tools, AcDbDatabase* sheet) {
    char path[512];
    if (acedFindFile("gltka3.dwg", path) == RTNORM) {
        tools.InsertDrawingAsBlock(path, 0.0, 0.0, 0.0, kTemplateScale, sheet);
    }
}

void DrawOuterFrame(const CDrawTools& tools, AcDbDatabase* sheet) {
    // Closed, and back at its first vertex all the same: sheets have always had it so.
    const AcGePoint2d corners[] = {
        {2.0, 296.0}, {418.0, 296.0}, {418.0, 2.0}, {2.0, 2.0}, {2.0, 296.0}};
    auto frame = std::make_unique<AcDbPolyline>();
    for (const AcGePoint2d& corner : corners) {
        frame->addVertexAt(frame->numVerts(), corner, 0.0, 0.0, 0.0);
    }
    frame->setClosed(true);
    AcDbObjectId id;
    tools.AppendEntity(frame.release(), id, sheet);
}

void DrawTitleBlock(const CSheetPen& pen) {
    pen.PlainText(142.0, 8.09, "颗 粒 组 成 累 积 曲 线"_gbk, 5.0);
    if (Annotation.dateChecked && Annotation.date != 0) {
        const CString date = CTime(Annotation.date).Format("%Y.%m.%d");
        pen.PlainText(388.0, 8.2, static_cast<const char*>(date), 4.0);
    }
    if (Annotation.checkerChecked) {
        pen.PlainText(246.0, 8.09, Annotation.checker, 5.0);
    }
    if (Annotation.testerChecked) {
        pen.PlainText(210.0, 8.09, Annotation.tester, 5.0);
    }
}

}  // namespace

void DrawCumulativeSheet(const CDrawTools& tools, AcDbDatabase* sheet) {
    SetUpChartTextStyle(tools, sheet);
    InsertTemplate(tools, sheet);
    if (OuterFrameOption) {
        DrawOuterFrame(tools, sheet);
    }
    DrawTitleBlock(CSheetPen(tools, sheet));
}

void PlaceCumulativeChart(int chartNumber) {
    const int row = chartNumber % kChartsPerCumulativeSheet / 2;
    ChartOriginX = chartNumber % 2 == 0 ? 48.0 : 242.0;
    ChartOriginY = 280.0 - 88.5 * row;
    ChartTextHeight = 4.0;
    ChartLineGap = 1.5;
}
