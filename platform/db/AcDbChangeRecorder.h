#pragma once

class AcDbObject;

/// Hears what becomes of a drawing's objects, so that it can be taken back. Layer's own: modules
/// hear of nothing here.
class AcDbChangeRecorder {
public:
    virtual ~AcDbChangeRecorder() = default;
    /// The object of the drawing is going to be changed, erased or brought back, or, as a
    /// container, to list more; it is still as it was. Comes before each change, so more than once.
    virtual void willChange(AcDbObject& object) = 0;
};
