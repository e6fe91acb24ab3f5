// Class records and copies of the objects that a drawing has beside its entities, layers and
// styles.
#include <cmath>

#include "platform/db/AcDbLayout.h"
#include "platform/db/AcDbLinetypeTable.h"
#include "platform/db/drawing_support_classes.h"

namespace {
template <class T>
AcRxObject* make() {
    return new T;
}
}  // namespace

ACRX_DEFINE_MEMBERS(AcDbBlockBegin, AcDbEntity, make<AcDbBlockBegin>);
ACRX_DEFINE_MEMBERS(AcDbBlockEnd, AcDbEntity, make<AcDbBlockEnd>);
ACRX_DEFINE_MEMBERS(AcDbLinetypeTable, AcDbSymbolTable, make<AcDbLinetypeTable>);
ACRX_DEFINE_MEMBERS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord, make<AcDbLinetypeTableRecord>);
ACRX_DEFINE_MEMBERS(AcDbViewportTable, AcDbSymbolTable, make<AcDbViewportTable>);
ACRX_DEFINE_MEMBERS(AcDbViewportTableRecord, AcDbSymbolTableRecord, make<AcDbViewportTableRecord>);
ACRX_DEFINE_MEMBERS(AcDbViewTable, AcDbSymbolTable, make<AcDbViewTable>);
ACRX_DEFINE_MEMBERS(AcDbViewTableRecord, AcDbSymbolTableRecord, make<AcDbViewTableRecord>);
ACRX_DEFINE_MEMBERS(AcDbUCSTable, AcDbSymbolTable, make<AcDbUCSTable>);
ACRX_DEFINE_MEMBERS(AcDbUCSTableRecord, AcDbSymbolTableRecord, make<AcDbUCSTableRecord>);
ACRX_DEFINE_MEMBERS(AcDbRegAppTable, AcDbSymbolTable, make<AcDbRegAppTable>);
ACRX_DEFINE_MEMBERS(AcDbRegAppTableRecord, AcDbSymbolTableRecord, make<AcDbRegAppTableRecord>);
ACRX_DEFINE_MEMBERS(AcDbDimStyleTable, AcDbSymbolTable, make<AcDbDimStyleTable>);
ACRX_DEFINE_MEMBERS(AcDbDimStyleTableRecord, AcDbSymbolTableRecord, make<AcDbDimStyleTableRecord>);
ACRX_DEFINE_MEMBERS(AcDbVXTable, AcDbSymbolTable, make<AcDbVXTable>);
ACRX_DEFINE_MEMBERS(AcDbVXTableRecord, AcDbSymbolTableRecord, make<AcDbVXTableRecord>);
ACRX_DEFINE_MEMBERS(AcDbPlotSettings, AcDbObject, make<AcDbPlotSettings>);
ACRX_DEFINE_MEMBERS(AcDbLayout, AcDbPlotSettings, make<AcDbLayout>);
ACRX_DEFINE_MEMBERS(AcDbMlineStyle, AcDbObject, make<AcDbMlineStyle>);
ACRX_DEFINE_MEMBERS(AcDbPlaceHolder, AcDbObject, make<AcDbPlaceHolder>);

void AcDbLinetypeTableRecord::setDashLengths(const std::vector<double>& lengths) {
    assertWriteEnabled();
    dashes_.assign(lengths.size(), {});
    patternLength_ = 0.0;
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        dashes_[i].length = lengths[i];
        patternLength_ += std::abs(lengths[i]);
    }
}

std::unique_ptr<AcDbObject> AcDbLinetypeTableRecord::clone() const {
    return std::make_unique<AcDbLinetypeTableRecord>(*this);
}

std::unique_ptr<AcDbObject> AcDbDimStyleTableRecord::clone() const {
    return std::make_unique<AcDbDimStyleTableRecord>(*this);
}
