#include "platform/dwg/kept_shape.h"

#include <algorithm>

#include "platform/db/AcDbBlockReference.h"
#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbText.h"
#include "platform/db/AcDbTextStyleTable.h"
#include "platform/db/BlockWorldDraw.h"
#include "platform/db/HeaderVariables.h"
#include "platform/dwg/DwgBitWriter.h"
#include "platform/dwg/DwgCodec.h"
#include "platform/dwg/DwgObjectReader.h"
#include "platform/dwg/entity_types.h"
#include "platform/dwg/kept_bits.h"
#include "platform/dwg/multiline_text.h"

namespace {

/// Reads the fields of an entity that is kept as those of a class that is understood, into an
/// entity of no drawing that draws in its place.
template <class T>
class StandIn {
public:
    StandIn(const AcDbKeptEntity& entity, const DwgCodec& codec) : bits(entity) {
        AcDbDatabase* const database = entity.database();
        if (database == nullptr) {
            return;
        }
        DwgBitWriter handles;
        for (const AcDbKeptReference& reference : entity.keptFields().references) {
            handles.handle(5, reference.id.handle());
        }
        const auto handleBytes = handles.view();
        DwgBitReader references(handleBytes.data(), 0, 8 * handleBytes.size());
        DwgReadState state;
        DwgObjectReader reader(bits, references, *database, state, entity.objectId().handle());
        made_ = codec.make();
        codec.read(reader, *made_);
        if (bits.failed()) {
            made_ = nullptr;
        } else {
            get()->copyProperties(entity);
        }
    }

    explicit operator bool() const { return made_ != nullptr; }
    T* get() const { return static_cast<T*>(made_.get()); }
    T* operator->() const { return get(); }

    KeptBits bits;  ///< what follows the fields of that class

private:
    std::unique_ptr<AcDbObject> made_;
};

AcGiTextStyle fontsOf(AcDbObjectId id) {
    AcGiTextStyle style;
    const AcDbObject* const record = AcDbDatabase::objectOf(id);
    if (record != nullptr && record->isKindOf(AcDbTextStyleTableRecord::desc())) {
        const auto* const fonts = static_cast<const AcDbTextStyleTableRecord*>(record);
        style.setFileName(fonts->fileName());
        style.setBigFontFileName(fonts->bigFontFileName());
        style.setXScale(fonts->xScale());
        style.setObliquingAngle(fonts->obliquingAngle());
    }
    return style;
}

bool drawMultilineText(const AcDbKeptEntity& entity, AcGiWorldDraw& context) {
    constexpr double kLineFeed = 5.0 / 3.0;  // of a line of spacing factor 1, in text heights
    KeptBits bits(entity);
    const AcGePoint3d place = bits.point();
    const AcGeVector3d normal = bits.vector();
    const AcGeVector3d along = bits.vector().normal();
    const double width = bits.bitDouble();
    const double height = bits.bitDouble();
    const int attachment = std::clamp<int>(bits.bitShort(), 1, 9) - 1;
    const int column = attachment % 3;  // from the left
    const int row = attachment / 3;     // from the top
    bits.bitShort();                    // drawing direction
    bits.bitDouble();                   // extents
    bits.bitDouble();
    std::string content;
    bits.text(content);
    bits.bitShort();  // whether lines may be further apart
    const double feed = kLineFeed * height * bits.bitDouble();
    if (bits.failed() || !(height > 0.0)) {
        return false;
    }
    AcGiTextStyle style = fontsOf(ReferenceAt(entity, 0));
    style.setTextSize(height);
    const double character = height * style.xScale();
    const std::vector<std::string> lines = dwg::PlainLines(content, width / character);
    const AcGeVector3d up = normal.crossProduct(along).normal();
    const double whole = height + feed * static_cast<double>(lines.size() - 1);
    double down = height - whole * row / 2.0;  // to the first line's baseline
    for (const std::string& line : lines) {
        const double left = character * dwg::LineWidth(line) * column / 2.0;
        context.geometry().text(place - along * left - up * down, normal, along, line.c_str(), -1,
                                false, style);
        down += feed;
    }
    return true;
}

/// Attributes show their values, definitions of attributes their tags; in a reference to their
/// block only those definitions show that are constant, with their values.
bool drawAttribute(const AcDbKeptEntity& entity, AcGiWorldDraw& context, bool isDefinition) {
    enum Flag : unsigned { kInvisible = 1, kConstant = 2 };
    enum Mode : Adesk::Int16 { kNoneShown = 0, kAllShown = 2 };
    StandIn<AcDbText> text(entity, *FindCodec(dwg::kText));
    if (!text) {
        return false;
    }
    std::string tag;
    text.bits.text(tag);
    text.bits.bitShort();  // field length
    const unsigned flags = text.bits.rawChar();
    if (text.bits.failed()) {
        return false;
    }
    const bool inReference = dynamic_cast<const BlockWorldDraw*>(&context) != nullptr;
    if (isDefinition && inReference && (flags & kConstant) == 0) {
        return true;
    }
    if (isDefinition && !inReference) {
        text->setTextString(tag.c_str());
    }
    const Adesk::Int16 mode = entity.database()->header().ATTMODE;
    const bool isHidden = (flags & kInvisible) != 0 && !isDefinition;
    if (mode == kAllShown || (mode != kNoneShown && !isHidden)) {
        text->worldDraw(&context);
    }
    return true;
}

/// A reference with attributes, or in rows and columns.
bool drawBlockReference(const AcDbKeptEntity& entity, AcGiWorldDraw& context, bool inRows) {
    constexpr int kMostReferences = 10000;
    StandIn<AcDbBlockReference> reference(entity, *FindCodec(dwg::kBlockReference));
    if (!reference) {
        return false;
    }
    const int columns = inRows ? reference.bits.bitShort() : 1;
    const int rows = inRows ? reference.bits.bitShort() : 1;
    const double across = inRows ? reference.bits.bitDouble() : 0.0;
    const double upward = inRows ? reference.bits.bitDouble() : 0.0;
    if (reference.bits.failed() || columns < 1 || rows < 1 || columns * rows > kMostReferences) {
        return false;
    }
    const AcGePoint3d first = reference->position();
    const AcGeMatrix3d turned = AcGeMatrix3d::rotation(reference->rotation(), AcGeVector3d::kZAxis);
    for (int i = 0; i < columns * rows && !context.regenAbort(); ++i) {
        const int column = i % columns;
        const int row = i / columns;
        AcGeVector3d offset(across * column, upward * row, 0.0);
        reference->setPosition(first + offset.transformBy(turned));
        reference->worldDraw(&context);
    }
    // Their place is that of the drawing, their look that of what stands in the block.
    BlockWorldDraw attributes(context, AcGeMatrix3d(), AcDbObjectId::kNull, entity);
    for (const AcDbKeptEntity* attribute : PartsOf(entity, 1)) {
        if (context.regenAbort()) {
            break;
        }
        if (attribute->keptClass().type == dwg::kAttribute) {
            attributes.draw(attribute->objectId());
        }
    }
    return true;
}

/// A dimension is drawn by a block of its own, in the coordinates of the drawing.
bool drawDimension(const AcDbKeptEntity& entity, AcGiWorldDraw& context) {
    for (const AcDbKeptReference& reference : entity.keptFields().references) {
        const AcDbObject* const object = AcDbDatabase::objectOf(reference.id);
        if (object != nullptr && object->isKindOf(AcDbBlockTableRecord::desc())) {
            AcDbBlockReference block({}, reference.id);
            block.copyProperties(entity);
            block.worldDraw(&context);
            return true;
        }
    }
    return false;
}

}  // namespace

bool DrawKeptShape(const AcDbKeptEntity& entity, AcGiWorldDraw& context) {
    const std::uint16_t type = entity.keptClass().type;
    switch (type) {
        case dwg::kAttribute:
        case dwg::kAttributeDefinition:
            return drawAttribute(entity, context, type == dwg::kAttributeDefinition);
        case dwg::kBlockReference:
        case dwg::kBlockReferenceRows:
            return drawBlockReference(entity, context, type == dwg::kBlockReferenceRows);
        case dwg::kMultilineText:
            return drawMultilineText(entity, context);
        default:
            break;
    }
    if (type >= dwg::kOrdinateDimension && type <= dwg::kDiametricDimension) {
        return drawDimension(entity, context);
    }
    if (DrawKeptCurve(entity, context)) {
        return true;
    }
    // A class that is understood, but not in this coding.
    const DwgCodec* const codec = type == 0 ? nullptr : FindCodec(type);
    if (codec == nullptr || !codec->isEntity) {
        return false;
    }
    const StandIn<AcDbEntity> standIn(entity, *codec);
    return standIn && standIn->worldDraw(&context);
}
