#include "src/edit/store_command.h"

#include <memory>

#include "platform/ed/command_line.h"
#include "platform/ed/entity_selection.h"
#include "platform/mfc/message_box.h"
#include "platform/rx/AcRxDynamicLinker.h"
#include "src/common/module_state.h"
#include "src/core/gbk_text.h"
#include "src/db/record_loaders.h"
#include "src/entity/CKFCurve.h"

namespace {

constexpr int kFailed = 0;
constexpr int kStored = 1;

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

/// Lets the user pick an entity. Gives it open in `mode` and highlighted, with its id in `id`;
/// null, after a line on the command line, when nothing was picked or the pick cannot be opened.
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

/// Ends the work on a picked entity.
struct EntityRelease {
    void operator()(AcDbEntity* entity) const {
        entity->unhighlight();
        entity->close();
    }
};

bool BelongsToItsProject(const CKFCurve& curve) {
    int projectIndex = 0;
    std::string projectNumber;
    curve.GetProjectKey(projectIndex, projectNumber);
    return CheckProjectNumber(projectIndex, projectNumber) != 0;
}

/// The result of the curve's own store. Without a chart mode the curve would write nothing and yet
/// count as stored, so it is not asked.
int Store(CKFCurve& curve) {
    const bool belongs = BelongsToItsProject(curve);
    CurveDataChanged = 0;
    return belongs && ChartMode != kChartModeNotSet ? curve.StoreToDatabase() : kFailed;
}

void Report(int result) {
    if (result == kFailed) {
        acutPrintf("%s", "\n颗分数据存储失败!"_gbk);
    } else if (result == kStored) {
        acutPrintf("%s", "\n颗分数据存储成功!"_gbk);
    } else if (StoreFromReactor == 0) {
        acutPrintf("%s", "\n该试样没有改动，无须入库!"_gbk);
    } else {
        AfxMessageBox("试样选择错误，改动的试样数据没有入库!"_gbk);
    }
}

}  // namespace

void SGRDX() {
    AcDbObjectId id;
    std::unique_ptr<AcDbEntity, EntityRelease> entity(
        SelectEntity("\n请选择颗分试样曲线:"_gbk, id, AcDb::kForWrite));
    if (entity == nullptr) {
        return;
    }
    if (!entity->isKindOf(CKFCurve::desc())) {
        acutPrintf("%s", "\n没有选中颗分试样曲线!\n请选择颗分试样曲线!"_gbk);
        return;
    }
    const int result = Store(static_cast<CKFCurve&>(*entity));
    entity.reset();
    Report(result);
}
