#include "host/entity_pick.h"

#include <charconv>

#include "host/coordinates.h"
#include "host/dialogue.h"
#include "host/picture/FontLibrary.h"
#include "host/picture/picture_of.h"
#include "host/picture/shape_hits.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbEntity.h"
#include "platform/db/drawing_support_classes.h"

namespace host {

namespace {
constexpr double kReachPerViewHeight = 0.01;

bool PickHandle(AcDbDatabase& database, const std::string& pick, AcDbObjectId& id) {
    AcDbHandle handle = 0;
    const char* const end = pick.data() + pick.size();
    const auto [stop, fault] = std::from_chars(pick.data() + 1, end, handle, 16);
    AcDbEntity* entity = nullptr;
    if (fault != std::errc() || stop != end || database.getAcDbObjectId(id, handle) != Acad::eOk ||
        acdbOpenObject(entity, id, AcDb::kForRead) != Acad::eOk) {
        return Complain("There is no entity %1.", {pick});
    }
    // What files have around the entities of a block is none of them.
    const bool isAround =
        entity->isKindOf(AcDbBlockBegin::desc()) || entity->isKindOf(AcDbBlockEnd::desc());
    entity->close();
    return !isAround || Complain("There is no entity %1.", {pick});
}

bool PickNearest(AcApDocument& document, const AcGePoint3d& point, const std::string& pick,
                 AcDbObjectId& id) {
    picture::FontLibrary fonts;
    const picture::DisplayList list = picture::PictureOf(*document.database(), fonts);
    if (!list.isWhole()) {
        return Complain("The blocks of this drawing hold too much to look at %1; pick by #HANDLE.",
                        {pick});
    }
    const auto hits =
        picture::EntitiesAt(list, {point.x, point.y}, document.view().height * kReachPerViewHeight);
    if (hits.empty()) {
        return Complain("There is no entity at %1.", {pick});
    }
    id = hits.front().entity;
    return true;
}
}  // namespace

bool PickEntity(AcApDocument& document, const std::string& pick, AcDbObjectId& id,
                AcGePoint3d& point) {
    if (pick.starts_with('#')) {
        point = AcGePoint3d();
        return PickHandle(*document.database(), pick, id);
    }
    const std::optional<AcGePoint3d> where = ParsePoint(pick);
    if (!where) {
        return Complain("A pick is x,y or #HANDLE, not \"%1\".", {pick});
    }
    point = *where;
    return PickNearest(document, point, pick, id);
}

bool ForEachPick(const std::string& picks, const std::function<bool(const std::string&)>& change) {
    bool good = true;
    std::size_t start = 0;
    while (start != std::string::npos) {
        const std::size_t comma = picks.find(",#", start);
        good = change(picks.substr(start, comma - start)) && good;
        start = comma == std::string::npos ? comma : comma + 1;
    }
    return good;
}

}  // namespace host
