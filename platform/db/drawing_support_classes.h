#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/db/AcCmColor.h"
#include "platform/db/AcDbEntity.h"
#include "platform/db/AcDbObject.h"
#include "platform/db/AcDbSymbolTable.h"
#include "platform/db/DimensionVariables.h"
#include "platform/ge/AcGePoint3d.h"

/// The name of an application that attaches data to objects.
class AcDbRegAppTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbRegAppTableRecord);
    AcDbRegAppTableRecord() = default;

private:
    template <class T>
    friend struct DwgFields;
    std::uint8_t flags_ = 0;
};

/// The table of application names; "ACAD" is always there.
class AcDbRegAppTable : public AcDbSymbolTable {
public:
    ACRX_DECLARE_MEMBERS(AcDbRegAppTable);
};

/// Lists a viewport of paper space and whether it is on.
class AcDbVXTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbVXTableRecord);
    AcDbVXTableRecord() = default;

private:
    template <class T>
    friend struct DwgFields;
    bool on_ = false;
    AcDbObjectId viewport_;
    AcDbObjectId previous_;
};

/// The table of viewport entity headers.
class AcDbVXTable : public AcDbSymbolTable {
public:
    ACRX_DECLARE_MEMBERS(AcDbVXTable);
};

/// A named coordinate system.
class AcDbUCSTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbUCSTableRecord);
    AcDbUCSTableRecord() = default;

private:
    template <class T>
    friend struct DwgFields;
    /// Origin of one orthographic view relative to the system.
    struct ViewOrigin {
        Adesk::Int16 view = 0;
        AcGePoint3d origin;
    };
    AcGePoint3d origin_;
    AcGeVector3d xAxis_{1.0, 0.0, 0.0};
    AcGeVector3d yAxis_{0.0, 1.0, 0.0};
    double elevation_ = 0.0;
    Adesk::Int16 orthographicView_ = 0;
    AcDbObjectId base_;
    AcDbObjectId named_;
    std::vector<ViewOrigin> viewOrigins_;
};

/// The table of named coordinate systems.
class AcDbUCSTable : public AcDbSymbolTable {
public:
    ACRX_DECLARE_MEMBERS(AcDbUCSTable);
};

/// A named view.
class AcDbViewTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbViewTableRecord);
    AcDbViewTableRecord() = default;

private:
    template <class T>
    friend struct DwgFields;
    double height_ = 1.0;
    double width_ = 1.0;
    AcGePoint2d center_;
    AcGePoint3d target_;
    AcGeVector3d direction_{0.0, 0.0, 1.0};
    double twist_ = 0.0;
    double lensLength_ = 50.0;
    double frontClip_ = 0.0;
    double backClip_ = 0.0;
    std::uint8_t viewMode_ = 0;  ///< four bits, as of a viewport
    std::uint8_t renderMode_ = 0;
    bool ofPaperSpace_ = false;
    bool hasUcs_ = false;  ///< only then the fields below are filed
    AcGePoint3d ucsOrigin_;
    AcGeVector3d ucsXAxis_{1.0, 0.0, 0.0};
    AcGeVector3d ucsYAxis_{0.0, 1.0, 0.0};
    double ucsElevation_ = 0.0;
    Adesk::Int16 ucsOrthographicView_ = 0;
    AcDbObjectId ucsBase_;
    AcDbObjectId ucsName_;
};

/// The table of named views.
class AcDbViewTable : public AcDbSymbolTable {
public:
    ACRX_DECLARE_MEMBERS(AcDbViewTable);
};

/// A tiled viewport of model space: the view it shows and its drawing aids. "*Active" is what is
/// seen when the drawing is opened.
class AcDbViewportTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbViewportTableRecord);
    AcDbViewportTableRecord() = default;

    AcGePoint2d centerPoint() const { return center_; }
    double height() const { return height_; }
    double width() const { return width_; }

private:
    template <class T>
    friend struct DwgFields;
    friend class AcDbDatabase;
    double height_ = 297.0;
    double width_ = 420.0;
    AcGePoint2d center_{210.0, 148.5};
    AcGePoint3d target_;
    AcGeVector3d direction_{0.0, 0.0, 1.0};
    double twist_ = 0.0;
    double lensLength_ = 50.0;
    double frontClip_ = 0.0;
    double backClip_ = 0.0;
    std::uint8_t viewMode_ = 0;  ///< four bits: perspective, front clip, back clip, clip at the eye
    std::uint8_t renderMode_ = 0;
    AcGePoint2d lowerLeft_;
    AcGePoint2d upperRight_{1.0, 1.0};
    bool ucsFollow_ = false;
    Adesk::Int16 circleSides_ = 1000;
    bool fastZoom_ = true;
    std::uint8_t iconMode_ = 3;
    bool gridOn_ = false;
    AcGePoint2d gridSpacing_{10.0, 10.0};
    bool snapOn_ = false;
    bool snapIsometric_ = false;
    Adesk::Int16 snapPair_ = 0;
    double snapAngle_ = 0.0;
    AcGePoint2d snapBase_;
    AcGePoint2d snapSpacing_{10.0, 10.0};
    bool ucsAtOrigin_ = false;
    bool ucsPerViewport_ = true;
    AcGePoint3d ucsOrigin_;
    AcGeVector3d ucsXAxis_{1.0, 0.0, 0.0};
    AcGeVector3d ucsYAxis_{0.0, 1.0, 0.0};
    double ucsElevation_ = 0.0;
    Adesk::Int16 ucsOrthographicView_ = 0;
    AcDbObjectId ucsName_;
    AcDbObjectId ucsBase_;
};

/// The table of tiled viewports; several may be named "*Active".
class AcDbViewportTable : public AcDbSymbolTable {
public:
    ACRX_DECLARE_MEMBERS(AcDbViewportTable);
};

/// A dimension style: one set of dimension variables.
class AcDbDimStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbDimStyleTableRecord);
    AcDbDimStyleTableRecord() = default;

    const DimensionVariables& variables() const { return variables_; }
    std::unique_ptr<AcDbObject> clone() const override;

private:
    template <class T>
    friend struct DwgFields;
    friend class AcDbDatabase;
    DimensionVariables variables_;
    bool flag_ = false;  ///< of no known meaning
};

/// The table of dimension styles.
class AcDbDimStyleTable : public AcDbSymbolTable {
public:
    ACRX_DECLARE_MEMBERS(AcDbDimStyleTable);

private:
    template <class T>
    friend struct DwgFields;
    AcDbObjectIdArray furtherStyles_;  ///< named a second time by some programs
};

/// A style of multiple lines.
class AcDbMlineStyle : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbMlineStyle);
    AcDbMlineStyle() = default;

private:
    template <class T>
    friend struct DwgFields;
    friend class AcDbDatabase;
    /// One of the parallel lines.
    struct Element {
        double offset = 0.0;
        AcCmColor color;
        Adesk::Int16 linetypeIndex = kByLayerLinetype;
    };
    static constexpr Adesk::Int16 kByLayerLinetype = 32767;

    std::string name_;
    std::string description_;
    Adesk::Int16 flags_ = 0;
    AcCmColor fillColor_;
    double startAngle_ = 1.57079632679489662;
    double endAngle_ = 1.57079632679489662;
    std::vector<Element> elements_;
};

/// An object without fields, to have something to name.
class AcDbPlaceHolder : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbPlaceHolder);
    AcDbPlaceHolder() = default;
};

/// Opens a block definition in drawing files; stands before its entities, not among them.
class AcDbBlockBegin : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockBegin);
    AcDbBlockBegin() = default;
    explicit AcDbBlockBegin(std::string name) : name_(std::move(name)) {}

    /// The block's name; unlike the record's own it tells several paper spaces apart.
    const char* name() const { return name_.c_str(); }

private:
    template <class T>
    friend struct DwgFields;
    std::string name_;
};

/// Closes a block definition.
class AcDbBlockEnd : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockEnd);
    AcDbBlockEnd() = default;
};
