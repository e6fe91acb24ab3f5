#pragma once

#include <memory>

#include "src/chart/CDrawTools.h"

/// Appends the entity to the target, or to the working drawing for null; one that is refused is
/// destroyed.
void AppendOrDrop(const CDrawTools& tools, AcDbDatabase* target,
                  std::unique_ptr<AcDbEntity> entity);
