#pragma once

class AcRxClass;

/// Root of every class that carries a runtime class record.
class AcRxObject {
public:
    AcRxObject() = default;
    virtual ~AcRxObject() = default;

    /// The class record of AcRxObject itself.
    static AcRxClass* desc();
    /// The class record of the object's own class.
    virtual AcRxClass* isA() const;
    /// True when the object's class is `aClass` or derived from it. False for null.
    bool isKindOf(const AcRxClass* aClass) const;

protected:
    AcRxObject(const AcRxObject&) = default;
    AcRxObject& operator=(const AcRxObject&) = default;
};
