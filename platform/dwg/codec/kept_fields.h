#pragma once

#include <utility>
#include <vector>

#include "platform/db/AcDbKeptEntity.h"
#include "platform/dwg/DwgFields.h"
#include "platform/dwg/DwgSavePlan.h"

/// What only files give to and take from an entity that is kept.
template <>
struct DwgFields<AcDbKeptEntity> {
    static DwgEntityLinks links(const AcDbKeptEntity& entity) {
        return {entity.previous_, entity.next_};
    }
    static void setLinks(AcDbKeptEntity& entity, const DwgEntityLinks& links) {
        entity.previous_ = links.previous;
        entity.next_ = links.next;
    }
    static void set(AcDbKeptEntity& entity, AcDbKeptClass keptClass, AcDbKeptFields fields,
                    std::vector<std::uint8_t> graphics) {
        entity.class_ = std::move(keptClass);
        entity.fields_ = std::move(fields);
        entity.graphics_ = std::move(graphics);
    }
    static AcDbKeptFields& fields(AcDbKeptEntity& entity) { return entity.fields_; }
};

/// The same for an object that is no entity.
template <>
struct DwgFields<AcDbKeptObject> {
    static void set(AcDbKeptObject& object, AcDbKeptClass keptClass, AcDbKeptFields fields) {
        object.class_ = std::move(keptClass);
        object.fields_ = std::move(fields);
    }
};
