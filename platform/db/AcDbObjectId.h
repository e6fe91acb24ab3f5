#pragma once

#include <cstddef>
#include <functional>

#include "platform/db/AcDb.h"
#include "platform/ge/AcArray.h"

class AcDbDatabase;
class AcDbObject;
struct AcDbStub;

/// Names one object of one database while that database lives. Cheap to copy; null by default.
class AcDbObjectId {
public:
    constexpr AcDbObjectId() = default;
    explicit constexpr AcDbObjectId(AcDbStub* stub) : stub_(stub) {}

    bool isNull() const { return stub_ == nullptr; }
    void setNull() { stub_ = nullptr; }
    /// 0 for a null id.
    AcDbHandle handle() const;
    /// Null for a null id.
    AcDbDatabase* database() const;
    bool isErased() const;
    AcDbStub* stub() const { return stub_; }

    friend bool operator==(AcDbObjectId, AcDbObjectId) = default;

    static const AcDbObjectId kNull;

private:
    AcDbStub* stub_ = nullptr;
};

inline constexpr AcDbObjectId AcDbObjectId::kNull{};

/// A reference that is copied together with its holder, and one that is not.
using AcDbHardPointerId = AcDbObjectId;
using AcDbSoftPointerId = AcDbObjectId;
using AcDbObjectIdArray = AcArray<AcDbObjectId>;

template <>
struct std::hash<AcDbObjectId> {
    std::size_t operator()(AcDbObjectId id) const noexcept {
        return std::hash<const void*>()(id.stub());
    }
};
