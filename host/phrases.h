#pragma once

namespace host {

/// Every text of the programs' own on the command line and in boxes, in both languages; "%1" to
/// "%4" are places for values.
struct PhraseTexts {
    const char* english;
    const char* chinese;
};

inline constexpr PhraseTexts kPhrases[] = {
    // What commands ask for.
    {"Select object: ", "选择对象: "},
    {"Base point: ", "指定基点: "},
    {"Second point: ", "指定第二点: "},
    {"Angle in degrees: ", "指定旋转角度: "},
    {"Scale factor: ", "指定比例因子: "},
    {"First point of the mirror line: ", "指定镜像线的第一点: "},
    {"Grips: ", "输入夹点序号: "},
    {"Displacement: ", "指定位移: "},
    {"Drawing to open: ", "输入要打开的图形文件名: "},
    {"Save drawing as: ", "图形另存为: "},
    {"All or Extents: ", "[全部(A)/范围(E)]: "},
    {"New value for SDI (0 or 1): ", "输入 SDI 的新值 (0 或 1): "},
    {"Number of steps: ", "输入要撤销的步数: "},

    // What stands against a command.
    {"Unknown command \"%1\".", "未知命令“%1”。"},
    {"%1: cancelled.", "%1: *取消*"},
    {"%1: cancelled, nothing was given for \"%2\".", "%1: *取消*，未输入“%2”。"},
    {"A closing quote is missing: %1", "缺少右引号: %1"},
    {"No drawing is open.", "没有打开的图形。"},
    {"No drawing is open. NEW makes one, OPEN opens one.",
     "没有打开的图形。可用 NEW 新建，用 OPEN 打开。"},
    {"The name of a drawing is missing.", "缺少图形文件名。"},
    {"A point is x,y, not \"%1\".", "点应输入为 x,y，“%1”无效。"},
    {"\"%1\" is no number.", "“%1”不是数值。"},
    {"A scale factor is above 0, not %1.", "比例因子必须大于 0，%1 无效。"},
    {"The two points of a mirror line must differ.", "镜像线的两点不能重合。"},
    {"Grips are index[,index...] from 0, not \"%1\".",
     "夹点序号应输入为 序号[,序号...]，从 0 起，“%1”无效。"},
    {"The entity %1 has no grip %2, it has %3.", "对象 %1 没有夹点 %2，共有 %3 个夹点。"},
    {"The entity %1 cannot be changed.", "不能修改对象 %1。"},
    {"The entity %1 cannot be transformed.", "不能变换对象 %1。"},
    {"The entity %1 cannot be copied.", "不能复制对象 %1。"},
    {"The entity %1 is made of nothing simpler.", "对象 %1 无法分解。"},
    {"A pick is x,y or #HANDLE, not \"%1\".", "选择对象应输入 x,y 或 #句柄，“%1”无效。"},
    {"There is no entity %1.", "找不到对象 %1。"},
    {"There is no entity at %1.", "%1 处没有对象。"},
    {"The blocks of this drawing hold too much to look at %1; pick by #HANDLE.",
     "图中的块过于复杂，不能在 %1 处选择，请用 #句柄 选择。"},
    {"SDI takes 0 (several documents) or 1 (a single one), not \"%1\".",
     "SDI 取 0（多个图形）或 1（单个图形），“%1”无效。"},
    {"ZOOM takes E (extents) or A (all), not \"%1\".", "ZOOM 取 E（范围）或 A（全部），“%1”无效。"},

    // Of steps taken back and brought back.
    {"Undone: %1.", "已撤销: %1。"},
    {"Redone: %1.", "已重做: %1。"},
    {"There is nothing to undo.", "没有可撤销的操作。"},
    {"There is nothing to redo.", "没有可重做的操作。"},
    {"The number of steps is a whole number from 1 up, not \"%1\".",
     "步数应为不小于 1 的整数，“%1”无效。"},
    {"An object that \"%1\" has changed is in use.", "“%1”修改的对象正在使用中。"},
    {"grip", "夹点"},
    {"move", "移动"},
    {"copy", "复制"},
    {"erase", "删除"},
    {"mirror", "镜像"},
    {"rotate", "旋转"},
    {"scale", "缩放"},
    {"explode", "分解"},
    {"store curve", "曲线入库"},

    // Of drawings that are to be saved or to go.
    {"%1 was deleted since it was opened. Save it all the same?", "%1 打开后已被删除，仍要保存吗?"},
    {"%1 was changed by another program since it was opened. Save it all the same?",
     "%1 打开后已被其他程序修改，仍要保存吗?"},
    {"Save the changes to %1?", "是否将改动保存到 %1?"},
    {"%1 is not saved.", "%1 未保存。"},
    {"%1 was never saved: SAVEAS gives it a name.", "%1 尚未命名，请用 SAVEAS 保存。"},
    {"%1 stays open.", "%1 保持打开。"},

    // What LIST tells of an entity.
    {"%1  handle %2  layer %3  color %4", "%1  句柄 %2  图层 %3  颜色 %4"},
    {"from %1 to %2", "范围 %1 至 %2"},
};

}  // namespace host
