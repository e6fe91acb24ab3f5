#pragma once

#include <cstddef>

#include "platform/ge/AcGePoint3d.h"
#include "platform/gi/AcGiTextStyle.h"
#include "platform/rx/Acad.h"

class AcDbObjectId;

/// Properties of what is drawn next.
class AcGiSubEntityTraits {
public:
    virtual ~AcGiSubEntityTraits() = default;
    /// Colour index: 0 by block, 1 to 255, 256 by layer, 257 none of its own (drawn as by layer).
    virtual void setColor(Adesk::UInt16 colorIndex) = 0;
    /// Number by which a selection tells the parts of an entity apart.
    virtual void setSelectionMarker(Adesk::Int32 marker) = 0;
    /// Layer of what is drawn next, which decides whether it is seen and printed. What is "by
    /// layer" follows the entity that the context draws as a whole, also where its parts stand on
    /// other layers.
    virtual void setLayer(const AcDbObjectId& /*layer*/) {}
    /// Null and the record "ByLayer" mean by layer.
    virtual void setLineType(const AcDbObjectId& /*linetype*/) {}
    /// Factor of the lengths of a line type, on top of the drawing's own.
    virtual void setLineTypeScale(double /*scale*/) {}
    /// Hundredths of a millimetre of paper, -1 by layer, -2 by block, -3 the default.
    virtual void setLineWeight(Adesk::Int16 /*lineWeight*/) {}
};

/// The shapes a drawing context takes, in world coordinates. Every shape takes the traits in force.
class AcGiWorldGeometry {
public:
    virtual ~AcGiWorldGeometry() = default;

    virtual Adesk::Boolean polyline(Adesk::UInt32 nbPoints, const AcGePoint3d* points) = 0;
    /// A closed area, filled.
    virtual Adesk::Boolean polygon(Adesk::UInt32 nbPoints, const AcGePoint3d* points) = 0;
    virtual Adesk::Boolean circle(const AcGePoint3d& center, double radius,
                                  const AcGeVector3d& normal) = 0;
    /// Arc from `startAngle`, counter-clockwise by `sweepAngle` radians, in the plane z = const.
    virtual Adesk::Boolean circularArc(const AcGePoint3d& center, double radius, double startAngle,
                                       double sweepAngle) = 0;
    /// A line with a width at either end (drawing units), filled.
    virtual Adesk::Boolean wideLine(const AcGePoint3d& start, const AcGePoint3d& end,
                                    double startWidth, double endWidth) = 0;
    /// Text in GBK from its left end on the baseline. `length` is in bytes, -1 for the whole
    /// string; `raw` true takes "%%" codes as they stand.
    virtual Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal,
                                const AcGeVector3d& direction, const char* message,
                                Adesk::Int32 length, Adesk::Boolean raw,
                                const AcGiTextStyle& style) = 0;
};

/// What an error of drawing is asked for.
enum AcGiDeviationType { kAcGiMaxDevForCircle, kAcGiMaxDevForCurve };

/// A drawing context: the screen, a plot, proxy graphics, a test's recorder.
class AcGiWorldDraw {
public:
    virtual ~AcGiWorldDraw() = default;
    /// True while an entity is drawn as the image of a drag.
    virtual Adesk::Boolean isDragging() const { return false; }
    /// Asked before each step of what may be long (an entity of a block, a line of a pattern): true
    /// when nothing more is to be drawn, as the person has given up or a file makes more than
    /// anybody draws of the little that it holds.
    virtual Adesk::Boolean regenAbort() const { return false; }
    /// How far from the true course the chords of a curve near `point` may be, drawing units.
    virtual double deviation(AcGiDeviationType /*type*/, const AcGePoint3d& /*point*/) const {
        constexpr double kBelowWhatPrintsShow = 0.01;
        return kBelowWhatPrintsShow;
    }
    virtual AcGiWorldGeometry& geometry() const = 0;
    virtual AcGiSubEntityTraits& subEntityTraits() const = 0;
};

namespace gi {

/// Asks the context for each of as many steps as something long takes; false when it has had
/// enough. Blocks multiply one long shape as they do many short ones.
inline bool MayTakeSteps(const AcGiWorldDraw& context, std::size_t steps) {
    while (steps > 0 && !context.regenAbort()) {
        --steps;
    }
    return steps == 0;
}

}  // namespace gi
