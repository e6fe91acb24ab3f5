#include <memory>

#include "platform/ap/AcApDocManager.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/db/AcDbTextStyleTable.h"
#include "platform/ed/adesk_results.h"
#include "platform/ed/file_search.h"
#include "platform/mfc/message_box.h"
#include "src/chart/CDrawTools.h"
#include "src/common/module_state.h"
#include "src/core/gbk_text.h"
#include "src/entity/append_entity.h"

namespace {

bool FindFontFile(const std::string& fileName) {
    char path[512];
    if (acedFindFile(fileName.c_str(), path) == RTNORM) {
        return true;
    }
    AfxMessageBox(("未找到形文件"_gbk + fileName).c_str());
    return false;
}

/// Adds a free record to the table and closes it; one that is refused is destroyed.
void AddRecord(AcDbSymbolTable& table, std::unique_ptr<AcDbSymbolTableRecord> record,
               AcDbObjectId& id) {
    if (table.add(id, record.get()) == Acad::eOk) {
        record.release()->close();
    }
}

}  // namespace

int CDrawTools::CreateTextStyleId(const std::string& name, const std::string& fontFile,
                                  const std::string& bigFontFile, AcDbDatabase* target,
                                  AcDbObjectId& id) const {
    if (!FindFontFile(fontFile) || !FindFontFile(bigFontFile)) {
        return 0;
    }
    AcDbDatabase* drawing = DrawingOrWorking(target);
    AcDbTextStyleTable* styles = nullptr;
    if (drawing == nullptr || drawing->getSymbolTable(styles, AcDb::kForWrite) != Acad::eOk) {
        return 0;
    }
    if (styles->getAt(name.c_str(), id) != Acad::eOk) {
        auto style = std::make_unique<AcDbTextStyleTableRecord>();
        style->setName(name.c_str());
        style->setFileName(fontFile.c_str());
        style->setBigFontFileName(bigFontFile.c_str());
        AddRecord(*styles, std::move(style), id);
    }
    drawing->setTextstyle(id);
    styles->close();
    return 1;
}

int CDrawTools::CreateTextStyle(const std::string& name, const std::string& fontFile,
                                const std::string& bigFontFile, AcDbDatabase* target) const {
    acDocManager->pushResourceHandle(ExtensionModule.ModuleResourceInstance());
    AcDbObjectId id;
    const int result = CreateTextStyleId(name, fontFile, bigFontFile, target, id);
    acDocManager->popResourceHandle();
    return result;
}

void CDrawTools::CreateLayer(const std::string& name, AcDbObjectId& id, AcDbDatabase* target,
                             bool off) const {
    if (name.empty()) {
        return;
    }
    AcDbDatabase* drawing = DrawingOrWorking(target);
    AcDbLayerTable* layers = nullptr;
    if (drawing == nullptr || drawing->getSymbolTable(layers, AcDb::kForWrite) != Acad::eOk) {
        return;
    }
    if (layers->getAt(name.c_str(), id) != Acad::eOk) {
        auto layer = std::make_unique<AcDbLayerTableRecord>();
        layer->setName(name.c_str());
        layer->setIsOff(off);
        AddRecord(*layers, std::move(layer), id);
    }
    layers->close();
}
