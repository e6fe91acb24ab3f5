#include "host/picture/picture_of.h"

#include <array>

#include "host/model_space.h"
#include "host/picture/PictureDraw.h"

namespace picture {

namespace {

constexpr int kForeground = 7;
constexpr float kDefaultWeight = -1.0F;

/// Blocks in blocks and fine patterns can make more of a small drawing than memory holds.
constexpr std::size_t kMostShapes = 500'000;
constexpr std::size_t kMostShapesOfEntry = 20;

/// Weights by the file format's code, hundredths of a millimetre.
constexpr std::array<int, 24> kWeights{0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                                       53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};

float Millimetres(std::uint8_t code) {
    return code < kWeights.size() ? static_cast<float>(kWeights[code]) / 100.0F : kDefaultWeight;
}

/// What an entity takes from its layer.
struct LayerLook {
    bool shown = true;
    int colorIndex = kForeground;
    float lineWeight = kDefaultWeight;
};

LayerLook LookOf(AcDbObjectId layerId) {
    LayerLook look;
    AcDbLayerTableRecord* layer = nullptr;
    if (acdbOpenObject(layer, layerId, AcDb::kForRead) == Acad::eOk) {
        look = {!layer->isOff() && !layer->isFrozen(), layer->color().colorIndex(),
                Millimetres(layer->lineWeight())};
        layer->close();
    }
    return look;
}

void Draw(AcDbEntity& entity, PictureDraw& draw, DisplayList& list) {
    constexpr std::uint8_t kWeightByLayer = 29;
    const LayerLook layer = LookOf(entity.layerId());
    if (!layer.shown || entity.visibility() != AcDb::kVisible) {
        return;
    }
    const std::uint8_t weight = entity.lineWeight();
    draw.startEntity(layer.colorIndex,
                     weight == kWeightByLayer ? layer.lineWeight : Millimetres(weight));
    list.beginItem(entity.objectId());
    draw.subEntityTraits().setColor(entity.colorIndex());
    entity.worldDraw(&draw);
    draw.endEntity();
    list.endItem();
}

}  // namespace

DisplayList PictureOf(AcDbDatabase& database, FontLibrary& fonts, double chordError) {
    DisplayList list;
    PictureDraw draw(list, fonts, chordError,
                     kMostShapes + kMostShapesOfEntry * database.entries().size());
    host::ForEachModelSpaceEntity(database, [&](AcDbEntity& entity) {
        if (draw.regenAbort()) {
            list.endEarly();
        } else {
            Draw(entity, draw, list);
        }
    });
    if (draw.regenAbort()) {
        list.endEarly();
    }
    return list;
}

DisplayList PictureOf(AcDbEntity& entity, FontLibrary& fonts, double chordError) {
    DisplayList list;
    PictureDraw draw(list, fonts, chordError, kMostShapes);
    Draw(entity, draw, list);
    return list;
}

}  // namespace picture
