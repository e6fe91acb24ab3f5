#pragma once

#include <type_traits>

/// The fields of class T in the order of the drawing file, told once for all uses: reading,
/// writing, replacing ids. Each has
///
///     template <class Visitor, class Object>
///     static void fields(Visitor& v, Object& o);
///
/// with the class's own fields only; what all objects, entities and records of tables share is told
/// once for these. `Object` is T, const where nothing is changed. A visitor has
///
///     Visitor::kReads                  the object is being filled from a file
///     v(a, b, …)                       values in the coding that belongs to their type
///     v.rawDouble(d, …)                doubles always written in full
///     v.doubleWithDefault(d, other)    only what differs from a value told before
///     v.bitPoint(p, …)                 plane points whose coordinates may take the short forms
///     v.thickness(d), v.normal(n)      with a one-bit form for 0 and (0, 0, 1)
///     v.smallBits(value, count)        up to 8 bits
///     v.code(e, last)                  an enumeration from 0 to `last`, in 16 bits
///     v.count(list, least)             its length; `least` is the fewest bits an item can take
///     v.bytes(array), v.sizedBytes(v)  bytes as they are, without and with their number before
///     v.softOwners(id, …) and hardOwners, softPointers, hardPointers
///     v.softPointerList(ids)           the number of the ids, and the ids
///     v.accept(condition)              what is read can be told again; if not, the object is kept
///                                      undecoded instead
template <class T>
struct DwgFields;

/// The type of a field's value, whatever the constness it was told with.
template <class T>
using DwgValue = std::remove_cv_t<std::remove_reference_t<T>>;
