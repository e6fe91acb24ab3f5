#pragma once

#include <string>

#include "platform/db/AcDbEntity.h"
#include "platform/gi/AcGiTextStyle.h"

/// One line of text (GBK), in world coordinates for the normal (0, 0, 1).
class AcDbText : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbText);
    AcDbText() = default;
    /// A null style is resolved to the drawing's current text style when the text is appended.
    AcDbText(const AcGePoint3d& position, const char* text,
             AcDbObjectId style = AcDbObjectId::kNull, double height = 0.0, double rotation = 0.0);

    AcGePoint3d position() const { return position_; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    AcGePoint3d alignmentPoint() const { return alignment_; }
    const char* textString() const { return text_.c_str(); }
    Acad::ErrorStatus setTextString(const char* text);
    double height() const { return height_; }
    Acad::ErrorStatus setHeight(double height);
    /// Radians, counter-clockwise.
    double rotation() const { return rotation_; }
    Acad::ErrorStatus setRotation(double rotation);
    double widthFactor() const { return widthFactor_; }
    Acad::ErrorStatus setWidthFactor(double factor);
    double oblique() const { return oblique_; }
    AcDb::TextHorzMode horizontalMode() const { return horizontalMode_; }
    AcDb::TextVertMode verticalMode() const { return verticalMode_; }
    AcDbObjectId textStyle() const { return style_; }
    Acad::ErrorStatus setTextStyle(AcDbObjectId style);

    void setDatabaseDefaults(AcDbDatabase* database) override;
    Adesk::Boolean worldDraw(AcGiWorldDraw* context) override;
    /// eNotApplicable for maps that do not scale the text's plane evenly. A mirrored text stands in
    /// the image of its frame and stays readable.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    std::unique_ptr<AcDbObject> clone() const override;

private:
    template <class T>
    friend struct DwgFields;
    AcGiTextStyle drawingStyle() const;

    AcGePoint3d position_;
    AcGePoint3d alignment_;
    std::string text_;
    double height_ = 0.0;
    double rotation_ = 0.0;
    double widthFactor_ = 1.0;
    double oblique_ = 0.0;
    double thickness_ = 0.0;
    AcGeVector3d normal_ = AcGeVector3d::kZAxis;
    Adesk::Int16 generation_ = 0;  ///< bit 2 backward, bit 4 upside down
    AcDb::TextHorzMode horizontalMode_ = AcDb::kTextLeft;
    AcDb::TextVertMode verticalMode_ = AcDb::kTextBase;
    AcDbObjectId style_;
};
