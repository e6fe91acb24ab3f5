#pragma once

#include <array>
#include <string>

#include "platform/db/AcCmColor.h"
#include "platform/db/AcDbObjectId.h"
#include "platform/db/DimensionVariables.h"
#include "platform/ge/AcGePoint3d.h"

/// A moment, or a span, as drawings keep it: days (of the Julian calendar count for a moment) and
/// milliseconds of the day.
struct DrawingTime {
    Adesk::Int32 days = 0;
    Adesk::Int32 milliseconds = 0;
    friend bool operator==(DrawingTime, DrawingTime) = default;
};

/// Origins of the six orthographic views relative to a coordinate system.
struct OrthographicOrigins {
    AcGePoint3d top;
    AcGePoint3d bottom;
    AcGePoint3d left;
    AcGePoint3d right;
    AcGePoint3d front;
    AcGePoint3d back;
};

/// What a drawing's header holds beside its objects, under the published names of the variables.
/// The defaults are those of a new drawing in millimetres; ids are null until the drawing is built.
struct HeaderVariables : DimensionVariables {
    /// Four conversion factors and names of units that no program is known to use.
    std::array<double, 4> unitFactors{412148564080.0, 1.0, 1.0, 1.0};
    std::array<std::string, 4> unitNames;
    Adesk::Int32 unknown8 = 24;
    Adesk::Int32 unknown9 = 0;
    AcDbObjectId currentViewportHeader;

    bool DIMASO = true;
    bool DIMSHO = true;
    bool PLINEGEN = false;
    bool ORTHOMODE = false;
    bool REGENMODE = true;
    bool FILLMODE = true;
    bool QTEXTMODE = false;
    bool PSLTSCALE = true;
    bool LIMCHECK = false;
    bool USRTIMER = true;
    bool SKPOLY = false;
    bool ANGDIR = false;
    bool SPLFRAME = false;
    bool MIRRTEXT = true;
    bool WORLDVIEW = true;
    bool TILEMODE = true;
    bool PLIMCHECK = false;
    bool VISRETAIN = true;
    bool DISPSILH = false;
    bool PELLIPSE = false;
    Adesk::Int16 PROXYGRAPHICS = 1;
    Adesk::Int16 TREEDEPTH = 3020;
    Adesk::Int16 LUNITS = 2;
    Adesk::Int16 LUPREC = 4;
    Adesk::Int16 AUNITS = 0;
    Adesk::Int16 AUPREC = 0;
    Adesk::Int16 ATTMODE = 1;
    Adesk::Int16 PDMODE = 0;
    Adesk::Int16 USERI1 = 0;
    Adesk::Int16 USERI2 = 0;
    Adesk::Int16 USERI3 = 0;
    Adesk::Int16 USERI4 = 0;
    Adesk::Int16 USERI5 = 0;
    Adesk::Int16 SPLINESEGS = 8;
    Adesk::Int16 SURFU = 6;
    Adesk::Int16 SURFV = 6;
    Adesk::Int16 SURFTYPE = 6;
    Adesk::Int16 SURFTAB1 = 6;
    Adesk::Int16 SURFTAB2 = 6;
    Adesk::Int16 SPLINETYPE = 6;
    Adesk::Int16 SHADEDGE = 3;
    Adesk::Int16 SHADEDIF = 70;
    Adesk::Int16 UNITMODE = 0;
    Adesk::Int16 MAXACTVP = 64;
    Adesk::Int16 ISOLINES = 4;
    Adesk::Int16 CMLJUST = 0;
    Adesk::Int16 TEXTQLTY = 50;
    double LTSCALE = 1.0;
    double TEXTSIZE = 2.5;
    double TRACEWID = 1.0;
    double SKETCHINC = 1.0;
    double FILLETRAD = 0.0;
    double THICKNESS = 0.0;
    double ANGBASE = 0.0;
    double PDSIZE = 0.0;
    double PLINEWID = 0.0;
    double USERR1 = 0.0;
    double USERR2 = 0.0;
    double USERR3 = 0.0;
    double USERR4 = 0.0;
    double USERR5 = 0.0;
    double CHAMFERA = 0.0;
    double CHAMFERB = 0.0;
    double CHAMFERC = 0.0;
    double CHAMFERD = 0.0;
    double FACETRES = 0.5;
    double CMLSCALE = 20.0;
    double CELTSCALE = 1.0;
    std::string MENU = ".";
    DrawingTime TDCREATE;
    DrawingTime TDUPDATE;
    DrawingTime TDINDWG;
    DrawingTime TDUSRTIMER;
    AcCmColor CECOLOR;
    AcDbHandle HANDSEED = 1;  ///< above every handle ever given
    AcDbObjectId CLAYER;
    AcDbObjectId TEXTSTYLE;
    AcDbObjectId CELTYPE;
    AcDbObjectId DIMSTYLE;
    AcDbObjectId CMLSTYLE;
    double PSVPSCALE = 0.0;

    AcGePoint3d PINSBASE;
    AcGePoint3d PEXTMIN{1e20, 1e20, 1e20};
    AcGePoint3d PEXTMAX{-1e20, -1e20, -1e20};
    AcGePoint2d PLIMMIN;
    AcGePoint2d PLIMMAX{420.0, 297.0};
    double PELEVATION = 0.0;
    AcGePoint3d PUCSORG;
    AcGeVector3d PUCSXDIR{1.0, 0.0, 0.0};
    AcGeVector3d PUCSYDIR{0.0, 1.0, 0.0};
    AcDbObjectId PUCSNAME;
    AcDbObjectId PUCSORTHOREF;
    Adesk::Int16 PUCSORTHOVIEW = 0;
    AcDbObjectId PUCSBASE;
    OrthographicOrigins PUCSORGS;  ///< PUCSORGTOP, …BOTTOM, …LEFT, …RIGHT, …FRONT, …BACK

    AcGePoint3d INSBASE;
    AcGePoint3d EXTMIN{1e20, 1e20, 1e20};
    AcGePoint3d EXTMAX{-1e20, -1e20, -1e20};
    AcGePoint2d LIMMIN;
    AcGePoint2d LIMMAX{420.0, 297.0};
    double ELEVATION = 0.0;
    AcGePoint3d UCSORG;
    AcGeVector3d UCSXDIR{1.0, 0.0, 0.0};
    AcGeVector3d UCSYDIR{0.0, 1.0, 0.0};
    AcDbObjectId UCSNAME;
    AcDbObjectId UCSORTHOREF;
    Adesk::Int16 UCSORTHOVIEW = 0;
    AcDbObjectId UCSBASE;
    OrthographicOrigins UCSORGS;  ///< UCSORGTOP, …BOTTOM, …LEFT, …RIGHT, …FRONT, …BACK

    AcDbObjectId BLOCK_CONTROL_OBJECT;
    AcDbObjectId LAYER_CONTROL_OBJECT;
    AcDbObjectId STYLE_CONTROL_OBJECT;
    AcDbObjectId LTYPE_CONTROL_OBJECT;
    AcDbObjectId VIEW_CONTROL_OBJECT;
    AcDbObjectId UCS_CONTROL_OBJECT;
    AcDbObjectId VPORT_CONTROL_OBJECT;
    AcDbObjectId APPID_CONTROL_OBJECT;
    AcDbObjectId DIMSTYLE_CONTROL_OBJECT;
    AcDbObjectId VX_CONTROL_OBJECT;  ///< the table of viewport entity headers
    AcDbObjectId DICTIONARY_ACAD_GROUP;
    AcDbObjectId DICTIONARY_ACAD_MLINESTYLE;
    AcDbObjectId DICTIONARY_NAMED_OBJECTS;
    Adesk::Int16 TSTACKALIGN = 1;
    Adesk::Int16 TSTACKSIZE = 70;
    std::string HYPERLINKBASE;
    std::string STYLESHEET;
    AcDbObjectId DICTIONARY_LAYOUTS;
    AcDbObjectId DICTIONARY_PLOTSETTINGS;
    AcDbObjectId DICTIONARY_PLOTSTYLES;
    /// Packed: CELWEIGHT 0x1f (code of the file format), ENDCAPS 0x60, JOINSTYLE 0x180, LWDISPLAY
    /// off 0x200, XEDIT off 0x400, EXTNAMES 0x800, PSTYLEMODE 0x2000, OLESTARTUP 0x4000.
    Adesk::Int32 FLAGS = 0x2a1d;
    Adesk::Int16 INSUNITS = 4;
    Adesk::Int16 CEPSNTYPE = 0;
    AcDbObjectId CPSNID;  ///< in the file only when CEPSNTYPE is 3
    std::string FINGERPRINTGUID;
    std::string VERSIONGUID;
    AcDbObjectId BLOCK_RECORD_PAPER_SPACE;
    AcDbObjectId BLOCK_RECORD_MODEL_SPACE;
    AcDbObjectId LTYPE_BYLAYER;
    AcDbObjectId LTYPE_BYBLOCK;
    AcDbObjectId LTYPE_CONTINUOUS;
    std::array<Adesk::Int16, 4> unknown54{};

    // Kept elsewhere in the file.
    Adesk::Int16 MEASUREMENT = 1;  ///< 0 inches, 1 metric
    Adesk::Int16 DWGCODEPAGE =
        39;  ///< number in the file format of the texts' code page: 39 is 936

    /// Tells the variables to a visitor in the order of the file: reading and writing use this one
    /// list. `v(…)` takes values, `v.hardPointers(…)` and `v.hardOwners(…)` ids, `v.handleSeed` the
    /// seed. `Self` is this struct, const for writing.
    template <class Visitor, class Self>
    static void fields(Visitor& v, Self& h) {
        generalFields(v, h);
        spaceFields(v, h);
        dimensionFields(v, h);
        objectFields(v, h);
    }

private:
    template <class Visitor, class Self>
    static void generalFields(Visitor& v, Self& h) {
        v(h.unitFactors[0], h.unitFactors[1], h.unitFactors[2], h.unitFactors[3], h.unitNames[0],
          h.unitNames[1], h.unitNames[2], h.unitNames[3], h.unknown8, h.unknown9);
        v.hardPointers(h.currentViewportHeader);
        v(h.DIMASO, h.DIMSHO, h.PLINEGEN, h.ORTHOMODE, h.REGENMODE, h.FILLMODE, h.QTEXTMODE,
          h.PSLTSCALE, h.LIMCHECK, h.USRTIMER, h.SKPOLY, h.ANGDIR, h.SPLFRAME, h.MIRRTEXT,
          h.WORLDVIEW, h.TILEMODE, h.PLIMCHECK, h.VISRETAIN, h.DISPSILH, h.PELLIPSE);
        v(h.PROXYGRAPHICS, h.TREEDEPTH, h.LUNITS, h.LUPREC, h.AUNITS, h.AUPREC, h.ATTMODE, h.PDMODE,
          h.USERI1, h.USERI2, h.USERI3, h.USERI4, h.USERI5, h.SPLINESEGS, h.SURFU, h.SURFV,
          h.SURFTYPE, h.SURFTAB1, h.SURFTAB2, h.SPLINETYPE, h.SHADEDGE, h.SHADEDIF, h.UNITMODE,
          h.MAXACTVP, h.ISOLINES, h.CMLJUST, h.TEXTQLTY);
        v(h.LTSCALE, h.TEXTSIZE, h.TRACEWID, h.SKETCHINC, h.FILLETRAD, h.THICKNESS, h.ANGBASE,
          h.PDSIZE, h.PLINEWID, h.USERR1, h.USERR2, h.USERR3, h.USERR4, h.USERR5, h.CHAMFERA,
          h.CHAMFERB, h.CHAMFERC, h.CHAMFERD, h.FACETRES, h.CMLSCALE, h.CELTSCALE, h.MENU);
        v(h.TDCREATE, h.TDUPDATE, h.TDINDWG, h.TDUSRTIMER, h.CECOLOR);
        v.handleSeed(h.HANDSEED);
        v.hardPointers(h.CLAYER, h.TEXTSTYLE, h.CELTYPE, h.DIMSTYLE, h.CMLSTYLE);
        v(h.PSVPSCALE);
    }

    template <class Visitor, class Self>
    static void spaceFields(Visitor& v, Self& h) {
        v(h.PINSBASE, h.PEXTMIN, h.PEXTMAX, h.PLIMMIN, h.PLIMMAX, h.PELEVATION, h.PUCSORG,
          h.PUCSXDIR, h.PUCSYDIR);
        v.hardPointers(h.PUCSNAME, h.PUCSORTHOREF);
        v(h.PUCSORTHOVIEW);
        v.hardPointers(h.PUCSBASE);
        originFields(v, h.PUCSORGS);
        v(h.INSBASE, h.EXTMIN, h.EXTMAX, h.LIMMIN, h.LIMMAX, h.ELEVATION, h.UCSORG, h.UCSXDIR,
          h.UCSYDIR);
        v.hardPointers(h.UCSNAME, h.UCSORTHOREF);
        v(h.UCSORTHOVIEW);
        v.hardPointers(h.UCSBASE);
        originFields(v, h.UCSORGS);
    }

    template <class Visitor, class Origins>
    static void originFields(Visitor& v, Origins& o) {
        v(o.top, o.bottom, o.left, o.right, o.front, o.back);
    }

    template <class Visitor, class Self>
    static void objectFields(Visitor& v, Self& h) {
        v.hardOwners(h.BLOCK_CONTROL_OBJECT, h.LAYER_CONTROL_OBJECT, h.STYLE_CONTROL_OBJECT,
                     h.LTYPE_CONTROL_OBJECT, h.VIEW_CONTROL_OBJECT, h.UCS_CONTROL_OBJECT,
                     h.VPORT_CONTROL_OBJECT, h.APPID_CONTROL_OBJECT, h.DIMSTYLE_CONTROL_OBJECT,
                     h.VX_CONTROL_OBJECT);
        v.hardPointers(h.DICTIONARY_ACAD_GROUP, h.DICTIONARY_ACAD_MLINESTYLE);
        v.hardOwners(h.DICTIONARY_NAMED_OBJECTS);
        v(h.TSTACKALIGN, h.TSTACKSIZE, h.HYPERLINKBASE, h.STYLESHEET);
        v.hardPointers(h.DICTIONARY_LAYOUTS, h.DICTIONARY_PLOTSETTINGS, h.DICTIONARY_PLOTSTYLES);
        v(h.FLAGS, h.INSUNITS, h.CEPSNTYPE);
        if (h.CEPSNTYPE == 3) {
            v.hardPointers(h.CPSNID);
        }
        v(h.FINGERPRINTGUID, h.VERSIONGUID);
        v.hardPointers(h.BLOCK_RECORD_PAPER_SPACE, h.BLOCK_RECORD_MODEL_SPACE, h.LTYPE_BYLAYER,
                       h.LTYPE_BYBLOCK, h.LTYPE_CONTINUOUS);
        v(h.unknown54[0], h.unknown54[1], h.unknown54[2], h.unknown54[3]);
    }
};

/// Today in local time as drawings note it: the day only, so that a drawing made twice on a day is
/// the same file.
DrawingTime CurrentDrawingDay();
