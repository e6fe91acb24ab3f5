#pragma once

#include <vector>

#include "platform/db/AcDbEntity.h"
#include "platform/ge/AcGePoint3d.h"

/// A polyline in a plane whose segments may bulge and have widths. Indices count from 0.
class AcDbPolyline : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbPolyline);

    /// One vertex with the bulge and widths of the segment that starts at it.
    struct Vertex {
        AcGePoint2d point;
        double bulge = 0.0;
        double startWidth = 0.0;
        double endWidth = 0.0;
        friend bool operator==(const Vertex&, const Vertex&);
    };

    /// Inserts before `index` (0 to numVerts()); a width below 0 counts as 0. eInvalidIndex.
    Acad::ErrorStatus addVertexAt(unsigned index, const AcGePoint2d& point, double bulge = 0.0,
                                  double startWidth = -1.0, double endWidth = -1.0);
    unsigned numVerts() const { return static_cast<unsigned>(vertices_.size()); }
    const Vertex& vertexAt(unsigned index) const { return vertices_[index]; }
    bool isClosed() const { return closed_; }
    void setClosed(Adesk::Boolean closed);
    double elevation() const { return elevation_; }

    Adesk::Boolean worldDraw(AcGiWorldDraw* context) override;
    /// eNotApplicable for maps that do not scale the entity's plane evenly.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    /// A line a segment, widths dropped. eNotApplicable where a segment bulges.
    Acad::ErrorStatus explode(AcDbVoidPtrArray& entitySet) const override;
    std::unique_ptr<AcDbObject> clone() const override;

private:
    template <class T>
    friend struct DwgFields;
    /// Number of segments; segment i starts at vertex i.
    std::size_t segmentCount() const;

    std::vector<Vertex> vertices_;
    bool closed_ = false;
    bool linetypeGeneration_ = false;
    double constantWidth_ = 0.0;  ///< of files that keep one width for all segments; 0 otherwise
    double elevation_ = 0.0;
    double thickness_ = 0.0;
    AcGeVector3d normal_ = AcGeVector3d::kZAxis;
};
