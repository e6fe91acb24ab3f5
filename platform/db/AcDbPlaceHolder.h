#pragma once

#include "platform/db/AcDbObject.h"

/// An object without fields, to have something to name.
class AcDbPlaceHolder : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbPlaceHolder);
    AcDbPlaceHolder() = default;
};
