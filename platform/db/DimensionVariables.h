#pragma once

#include <string>

#include "platform/db/AcCmColor.h"
#include "platform/db/AcDbObjectId.h"

/// The dimension variables under their published names, as a drawing's header and every dimension
/// style hold them. The defaults are those of a drawing in millimetres.
struct DimensionVariables {
    std::string DIMPOST;
    std::string DIMAPOST;
    double DIMSCALE = 1.0;
    double DIMASZ = 2.5;
    double DIMEXO = 0.625;
    double DIMDLI = 3.75;
    double DIMEXE = 1.25;
    double DIMRND = 0.0;
    double DIMDLE = 0.0;
    double DIMTP = 0.0;
    double DIMTM = 0.0;
    bool DIMTOL = false;
    bool DIMLIM = false;
    bool DIMTIH = false;
    bool DIMTOH = false;
    bool DIMSE1 = false;
    bool DIMSE2 = false;
    Adesk::Int16 DIMTAD = 1;
    Adesk::Int16 DIMZIN = 8;
    Adesk::Int16 DIMAZIN = 0;
    double DIMTXT = 2.5;
    double DIMCEN = 2.5;
    double DIMTSZ = 0.0;
    double DIMALTF = 0.03937007874016;
    double DIMLFAC = 1.0;
    double DIMTVP = 0.0;
    double DIMTFAC = 1.0;
    double DIMGAP = 0.625;
    double DIMALTRND = 0.0;
    bool DIMALT = false;
    Adesk::Int16 DIMALTD = 3;
    bool DIMTOFL = true;
    bool DIMSAH = false;
    bool DIMTIX = false;
    bool DIMSOXD = false;
    AcCmColor DIMCLRD = colorByBlock();
    AcCmColor DIMCLRE = colorByBlock();
    AcCmColor DIMCLRT = colorByBlock();
    Adesk::Int16 DIMADEC = 0;
    Adesk::Int16 DIMDEC = 2;
    Adesk::Int16 DIMTDEC = 2;
    Adesk::Int16 DIMALTU = 2;
    Adesk::Int16 DIMALTTD = 3;
    Adesk::Int16 DIMAUNIT = 0;
    Adesk::Int16 DIMFRAC = 0;
    Adesk::Int16 DIMLUNIT = 2;
    Adesk::Int16 DIMDSEP = '.';
    Adesk::Int16 DIMTMOVE = 0;
    Adesk::Int16 DIMJUST = 0;
    bool DIMSD1 = false;
    bool DIMSD2 = false;
    Adesk::Int16 DIMTOLJ = 0;
    Adesk::Int16 DIMTZIN = 8;
    Adesk::Int16 DIMALTZ = 0;
    Adesk::Int16 DIMALTTZ = 0;
    bool DIMUPT = false;
    Adesk::Int16 DIMATFIT = 3;
    AcDbObjectId DIMTXSTY;
    AcDbObjectId DIMLDRBLK;
    AcDbObjectId DIMBLK;
    AcDbObjectId DIMBLK1;
    AcDbObjectId DIMBLK2;
    Adesk::Int16 DIMLWD = -2;
    Adesk::Int16 DIMLWE = -2;

    static AcCmColor colorByBlock() {
        AcCmColor color;
        (void)color.setColorIndex(AcCmColor::kByBlock);
        return color;
    }

    /// Tells the variables to a visitor in the order of the file, which header and style share.
    /// `Self` is this struct, const for writing.
    template <class Visitor, class Self>
    static void dimensionFields(Visitor& v, Self& d) {
        v(d.DIMPOST, d.DIMAPOST, d.DIMSCALE, d.DIMASZ, d.DIMEXO, d.DIMDLI, d.DIMEXE, d.DIMRND,
          d.DIMDLE, d.DIMTP, d.DIMTM, d.DIMTOL, d.DIMLIM, d.DIMTIH, d.DIMTOH, d.DIMSE1, d.DIMSE2,
          d.DIMTAD, d.DIMZIN, d.DIMAZIN, d.DIMTXT, d.DIMCEN, d.DIMTSZ, d.DIMALTF, d.DIMLFAC,
          d.DIMTVP, d.DIMTFAC, d.DIMGAP, d.DIMALTRND, d.DIMALT, d.DIMALTD, d.DIMTOFL, d.DIMSAH,
          d.DIMTIX, d.DIMSOXD, d.DIMCLRD, d.DIMCLRE, d.DIMCLRT, d.DIMADEC, d.DIMDEC, d.DIMTDEC,
          d.DIMALTU, d.DIMALTTD, d.DIMAUNIT, d.DIMFRAC, d.DIMLUNIT, d.DIMDSEP, d.DIMTMOVE,
          d.DIMJUST, d.DIMSD1, d.DIMSD2, d.DIMTOLJ, d.DIMTZIN, d.DIMALTZ, d.DIMALTTZ, d.DIMUPT,
          d.DIMATFIT);
        v.hardPointers(d.DIMTXSTY, d.DIMLDRBLK, d.DIMBLK, d.DIMBLK1, d.DIMBLK2);
        v(d.DIMLWD, d.DIMLWE);
    }
};
