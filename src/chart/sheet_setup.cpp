#include "src/chart/sheet_setup.h"

#include "platform/ed/command_line.h"
#include "platform/win32/gbk_literal.h"
#include "src/common/module_state.h"

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
