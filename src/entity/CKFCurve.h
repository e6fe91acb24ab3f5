#pragma once

#include <string>
#include <vector>

#include "platform/db/AcDbEntity.h"
#include "platform/db/AcDbSpline.h"
#include "src/core/GrainSizeRecord.h"
#include "src/core/curve_shape.h"
#include "src/core/number_format.h"
#include "src/facts/CurveFields.h"

/// One grading curve in a drawing: a smooth curve through its plotted points and the labels of the
/// values read off it. It knows the grid it was drawn in and the sample or layer it belongs to, and
/// reads its characteristic diameters off its own shape every time it is drawn. Texts are GBK.
class CKFCurve : public AcDbEntity {
public:
    /// Enters the class in the runtime registry; to be called when the module is loaded.
    static void rxInit();
    /// Takes the class record out of the registry and destroys it, at unload.
    static void rxRemove();
    /// The record found in the class dictionary; null before rxInit.
    static AcRxClass* desc();
    AcRxClass* isA() const override;

    /// `chartType` is the project's standard code: 2 gives the seven labels of the cumulative
    /// chart, any other the five of the result chart.
    void SetIdentity(Adesk::Int16 chartType, Adesk::Int16 projectIndex,
                     const std::string& projectNumber, const std::string& borehole,
                     const std::string& sample);
    /// As in CurveGrid; `textHeight` is that of the labels.
    void SetGrid(const AcGePoint3d& gridOrigin, Adesk::Int16 wideAxis, double decadeLength,
                 double gridWidth, double gridHeight, double textHeight);
    /// Replaces both lists; points run from the coarsest sieve to the finest, label points in the
    /// order of the labels.
    void SetPoints(const AcGePoint3dArray& curvePoints, const AcGePoint3dArray& labelPoints);
    /// Style of the texts that the labels become when the curve is exploded.
    void SetTextStyleId(AcDbObjectId textStyle);
    /// Numbers of the layer as decimal text; a text without leading digits gives 0.
    void SetLayerKey(const std::string& mainLayer, const std::string& subLayer);
    /// Reads the eight diameters off the curve. Where a level cannot be read, says so, leaves the
    /// remaining diameters out, and draws level (red) and curve (yellow) into the working drawing.
    void ComputeDiameters();
    /// Writes diameters and coefficients into the project database, to the place that ChartMode
    /// says. 1 done, 0 nothing could be written, 2 the database already has them. Whatever comes
    /// of it, the curve counts as stored afterwards.
    int StoreToDatabase();

    /// The text of a diameter or coefficient as labels and tables show it; the function of
    /// number_format.h under the name that the class has always offered it by.
    static std::string FormatResultValue(double value, ResultValueMode mode);
    void GetProjectKey(int& projectIndex, std::string& projectNumber) const;
    /// d95, d85, d60, d50, d30, d15, d10, d90 in mm, -1 where the curve misses the level. Shorter
    /// after an interrupted computation, empty before the first.
    const std::vector<double>& Diameters() const { return fields_.diameters; }
    /// True while the database does not have the curve's values.
    bool IsChanged() const { return fields_.modified; }

    Adesk::Boolean worldDraw(AcGiWorldDraw* context) override;
    /// Layer numbers only while layer charts are in work, but always for undo.
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    /// Also the colour of the labels. Always reaches sub-entities.
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 index, Adesk::Boolean doSubents = true) override;
    Acad::ErrorStatus setLayer(AcDbObjectId layer, Adesk::Boolean doSubents = true) override;
    /// One grip a plotted point, in their order; the labels have none.
    Acad::ErrorStatus getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                    AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray& indices,
                                       const AcGeVector3d& offset) override;
    /// Only maps that keep the direction of the x axis; eNotApplicable, and no change, for others.
    /// The grid stays where it is, so the diameters follow at the next drawing.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& transform) override;
    /// A state that counts as stored does so no more when the curve has stored other values since.
    void modifyUndone(const AcDbObject* object) override;
    /// A spline and a text for every label.
    Acad::ErrorStatus explode(AcDbVoidPtrArray& entitySet) const override;
    void saveAs(AcGiWorldDraw* context, AcDb::SaveType type) override;

private:
    static constexpr Adesk::UInt16 kCurveColor = 3;  // green
    static constexpr double kLabelWidthFactor = 0.7;

    CurveGrid Grid() const;
    /// What is drawn where CurveThrough gives a valid curve.
    AcDbSpline MakeSpline() const;
    /// Also reads the diameters anew.
    void DrawCurve(AcGiWorldDraw& context);
    void DrawLabels(AcGiWorldDraw& context) const;
    /// Texts of the value labels, in the order of the label points. Standard code 2 gives the seven
    /// bare values d95, d60, d50, d30, d10, Cu, Cc; any other the five "=" texts d60, Cu, d30, d10,
    /// Cc. A value that is not determined is empty, or "=" alone.
    std::vector<std::string> LabelTexts() const;
    /// The part of a record that is stored of the curve.
    GrainSizeRecord Record() const;

    CurveFields fields_;
};
