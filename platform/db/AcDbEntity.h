#pragma once

#include <cstdint>
#include <vector>

#include "platform/db/AcCmColor.h"
#include "platform/db/AcDb.h"
#include "platform/db/AcDbExtents.h"
#include "platform/db/AcDbObject.h"
#include "platform/ge/AcGeMatrix3d.h"
#include "platform/ge/AcGePoint3d.h"

class AcGiSubEntityTraits;
class AcGiWorldDraw;

/// An object that is drawn.
class AcDbEntity : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbEntity);

    Adesk::UInt16 colorIndex() const { return color_.colorIndex(); }
    AcCmColor color() const { return color_; }
    /// `doSubents` also reaches parts of the entity; the layer's own entities have none.
    virtual Acad::ErrorStatus setColor(const AcCmColor& color, Adesk::Boolean doSubents = true);
    /// eInvalidIndex, and no change, above 257.
    virtual Acad::ErrorStatus setColorIndex(Adesk::UInt16 index, Adesk::Boolean doSubents = true);

    /// Null until set, or until the entity is appended and takes the drawing's current layer.
    AcDbObjectId layerId() const { return layerId_; }
    /// This and setLinetype: eNullObjectId, or eWrongDatabase when the entity is in another
    /// drawing.
    virtual Acad::ErrorStatus setLayer(AcDbObjectId layer, Adesk::Boolean doSubents = true);
    AcDbObjectId linetypeId() const { return linetypeId_; }
    Acad::ErrorStatus setLinetype(AcDbObjectId linetype, Adesk::Boolean doSubents = true);
    double linetypeScale() const { return linetypeScale_; }
    AcDb::Visibility visibility() const { return visibility_; }
    AcDb::LineWeight lineWeight() const;
    /// eInvalidInput, and no change, for a width that lines cannot have.
    Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight, Adesk::Boolean doSubents = true);

    /// Shows the entity as picked, and as usual again. Kept while the drawing is open, never filed.
    Acad::ErrorStatus highlight() const {
        highlighted_ = true;
        return Acad::eOk;
    }
    Acad::ErrorStatus unhighlight() const {
        highlighted_ = false;
        return Acad::eOk;
    }
    bool isHighlighted() const { return highlighted_; }

    /// Takes over colour, layer, linetype and the like from another entity.
    void copyProperties(const AcDbEntity& source);
    /// Gives layer, linetype and the like that are still unset the drawing's current values.
    /// Appending calls it.
    virtual void setDatabaseDefaults(AcDbDatabase* database);

    /// Tells a drawing context what the entity is drawn with. Whoever has an entity drawn does so
    /// before; what the entity then draws may differ in colour.
    void setTraits(AcGiSubEntityTraits& traits) const;
    /// Tells the entity's shape to a drawing context. True: nothing depends on the view. The
    /// layer's own entities start with their colour when they are in a drawing; a free one takes
    /// the traits in force, so that an entity can draw itself by means of others.
    virtual Adesk::Boolean worldDraw(AcGiWorldDraw* context);
    /// Draws the entity for proxy graphics.
    virtual void saveAs(AcGiWorldDraw* context, AcDb::SaveType type);
    /// Replaces `extents` by the box around what the entity draws. eDegenerateGeometry, and no
    /// change, when it has no extent of its own. Texts count with the estimate of width factor ×
    /// height a character, which is what the layouts count with.
    virtual Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const;

    virtual Acad::ErrorStatus getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                            AcDbIntArray& geomIds) const;
    virtual Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray& indices,
                                               const AcGeVector3d& offset);
    virtual Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform);
    /// Appends free simpler entities (AcDbEntity*) that the caller owns; eNotApplicable when
    /// there is nothing simpler.
    virtual Acad::ErrorStatus explode(AcDbVoidPtrArray& entitySet) const;
    /// Points the two entities share, in order along this one.
    virtual Acad::ErrorStatus intersectWith(const AcDbEntity* entity, AcDb::Intersect type,
                                            AcGePoint3dArray& points, int thisMarker = 0,
                                            int otherMarker = 0) const;

protected:
    AcDbEntity() = default;
    AcDbEntity(const AcDbEntity& other);
    void copyCommonData(const AcDbObject& other) override;
    /// What the layer's own entities start to draw with.
    void startDrawing(const AcGiWorldDraw& context) const;

private:
    template <class T>
    friend struct DwgFields;
    friend class AcDbDatabase;
    Acad::ErrorStatus setReference(AcDbObjectId& reference, AcDbObjectId id);
    void takeProperties(const AcDbEntity& source);

    AcCmColor color_;
    AcDbObjectId layerId_;
    AcDbObjectId linetypeId_;
    double linetypeScale_ = 1.0;
    AcDb::Visibility visibility_ = AcDb::kVisible;
    std::uint8_t lineWeight_ = 29;  ///< code of the file format
    mutable bool highlighted_ = false;
};
