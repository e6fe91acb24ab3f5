#pragma once

class AcDbEntity;

namespace host {

/// Has a changed entity draw itself once, as a screen would: entities may bring themselves up to
/// date when they are drawn, and must have done so before the next command also where nobody looks.
void Redraw(AcDbEntity& entity);

}  // namespace host
