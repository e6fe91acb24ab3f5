#include "platform/oledb/RowsetProperties.h"

#include <cstdio>

#include "platform/oledb/last_error.h"

namespace oledb {
namespace {

constexpr LONG kAllChanges = DBPROPVAL_UP_CHANGE | DBPROPVAL_UP_DELETE | DBPROPVAL_UP_INSERT;

bool IsFlag(const VARIANT& value) {
    return value.vt == VT_BOOL && (value.boolVal == VARIANT_TRUE || value.boolVal == VARIANT_FALSE);
}

HRESULT Refused(const DBPROP& property) {
    char text[96];
    std::snprintf(text, sizeof(text), "required row-set property 0x%X cannot be granted",
                  static_cast<unsigned>(property.dwPropertyID));
    return SetLastError(DB_E_ERRORSOCCURRED, text);
}

}  // namespace

DBPROPSTATUS RowsetProperties::Apply(const DBPROP& property) {
    const bool required = property.dwOptions == DBPROPOPTIONS_REQUIRED;
    if (!required && property.dwOptions != DBPROPOPTIONS_OPTIONAL) return DBPROPSTATUS_BADOPTION;
    if (property.colid != DB_NULLID) return DBPROPSTATUS_NOTSUPPORTED;
    switch (property.dwPropertyID) {
        case DBPROP_CANHOLDROWS:
        case DBPROP_CANFETCHBACKWARDS:
        case DBPROP_IRowsetScroll:
            // Rows are all at hand, so holding and moving both ways holds whether asked or not.
            return IsFlag(property.vValue) ? DBPROPSTATUS_OK : DBPROPSTATUS_BADVALUE;
        case DBPROP_IRowsetChange:
            if (!IsFlag(property.vValue)) return DBPROPSTATUS_BADVALUE;
            rowsetChange_ = property.vValue.boolVal == VARIANT_TRUE;
            changesRequired_ |= required && rowsetChange_;
            return DBPROPSTATUS_OK;
        case DBPROP_IRowsetUpdate:
            // Changes take effect at once; holding them back is not offered.
            if (!IsFlag(property.vValue)) return DBPROPSTATUS_BADVALUE;
            return property.vValue.boolVal == VARIANT_TRUE ? DBPROPSTATUS_NOTSUPPORTED
                                                           : DBPROPSTATUS_OK;
        case DBPROP_UPDATABILITY:
            if (property.vValue.vt != VT_I4 || (property.vValue.lVal & ~kAllChanges) != 0) {
                return DBPROPSTATUS_BADVALUE;
            }
            updatability_ = property.vValue.lVal;
            changesRequired_ |= required && updatability_ != 0;
            return DBPROPSTATUS_OK;
        default:
            return DBPROPSTATUS_NOTSUPPORTED;
    }
}

HRESULT RowsetProperties::Set(ULONG count, DBPROPSET* sets) {
    RowsetProperties wanted = *this;
    HRESULT result = S_OK;
    for (ULONG s = 0; s < count; ++s) {
        const bool known = sets[s].guidPropertySet == DBPROPSET_ROWSET;
        for (ULONG i = 0; i < sets[s].cProperties; ++i) {
            DBPROP& property = sets[s].rgProperties[i];
            property.dwStatus = known ? wanted.Apply(property) : DBPROPSTATUS_NOTSUPPORTED;
            if (property.dwStatus == DBPROPSTATUS_OK || FAILED(result)) continue;
            const bool optional = property.dwOptions == DBPROPOPTIONS_OPTIONAL;
            result = optional ? DB_S_ERRORSOCCURRED : Refused(property);
        }
    }
    if (SUCCEEDED(result)) *this = wanted;
    return result;
}

}  // namespace oledb
