// Tiled viewports and named views.
#include "platform/db/drawing_support_classes.h"
#include "platform/dwg/codec/codec_of.h"
#include "platform/dwg/codec/codecs.h"
#include "platform/dwg/codec/symbol_fields.h"

template <>
struct DwgFields<AcDbViewportTable> : DwgFields<AcDbSymbolTable> {};

template <>
struct DwgFields<AcDbViewportTableRecord> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& p) {
        DwgFields<AcDbSymbolTableRecord>::fields(v, p);
        v(p.height_, p.width_, p.center_, p.target_, p.direction_, p.twist_, p.lensLength_,
          p.frontClip_, p.backClip_);
        v.smallBits(p.viewMode_, 4);
        v(p.renderMode_, p.lowerLeft_, p.upperRight_, p.ucsFollow_, p.circleSides_, p.fastZoom_);
        v.smallBits(p.iconMode_, 2);
        v(p.gridOn_, p.gridSpacing_, p.snapOn_, p.snapIsometric_, p.snapPair_, p.snapAngle_,
          p.snapBase_, p.snapSpacing_);
        v(p.ucsAtOrigin_, p.ucsPerViewport_, p.ucsOrigin_, p.ucsXAxis_, p.ucsYAxis_,
          p.ucsElevation_, p.ucsOrthographicView_);
        v.hardPointers(p.ucsName_, p.ucsBase_);
    }
};

template <>
struct DwgFields<AcDbViewTable> : DwgFields<AcDbSymbolTable> {};

template <>
struct DwgFields<AcDbViewTableRecord> {
    template <class Visitor, class Object>
    static void fields(Visitor& v, Object& w) {
        DwgFields<AcDbSymbolTableRecord>::fields(v, w);
        v(w.height_, w.width_, w.center_, w.target_, w.direction_, w.twist_, w.lensLength_,
          w.frontClip_, w.backClip_);
        v.smallBits(w.viewMode_, 4);
        v(w.renderMode_, w.ofPaperSpace_, w.hasUcs_);
        if (w.hasUcs_) {
            v(w.ucsOrigin_, w.ucsXAxis_, w.ucsYAxis_, w.ucsElevation_, w.ucsOrthographicView_);
            v.hardPointers(w.ucsBase_, w.ucsName_);
        }
    }
};

void AddViewCodecs(std::vector<DwgCodec>& codecs) {
    codecs.push_back(CodecOf<AcDbViewTable>(60));
    codecs.push_back(CodecOf<AcDbViewTableRecord>(61));
    codecs.push_back(CodecOf<AcDbViewportTable>(64));
    codecs.push_back(CodecOf<AcDbViewportTableRecord>(65));
}
