#include "platform/dwg/DwgCodec.h"

#include <array>
#include <unordered_map>
#include <vector>

#include "platform/db/AcDbKeptFields.h"
#include "platform/db/AcDbObject.h"
#include "platform/dwg/codec/codecs.h"
#include "platform/rx/AcRxClass.h"

namespace {

constexpr std::size_t kTypes = 500;

struct Registry {
    std::vector<DwgCodec> codecs;
    std::array<const DwgCodec*, kTypes> byType{};
    std::unordered_map<const AcRxClass*, const DwgCodec*> byRecord;
    std::unordered_map<std::string_view, const DwgCodec*> byDxfName;

    Registry() {
        for (auto add : {AddCurveCodecs, AddTextCodecs, AddSplineCodecs, AddHatchCodecs,
                         AddBlockCodecs, AddStyleCodecs, AddViewCodecs, AddNameTableCodecs,
                         AddDictionaryCodecs, AddLayoutCodecs}) {
            add(codecs);
        }
        for (const DwgCodec& codec : codecs) {
            byRecord[codec.record] = &codec;
            if (codec.fileClass) {
                byDxfName[codec.fileClass->dxfName] = &codec;
            } else {
                byType[codec.type] = &codec;
            }
        }
    }
};

const Registry& registry() {
    static const Registry registry;
    return registry;
}

template <class Map, class Key>
const DwgCodec* findIn(const Map& map, const Key& key) {
    const auto found = map.find(key);
    return found == map.end() ? nullptr : found->second;
}

struct TypeName {
    std::uint16_t type;
    bool isEntity;
    const char* className;
};

// Types without a codec.
constexpr TypeName kTypeNames[] = {
    {2, true, "AcDbAttribute"},
    {3, true, "AcDbAttributeDefinition"},
    {6, true, "AcDbSequenceEnd"},
    {8, true, "AcDbMInsertBlock"},
    {10, true, "AcDb2dVertex"},
    {11, true, "AcDb3dPolylineVertex"},
    {12, true, "AcDbPolygonMeshVertex"},
    {13, true, "AcDbPolyFaceMeshVertex"},
    {14, true, "AcDbFaceRecord"},
    {15, true, "AcDb2dPolyline"},
    {16, true, "AcDb3dPolyline"},
    {17, true, "AcDbArc"},
    {20, true, "AcDbOrdinateDimension"},
    {21, true, "AcDbRotatedDimension"},
    {22, true, "AcDbAlignedDimension"},
    {23, true, "AcDb3PointAngularDimension"},
    {24, true, "AcDb2LineAngularDimension"},
    {25, true, "AcDbRadialDimension"},
    {26, true, "AcDbDiametricDimension"},
    {27, true, "AcDbPoint"},
    {28, true, "AcDbFace"},
    {29, true, "AcDbPolyFaceMesh"},
    {30, true, "AcDbPolygonMesh"},
    {31, true, "AcDbSolid"},
    {32, true, "AcDbTrace"},
    {33, true, "AcDbShape"},
    {34, true, "AcDbViewport"},
    {35, true, "AcDbEllipse"},
    {37, true, "AcDbRegion"},
    {38, true, "AcDb3dSolid"},
    {39, true, "AcDbBody"},
    {40, true, "AcDbRay"},
    {41, true, "AcDbXline"},
    {43, true, "AcDbOleFrame"},
    {44, true, "AcDbMText"},
    {45, true, "AcDbLeader"},
    {46, true, "AcDbFcf"},
    {47, true, "AcDbMline"},
    {72, false, "AcDbGroup"},
    {74, true, "AcDbOle2Frame"},
    {79, false, "AcDbXrecord"},
    {80, false, "AcDbPlaceHolder"},
    {81, false, "AcDbVbaProject"},
    {82, false, "AcDbLayout"},
    {498, true, "AcDbProxyEntity"},
    {499, false, "AcDbProxyObject"},
};

const TypeName* findType(std::uint16_t type) {
    for (const TypeName& name : kTypeNames) {
        if (name.type == type) {
            return &name;
        }
    }
    return nullptr;
}

}  // namespace

const DwgCodec* FindCodec(const AcDbObject& object) {
    return findIn(registry().byRecord, object.isA());
}

const DwgCodec* FindCodec(std::uint16_t type) {
    return type < kTypes ? registry().byType[type] : nullptr;
}

const DwgCodec* FindCodec(std::string_view dxfName) {
    return findIn(registry().byDxfName, dxfName);
}

bool IsEntityType(std::uint16_t type) {
    if (const DwgCodec* codec = FindCodec(type)) {
        return codec->isEntity;
    }
    const TypeName* name = findType(type);
    return name != nullptr && name->isEntity;
}

const char* ClassNameOfType(std::uint16_t type) {
    if (const DwgCodec* codec = FindCodec(type)) {
        return codec->record->name();
    }
    const TypeName* name = findType(type);
    return name != nullptr ? name->className : "AcDbObject";
}
