#pragma once

#include <string>

#include "platform/rx/AcRxObject.h"

/// Record of one runtime class. Records live in the runtime registry under "ClassDictionary".
class AcRxClass : public AcRxObject {
public:
    using Constructor = AcRxObject* (*)();

    static AcRxClass* desc();
    AcRxClass* isA() const override;

    const char* name() const { return name_.c_str(); }
    /// Name in drawing files; null for a class that is never filed under a class number.
    const char* dxfName() const { return dxfName_.empty() ? nullptr : dxfName_.c_str(); }
    /// Application that owns the class, as written in a drawing's classes section.
    const char* appName() const { return appName_.empty() ? nullptr : appName_.c_str(); }
    /// Null for the root, and while the parent's record does not exist.
    AcRxClass* myParent() const;
    bool isDerivedFrom(const AcRxClass* other) const;
    /// What other programs may do to a proxy of the class (bits; 255 = everything).
    int proxyFlags() const { return proxyFlags_; }
    /// Drawing version and maintenance release that the class was born with.
    void getClassVersion(int& dwgVersion, int& maintenanceVersion) const;
    /// A new object of the class; null for an abstract class.
    AcRxObject* create() const { return constructor_ ? constructor_() : nullptr; }

private:
    friend AcRxClass* newAcRxClass(const char*, const char*, int, int, int, Constructor,
                                   const char*, const char*);
    friend void deleteAcRxClass(AcRxClass*);
    AcRxClass() = default;

    std::string name_;
    std::string parentName_;
    std::string dxfName_;
    std::string appName_;
    mutable AcRxClass* parent_ = nullptr;  // looked up on first use: registration order is free
    int dwgVersion_ = 0;
    int maintenanceVersion_ = 0;
    int proxyFlags_ = 0;
    Constructor constructor_ = nullptr;
};

/// Makes a class record and enters it in the class dictionary, which owns it.
/// Returns the existing record when a class of that name is registered already; null when the
/// class has no name. An empty or null parent name makes a root.
AcRxClass* newAcRxClass(const char* className, const char* parentClassName, int dwgVersion = 0,
                        int maintenanceVersion = 0, int proxyFlags = 0,
                        AcRxClass::Constructor constructor = nullptr, const char* dxfName = nullptr,
                        const char* appName = nullptr);

/// Removes the record from the class dictionary and destroys it. Null is ignored. Classes derived
/// from it have no parent until a record of that name is made again.
void deleteAcRxClass(AcRxClass* aClass);

/// Declares desc() and isA() of a class of the layer itself.
#define ACRX_DECLARE_MEMBERS(CLASS) \
    static AcRxClass* desc();       \
    AcRxClass* isA() const override

/// Defines them for a class without a name of its own in drawing files; registered at load.
#define ACRX_DEFINE_MEMBERS(CLASS, PARENT, CONSTRUCTOR)                                       \
    AcRxClass* CLASS::desc() {                                                                \
        static AcRxClass* const record = newAcRxClass(#CLASS, #PARENT, 0, 0, 0, CONSTRUCTOR); \
        return record;                                                                        \
    }                                                                                         \
    AcRxClass* CLASS::isA() const {                                                           \
        return CLASS::desc();                                                                 \
    }                                                                                         \
    [[maybe_unused]] static const AcRxClass* const registered##CLASS = CLASS::desc()
