// Plot settings and layouts.
#include "platform/db/AcDbLayout.h"
#include "platform/dwg/codec/codec_of.h"
#include "platform/dwg/codec/codecs.h"

template <>
struct DwgFields<AcDbPlotSettings> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& p) {
        v(p.pageSetup_, p.printer_, p.flags_, p.leftMargin_, p.bottomMargin_, p.rightMargin_,
          p.topMargin_, p.paperWidth_, p.paperHeight_, p.media_);
        v.bitPoint(p.plotOrigin_);
        v(p.paperUnits_, p.rotation_, p.plotType_);
        v.bitPoint(p.windowMin_, p.windowMax_);
        v(p.viewName_, p.scaleNumerator_, p.scaleDenominator_, p.styleSheet_, p.standardScale_,
          p.standardScaleFactor_);
        v.bitPoint(p.imageOrigin_);
    }
};

template <>
struct DwgFields<AcDbLayout> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& l) {
        DwgFields<AcDbPlotSettings>::fields(v, l);
        v(l.name_, l.tabOrder_, l.layoutFlags_, l.insertionBase_, l.limitsMin_, l.limitsMax_,
          l.ucsOrigin_, l.ucsXAxis_, l.ucsYAxis_, l.ucsElevation_, l.ucsOrthographicView_,
          l.extentsMin_, l.extentsMax_);
        v.softPointers(l.block_, l.activeViewport_);
        v.hardPointers(l.ucsBase_, l.ucsName_);
    }
};

void AddLayoutCodecs(std::vector<DwgCodec>& codecs) {
    codecs.push_back(CodecOf<AcDbPlotSettings>(DatabaseClass("AcDbPlotSettings", "PLOTSETTINGS")));
    codecs.push_back(CodecOf<AcDbLayout>(DatabaseClass("AcDbLayout", "LAYOUT")));
}
