#pragma once

#include "platform/ge/AcArray.h"
#include "platform/ge/AcGePoint3d.h"

using AcGePoint3dArray = AcArray<AcGePoint3d>;
