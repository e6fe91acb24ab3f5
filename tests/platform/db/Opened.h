#pragma once

#include <memory>
#include <stdexcept>

#include "platform/db/AcDbBlockTable.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbEntity.h"
#include "platform/db/AcDbLayerTable.h"
#include "platform/db/HeaderVariables.h"

/// An object of a drawing, open while this lives. Throws when it does not open.
template <class T = AcDbEntity>
class Opened {
public:
    explicit Opened(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForWrite) {
        if (acdbOpenObject(object_, id, mode) != Acad::eOk) {
            throw std::runtime_error("an object does not open");
        }
    }
    ~Opened() { object_->close(); }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }

private:
    T* object_ = nullptr;
};

/// Appends an entity to model space and closes it.
inline AcDbObjectId AppendTo(AcDbDatabase& drawing, std::unique_ptr<AcDbEntity> entity) {
    const Opened<AcDbBlockTableRecord> space(drawing.header().BLOCK_RECORD_MODEL_SPACE);
    AcDbObjectId id;
    if (space->appendAcDbEntity(id, entity.get()) != Acad::eOk) {
        throw std::runtime_error("an entity is not appended");
    }
    entity.release()->close();
    return id;
}

/// Calls `visit` with every entity of model space that is not erased, open, in drawing order.
template <class Visit>
void VisitModelSpace(AcDbDatabase& drawing, Visit visit, AcDb::OpenMode mode = AcDb::kForRead) {
    const Opened<AcDbBlockTableRecord> space(drawing.header().BLOCK_RECORD_MODEL_SPACE,
                                             AcDb::kForRead);
    for (const AcDbObjectId id : space->entityIds()) {
        if (!id.isErased()) {
            visit(*Opened(id, mode));
        }
    }
}
