#pragma once

#include <memory>
#include <utility>

#include "platform/db/AcDbKeptFields.h"
#include "platform/db/AcDbObject.h"

/// How a drawing file names the class of an object that is only kept.
struct AcDbKeptClass {
    Adesk::UInt16 type = 0;                       ///< the format's own number; 0 with a record
    std::shared_ptr<const AcDbFileClass> record;  ///< null for a class of the format itself
    std::string name;                             ///< the class's name, for those who list it
};

/// An object of a class that nothing here knows; comes from a file and goes back unchanged.
class AcDbKeptObject : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbKeptObject);
    AcDbKeptObject() = default;
    AcDbKeptObject(AcDbKeptClass keptClass, AcDbKeptFields fields)
        : class_(std::move(keptClass)), fields_(std::move(fields)) {}

    const AcDbKeptClass& keptClass() const { return class_; }
    const AcDbKeptFields& keptFields() const { return fields_; }
    std::unique_ptr<AcDbObject> clone() const override;

private:
    template <class T>
    friend struct DwgFields;
    AcDbKeptClass class_;
    AcDbKeptFields fields_;
};
