#include "src/chart/sheet_layout.h"

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbPolyline.h"
#include "platform/ed/adesk_results.h"
#include "platform/ed/command_line.h"
#include "platform/ed/file_search.h"
#include "platform/mfc/CTime.h"
#include "src/chart/CSheetPen.h"
#include "src/common/module_state.h"
#include "src/core/gbk_text.h"

namespace {

constexpr double kFrameLeft = 30.0;
constexpr double kTitleBaseline = 277.0;
constexpr double kTitleHeight = 8.0;
constexpr double kTextIndent = 2.0;  // of the header within the frame
constexpr double kMethodsDrop = 19.25;

double LinePitch() {
    return ChartTextHeight + ChartLineGap;
}

void PlaceFrame() {
    ChartTextHeight = 4.0;
    ChartLineGap = 1.5;
    FrameWidth = 175.0;
    FrameHeight = 250.0;
    ChartOriginX = kFrameLeft;
    ChartOriginY = kUpperChartY;
}

void DrawTitle(const CSheetPen& pen) {
    const std::string title = "颗 粒 分 析 成 果 图 表"_gbk;
    pen.Text(kFrameLeft + (FrameWidth - pen.Width(title, kTitleHeight)) / 2.0, kTitleBaseline,
             title, kTitleHeight);
}

void DrawFrame(const CSheetPen& pen) {
    const double right = ChartOriginX + FrameWidth;
    const double bottom = ChartOriginY - FrameHeight;
    pen.HeavyLine(ChartOriginX, ChartOriginY, right, ChartOriginY);
    pen.HeavyLine(ChartOriginX, ChartOriginY, ChartOriginX, bottom);
    pen.HeavyLine(right, ChartOriginY, right, bottom);
    pen.HeavyLine(ChartOriginX, bottom, right, bottom);
}

void DrawHeader(const CSheetPen& pen) {
    const double x = ChartOriginX + kTextIndent;
    const double first = ChartOriginY - LinePitch();
    const double second = first - LinePitch();
    pen.Text(x, first, "工程编号: "_gbk + ProjectContext.GCBH, ChartTextHeight);
    pen.Text(x, second, "工程名称: "_gbk + ProjectContext.GCMC, ChartTextHeight);
    const double line = second - ChartLineGap / 2.0;
    pen.Line(ChartOriginX, line, ChartOriginX + FrameWidth, line);
}

/// "role: name" when the name is to be shown, else the role alone, to be filled in by hand.
std::string SignatureText(const char* role, bool checked, const std::string& name) {
    return checked ? std::string(role) + ": " + name : role;
}

std::string DateText() {
    if (!Annotation.dateChecked || Annotation.date == 0) {
        return "    年  月  日"_gbk;
    }
    return static_cast<const char*>(CTime(Annotation.date).Format("%Y年%m月%d日"_gbk));
}

void DrawFooter(const CSheetPen& pen) {
    const auto write = [&pen](double column, const std::string& text) {
        pen.Text(ChartOriginX + column * FrameWidth / 8.5, ChartOriginY - FrameHeight - LinePitch(),
                 text, ChartTextHeight);
    };
    if (Annotation.unitChecked) {
        write(0.5, Annotation.unit);
    }
    write(2.5, SignatureText("试验"_gbk, Annotation.testerChecked, Annotation.tester));
    write(4.0, SignatureText("检查"_gbk, Annotation.checkerChecked, Annotation.checker));
    write(5.5, DateText());
    write(7.5, "图号"_gbk);
}

void DrawOuterFrame(const CSheetPen& pen) {
    pen.Line(2.0, 295.0, 2.0, 2.0);
    pen.Line(2.0, 295.0, 208.0, 295.0);
    pen.Line(208.0, 295.0, 208.0, 2.0);
    pen.Line(2.0, 2.0, 208.0, 2.0);
}

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

void DrawResultSheet(const CDrawTools& tools, AcDbDatabase* sheet) {
    const CSheetPen pen(tools, sheet);
    PlaceFrame();
    // A text takes the style that is current when it is written: the title comes between the two.
    tools.CreateTextStyle("KX_FONT", "ComFont.shx", "st64f.shx", sheet);
    DrawTitle(pen);
    SetUpChartTextStyle(tools, sheet);
    DrawFrame(pen);
    DrawHeader(pen);
    DrawFooter(pen);
    if (OuterFrameOption) {
        DrawOuterFrame(pen);
    }
}

void DrawTestMethods(const CDrawTools& tools, AcDbDatabase* sheet, const std::string& methods) {
    CSheetPen(tools, sheet)
        .Text(kFrameLeft + FrameWidth / 2.0, kTitleBaseline - kMethodsDrop,
              "试验方法: "_gbk + methods, 4.0);
}

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

int SetUpChartLayer(const CDrawTools& tools, AcDbDatabase* sheet) {
    AcDbObjectId layer;
    tools.CreateLayer("ZZT_TC", layer, sheet, false);
    if (sheet->setClayer(layer) != Acad::eOk) {
        acutPrintf("%s", "\n设置主层有误!"_gbk);
        return 0;
    }
    return 1;
}

void SetUpChartTextStyle(const CDrawTools& tools, AcDbDatabase* sheet) {
    QvFontStyleId.setNull();  // the style of the sheet before is gone with it
    tools.CreateTextStyleId("QV_FONT", "ComFont.shx", "Hztxt.shx", sheet, QvFontStyleId);
}
