#include "src/edit/select_entity.h"

#include "platform/ed/command_line.h"
#include "platform/ed/entity_selection.h"
#include "platform/rx/AcRxDynamicLinker.h"
#include "platform/win32/gbk_literal.h"

namespace {

bool PickId(const char* prompt, AcDbObjectId& id) {
    ads_name name;
    ads_point point;
    if (acedEntSel(prompt, name, point) != RTNORM) {
        acutPrintf("%s", "什么也没有选中.\n"_gbk);
        return false;
    }
    const Acad::ErrorStatus status = acdbGetObjectId(id, name);
    if (status != Acad::eOk) {
        acutPrintf("取试体ID失败: \n试体名：<%lx,%lx>, 错误码=%d.\n"_gbk, name[0], name[1], status);
        return false;
    }
    return true;
}

Acad::ErrorStatus OpenEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode) {
    AcDbObject* object = nullptr;
    const Acad::ErrorStatus status = acdbOpenAcDbObject(object, id, mode);
    if (status != Acad::eOk) {
        return status;
    }
    if (!object->isKindOf(AcDbEntity::desc())) {
        if (object->close() != Acad::eOk) {
            acrx_abort("Failed AcDbObject::close()");
        }
        return Acad::eNotAnEntity;
    }
    entity = static_cast<AcDbEntity*>(object);
    return Acad::eOk;
}

}  // namespace

AcDbEntity* SelectEntity(const char* prompt, AcDbObjectId& id, AcDb::OpenMode mode) {
    if (!PickId(prompt, id)) {
        return nullptr;
    }
    AcDbEntity* entity = nullptr;
    const Acad::ErrorStatus status = OpenEntity(entity, id, mode);
    if (status != Acad::eOk) {
        acutPrintf("打开试体错误，错误码=%d.\n"_gbk, status);
        return nullptr;
    }
    entity->highlight();
    return entity;
}
