#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/db/AcCmColor.h"
#include "platform/db/HeaderVariables.h"
#include "platform/dwg/DwgBitReader.h"
#include "platform/dwg/DwgFields.h"

/// Visitor that reads fields: values from one bit stream, references from another, which may be the
/// same. The operations are those of DwgFields.
class DwgFieldReader {
public:
    static constexpr bool kReads = true;

    /// Ids are those of `database`; `holder` is the handle of the object being read.
    DwgFieldReader(DwgBitReader& data, DwgBitReader& handles, AcDbDatabase& database,
                   AcDbHandle holder)
        : data_(data), handles_(handles), database_(database), holder_(holder) {}

    template <class... T>
    void operator()(T&... values) {
        (read(values), ...);
    }
    template <class... T>
    void rawDouble(T&... values) {
        ((values = data_.rawDouble()), ...);
    }
    void doubleWithDefault(double& value, double other) { value = data_.doubleWithDefault(other); }
    template <class... T>
    void bitPoint(T&... points) {
        ((*this)(points.x, points.y), ...);
    }
    void thickness(double& value) { value = data_.bit() ? 0.0 : data_.bitDouble(); }
    void normal(AcGeVector3d& n) {
        if (data_.bit()) {
            n = AcGeVector3d::kZAxis;
        } else {
            read(n);
        }
    }
    void smallBits(std::uint8_t& value, unsigned count) {
        value = static_cast<std::uint8_t>(data_.bits(count));
    }
    template <class E>
    void code(E& value, E last) {
        const int number = data_.bitShort();
        const bool known = number >= 0 && number <= last;
        accept(known);
        if (known) {
            value = static_cast<E>(number);
        }
    }
    /// Makes the list as long as the file says, unless the file is too short for that.
    template <class List>
    void count(List& list, unsigned least) {
        list.resize(count(data_, least));
    }
    void bytes(std::span<std::uint8_t> bytes) {
        for (std::uint8_t& byte : bytes) {
            byte = data_.rawChar();
        }
    }
    void sizedBytes(std::vector<std::uint8_t>& bytes) { data_.bytes(count(data_, 8), bytes); }
    template <class... Id>
    void softOwners(Id&... ids) {
        ((ids = reference()), ...);
    }
    template <class... Id>
    void hardOwners(Id&... ids) {
        ((ids = reference()), ...);
    }
    template <class... Id>
    void softPointers(Id&... ids) {
        ((ids = reference()), ...);
    }
    template <class... Id>
    void hardPointers(Id&... ids) {
        ((ids = reference()), ...);
    }
    void softPointerList(AcDbObjectIdArray& ids);
    void handleSeed(AcDbHandle& seed) { seed = handles_.handle().value; }
    void accept(bool condition) { exact_ = exact_ && condition; }

    /// The next reference, as an id of the database; null for none.
    AcDbObjectId reference() { return idOf(handles_.handle().resolved(holder_)); }
    AcDbObjectId idOf(AcDbHandle handle);
    /// A number of items that `from` still has room for, each at least `least` bits.
    static std::size_t count(DwgBitReader& from, unsigned least);
    /// Whether all that was read can be told again as it was.
    bool exact() const { return exact_ && !data_.failed() && !handles_.failed(); }
    DwgBitReader& data() { return data_; }
    DwgBitReader& handles() { return handles_; }
    AcDbHandle holder() const { return holder_; }
    AcDbDatabase& database() { return database_; }

private:
    void read(bool& value) { value = data_.bit(); }
    void read(std::uint8_t& value) { value = data_.rawChar(); }
    void read(std::int16_t& value) { value = data_.bitShort(); }
    void read(std::int32_t& value) { value = data_.bitLong(); }
    void read(double& value) { value = data_.bitDouble(); }
    void read(AcGePoint2d& p) { rawDouble(p.x, p.y); }
    void read(AcGePoint3d& p) { (*this)(p.x, p.y, p.z); }
    void read(AcGeVector3d& v) { (*this)(v.x, v.y, v.z); }
    void read(std::string& text) { data_.text(text); }
    void read(AcCmColor& color) {
        accept(color.setColorIndex(static_cast<Adesk::UInt16>(data_.bitShort())) == Acad::eOk);
    }
    void read(DrawingTime& time) { (*this)(time.days, time.milliseconds); }

    DwgBitReader& data_;
    DwgBitReader& handles_;
    AcDbDatabase& database_;
    AcDbHandle holder_;
    bool exact_ = true;
};
