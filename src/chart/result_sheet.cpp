#include "src/chart/result_sheet.h"

#include "platform/mfc/CTime.h"
#include "platform/win32/gbk_literal.h"
#include "src/chart/CSheetPen.h"
#include "src/chart/sheet_setup.h"
#include "src/common/module_state.h"

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
