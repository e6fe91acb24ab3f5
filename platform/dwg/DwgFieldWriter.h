#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "platform/db/AcCmColor.h"
#include "platform/db/HeaderVariables.h"
#include "platform/dwg/DwgBitWriter.h"
#include "platform/dwg/DwgFields.h"

/// Visitor that writes fields: values to one bit stream, references to another, which may be the
/// same. The operations are those of DwgFields.
class DwgFieldWriter {
public:
    static constexpr bool kReads = false;

    DwgFieldWriter(DwgBitWriter& data, DwgBitWriter& handles) : data_(data), handles_(handles) {}

    template <class... T>
    void operator()(const T&... values) {
        (write(values), ...);
    }
    template <class... T>
    void rawDouble(T... values) {
        (data_.rawDouble(values), ...);
    }
    void doubleWithDefault(double value, double other) { data_.doubleWithDefault(value, other); }
    template <class... T>
    void bitPoint(const T&... points) {
        ((data_.bitDouble(points.x), data_.bitDouble(points.y)), ...);
    }
    void thickness(double value) {
        data_.bit(value == 0.0);
        if (value != 0.0) {
            data_.bitDouble(value);
        }
    }
    void normal(const AcGeVector3d& n) {
        const bool standard = n.x == 0.0 && n.y == 0.0 && n.z == 1.0;
        data_.bit(standard);
        if (!standard) {
            write(n);
        }
    }
    void smallBits(std::uint8_t value, unsigned count) { data_.bits(value, count); }
    template <class E>
    void code(E value, E /*last*/) {
        data_.bitShort(static_cast<std::int16_t>(value));
    }
    template <class List>
    void count(const List& list, unsigned /*least*/) {
        data_.bitLong(static_cast<std::int32_t>(std::size(list)));
    }
    void bytes(std::span<const std::uint8_t> bytes) { data_.bytes(bytes); }
    void sizedBytes(const std::vector<std::uint8_t>& bytes) {
        data_.bitLong(static_cast<std::int32_t>(bytes.size()));
        data_.bytes(bytes);
    }
    template <class... Id>
    void softOwners(const Id&... ids) {
        (reference(2, ids), ...);
    }
    template <class... Id>
    void hardOwners(const Id&... ids) {
        (reference(3, ids), ...);
    }
    template <class... Id>
    void softPointers(const Id&... ids) {
        (reference(4, ids), ...);
    }
    template <class... Id>
    void hardPointers(const Id&... ids) {
        (reference(5, ids), ...);
    }
    /// References to erased objects are left out.
    void softPointerList(const AcDbObjectIdArray& ids);
    void handleSeed(AcDbHandle seed) { handles_.handle(0, seed); }
    void accept(bool /*condition*/) {}

    void reference(unsigned code, AcDbObjectId id) { handles_.handle(code, id.handle()); }
    DwgBitWriter& data() { return data_; }
    DwgBitWriter& handles() { return handles_; }

private:
    void write(bool value) { data_.bit(value); }
    void write(std::uint8_t value) { data_.rawChar(value); }
    void write(std::int16_t value) { data_.bitShort(value); }
    void write(std::int32_t value) { data_.bitLong(value); }
    void write(double value) { data_.bitDouble(value); }
    void write(const AcGePoint2d& p) { rawDouble(p.x, p.y); }
    void write(const AcGePoint3d& p) { (*this)(p.x, p.y, p.z); }
    void write(const AcGeVector3d& v) { (*this)(v.x, v.y, v.z); }
    void write(const std::string& text) { data_.text(text); }
    void write(const AcCmColor& color) {
        data_.bitShort(static_cast<std::int16_t>(color.colorIndex()));
    }
    void write(DrawingTime time) { (*this)(time.days, time.milliseconds); }

    DwgBitWriter& data_;
    DwgBitWriter& handles_;
};
