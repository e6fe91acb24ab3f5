#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/db/AcDbObject.h"

/// Names objects of the drawing. Names are compared as they stand.
class AcDbDictionary : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDictionary);
    AcDbDictionary() = default;

    using Entry = std::pair<std::string, AcDbObjectId>;

    /// eKeyNotFound, and a null id, when there is no such entry.
    Acad::ErrorStatus getAt(const char* name, AcDbObjectId& id) const;
    /// Names an object of the same database, in place of another one of that name.
    Acad::ErrorStatus setAt(const char* name, AcDbObjectId id);
    /// In the order they were added, erased objects too.
    const std::vector<Entry>& entries() const { return entries_; }

private:
    template <class T>
    friend struct DwgFields;
    friend class AcDbDatabase;
    std::vector<Entry> entries_;
    Adesk::Int16 cloning_ = 1;  ///< what happens to entries whose name is taken when merging
    std::uint8_t hardOwner_ = 0;
};

/// A dictionary that has an answer for every name.
class AcDbDictionaryWithDefault : public AcDbDictionary {
public:
    ACRX_DECLARE_MEMBERS(AcDbDictionaryWithDefault);
    AcDbDictionaryWithDefault() = default;

    AcDbObjectId defaultId() const { return default_; }

private:
    template <class T>
    friend struct DwgFields;
    friend class AcDbDatabase;
    friend class AcDbDatabase;
    AcDbObjectId default_;
};
