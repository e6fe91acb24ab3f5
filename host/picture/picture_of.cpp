#include "host/picture/picture_of.h"

#include "host/model_entities.h"
#include "host/picture/PictureDraw.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbEntity.h"
#include "platform/db/AcDbStub.h"
#include "platform/db/HeaderVariables.h"

namespace picture {

namespace {

/// Blocks in blocks and fine patterns can make more of a small drawing than memory holds.
constexpr std::size_t kMostShapes = 500'000;
constexpr std::size_t kMostShapesOfEntry = 20;

}  // namespace

DisplayList PictureOf(AcDbDatabase& database, FontLibrary& fonts, double chordError) {
    DisplayList list;
    PictureDraw draw(list, fonts, chordError, database.header().LTSCALE,
                     kMostShapes + kMostShapesOfEntry * database.entries().size());
    host::ForEachModelSpaceEntity(database, [&](AcDbEntity& entity) {
        if (draw.regenAbort()) {
            list.endEarly();
        } else {
            draw.draw(entity);
        }
    });
    if (draw.regenAbort()) {
        list.endEarly();
    }
    return list;
}

}  // namespace picture
