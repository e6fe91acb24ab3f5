#include "host/redraw.h"

#include "platform/db/AcDbEntity.h"
#include "platform/gi/ExtentsWorldDraw.h"

namespace host {

// Nobody looks at what is measured: it stops in time where blocks multiply.
void Redraw(AcDbEntity& entity) {
    ExtentsWorldDraw unseen;
    entity.worldDraw(&unseen);
}

}  // namespace host
