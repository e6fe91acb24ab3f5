#pragma once

#include <string>
#include <variant>
#include <vector>

#include "platform/db/AcDbEntity.h"
#include "platform/ge/AcGePoint3d.h"

/// An area filled by a pattern within boundary loops.
class AcDbHatch : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbHatch);

    enum HatchPatternType { kUserDefined = 0, kPreDefined = 1, kCustomDefined = 2 };
    /// Bits of a loop's type.
    enum HatchLoopType {
        kDefault = 0,
        kExternal = 1,
        kPolyline = 2,
        kDerived = 4,
        kOutermost = 16
    };

    struct LineEdge {
        AcGePoint2d start;
        AcGePoint2d end;
    };
    struct CircularArcEdge {
        AcGePoint2d center;
        double radius = 0.0;
        double startAngle = 0.0;
        double endAngle = 0.0;
        bool counterClockwise = true;
    };
    struct EllipticArcEdge {
        AcGePoint2d center;
        AcGePoint2d majorAxisEnd;  ///< relative to the centre
        double axisRatio = 1.0;
        double startAngle = 0.0;
        double endAngle = 0.0;
        bool counterClockwise = true;
    };
    struct SplineEdge {
        int degree = 3;
        bool rational = false;
        bool periodic = false;
        std::vector<double> knots;
        std::vector<AcGePoint2d> controlPoints;
        std::vector<double> weights;  ///< empty unless rational
    };
    using Edge = std::variant<LineEdge, CircularArcEdge, EllipticArcEdge, SplineEdge>;
    struct PolylineVertex {
        AcGePoint2d point;
        double bulge = 0.0;
    };
    /// Either edges or, for type bit kPolyline, vertices.
    struct Loop {
        int type = kDefault;
        std::vector<Edge> edges;
        std::vector<PolylineVertex> vertices;
        bool verticesHaveBulges = false;
        bool verticesClosed = true;
        AcDbObjectIdArray boundaryIds;
    };
    /// One family of lines of a pattern that is not solid.
    struct PatternLine {
        double angle = 0.0;
        AcGePoint2d base;
        AcGePoint2d offset;
        std::vector<double> dashes;
    };

    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    Acad::ErrorStatus setElevation(double elevation);
    Acad::ErrorStatus setAssociative(Adesk::Boolean associative);
    Acad::ErrorStatus setPattern(HatchPatternType type, const char* name);
    bool associative() const { return associative_; }
    bool isSolidFill() const { return solid_; }
    const char* patternName() const { return patternName_.c_str(); }

    /// Adds a loop bounded by the given objects of the hatch's drawing (circles); their geometry is
    /// taken by evaluateHatch. eInvalidInput when the list is empty.
    Acad::ErrorStatus appendLoop(int loopType, const AcDbObjectIdArray& boundaryIds);
    /// Takes the loops' geometry from their boundary objects. The argument (underestimate) has no
    /// effect on solid fills. eNotApplicable when a boundary is no circle or cannot be opened.
    Acad::ErrorStatus evaluateHatch(Adesk::Boolean underestimate = true);
    int numLoops() const { return static_cast<int>(loops_.size()); }
    const Loop& loopAt(int index) const { return loops_[static_cast<std::size_t>(index)]; }
    /// Appends the boundary objects of all loops; empty for a hatch that is not associative.
    Acad::ErrorStatus getAssocObjIds(AcDbObjectIdArray& ids) const;

    Adesk::Boolean worldDraw(AcGiWorldDraw* context) override;
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    /// Whether it is of circles, as dots are, that are surely within the box; far quicker to tell
    /// than its extents. For the layer's own rooms.
    bool isOfCirclesWithin(const AcDbExtents& box) const;
    /// eNotApplicable for maps that do not scale the entity's plane evenly.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    std::unique_ptr<AcDbObject> clone() const override;

private:
    template <class T>
    friend struct DwgFields;
    std::vector<std::vector<AcGePoint2d>> outlines() const;
    void drawSolid(const AcGiWorldDraw& context,
                   const std::vector<std::vector<AcGePoint2d>>& outlines) const;
    void drawPattern(const AcGiWorldDraw& context,
                     const std::vector<std::vector<AcGePoint2d>>& outlines) const;

    double elevation_ = 0.0;
    AcGeVector3d normal_ = AcGeVector3d::kZAxis;
    std::string patternName_;
    bool solid_ = false;
    bool associative_ = false;
    std::vector<Loop> loops_;
    Adesk::Int16 style_ = 0;
    HatchPatternType patternType_ = kPreDefined;
    double patternAngle_ = 0.0;
    double patternScale_ = 1.0;
    bool patternDouble_ = false;
    std::vector<PatternLine> patternLines_;
    double pixelSize_ = 0.0;
    std::vector<AcGePoint2d> seedPoints_;
};
