#pragma once

#include <memory>

class AcDbObject;

/// A free object that has all the object has, its owner and extension dictionary included, so that
/// it can take the object's place behind its entry. Null for an object of a module's class that
/// cannot be copied. The object must be open.
std::unique_ptr<AcDbObject> ImageOf(const AcDbObject& object);
