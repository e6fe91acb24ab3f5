#include "platform/db/AcDbText.h"

#include <cmath>

#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbTextStyleTable.h"
#include "platform/db/PlanarTransform.h"
#include "platform/db/entity_drawing.h"
#include "platform/gi/shape_outline.h"
#include "platform/win32/code_page.h"

namespace {

AcRxObject* makeText() {
    return new AcDbText;
}

constexpr Adesk::Int16 kBackward = 2;
constexpr Adesk::Int16 kUpsideDown = 4;

AcGeVector3d directionOf(double angle) {
    return {std::cos(angle), std::sin(angle), 0.0};
}

/// True for a direction in which people read without turning their heads over.
bool isReadable(const AcGeVector3d& direction) {
    constexpr double kUpright = 1e-9;
    return direction.x > kUpright || (direction.x > -kUpright && direction.y > 0.0);
}

}  // namespace

ACRX_DEFINE_MEMBERS(AcDbText, AcDbEntity, makeText);

AcDbText::AcDbText(const AcGePoint3d& position, const char* text, AcDbObjectId style, double height,
                   double rotation)
    : position_(position),
      text_(text != nullptr ? text : ""),
      height_(height),
      rotation_(rotation),
      style_(style) {}

Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& position) {
    assertWriteEnabled();
    position_ = position;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setTextString(const char* text) {
    if (text == nullptr) {
        return Acad::eInvalidInput;
    }
    assertWriteEnabled();
    text_ = text;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setHeight(double height) {
    assertWriteEnabled();
    height_ = height;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setRotation(double rotation) {
    assertWriteEnabled();
    rotation_ = rotation;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setWidthFactor(double factor) {
    assertWriteEnabled();
    widthFactor_ = factor;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setTextStyle(AcDbObjectId style) {
    if (database() != nullptr && !style.isNull() && style.database() != database()) {
        return Acad::eWrongDatabase;
    }
    assertWriteEnabled();
    style_ = style;
    return Acad::eOk;
}

void AcDbText::setDatabaseDefaults(AcDbDatabase* database) {
    AcDbEntity::setDatabaseDefaults(database);
    if (style_.isNull()) {
        style_ = database->textstyle();
    }
}

AcGiTextStyle AcDbText::drawingStyle() const {
    AcGiTextStyle style;
    style.setTextSize(height_);
    style.setXScale(widthFactor_);
    style.setObliquingAngle(oblique_);
    const AcDbObject* const record = AcDbDatabase::objectOf(style_);
    if (record != nullptr && record->isKindOf(AcDbTextStyleTableRecord::desc())) {
        const auto* const fonts = static_cast<const AcDbTextStyleTableRecord*>(record);
        style.setFileName(fonts->fileName());
        style.setBigFontFileName(fonts->bigFontFileName());
    }
    return style;
}

Adesk::Boolean AcDbText::worldDraw(AcGiWorldDraw* context) {
    assertReadEnabled();
    startDrawing(*context);
    AcGeVector3d direction = directionOf(rotation_);
    AcGeVector3d up(-direction.y, direction.x, 0.0);
    if ((generation_ & kBackward) != 0) {
        direction = -direction;
    }
    if ((generation_ & kUpsideDown) != 0) {
        up = -up;
    }
    db::InPlane(*context, normal_, [&](AcGiWorldDraw& inPlane) {
        inPlane.geometry().text(position_, direction.crossProduct(up), direction, text_.c_str(), -1,
                                false, drawingStyle());
    });
    return true;
}

Acad::ErrorStatus AcDbText::transformBy(const AcGeMatrix3d& transform) {
    const auto planar = PlanarTransform::of(transform, normal_);
    if (!planar) {
        return Acad::eNotApplicable;
    }
    assertWriteEnabled();
    const AcGeVector3d along = directionOf(rotation_);
    const AcGeVector3d up(-along.y, along.x, 0.0);
    const AcGeVector3d toAlignment = alignment_ - position_;
    AcGePoint3d origin = position_;  // of what becomes the text's left end on the baseline
    double rotation = planar->mapAngle(rotation_);
    if (planar->isMirrored()) {
        // The image of the frame seen from its other end, or else from its other side.
        const AcGeVector3d image = directionOf(rotation);
        if (isReadable(-image)) {
            origin += along * (win32::CharacterCount(text_) * height_ * widthFactor_);
            rotation = std::atan2(-image.y, -image.x);
        } else {
            origin += up * height_;
        }
    }
    position_ = planar->map(origin);
    rotation_ = rotation;
    const AcGeVector3d newAlong = directionOf(rotation_);
    const AcGeVector3d newUp(-newAlong.y, newAlong.x, 0.0);
    alignment_ = position_ + newAlong * (toAlignment.dotProduct(along) * planar->scale()) +
                 newUp * (toAlignment.dotProduct(up) * planar->scale());
    height_ *= planar->scale();
    thickness_ *= planar->scale();
    normal_ = planar->normal();
    return Acad::eOk;
}

std::unique_ptr<AcDbObject> AcDbText::clone() const {
    return std::make_unique<AcDbText>(*this);
}
