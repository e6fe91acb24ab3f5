#pragma once

#include <array>
#include <vector>

#include "platform/db/AcDbSymbolTable.h"

/// A line type; without dashes a continuous line.
class AcDbLinetypeTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbLinetypeTableRecord);
    AcDbLinetypeTableRecord() = default;

    struct Dash {
        double length = 0.0;  ///< negative for a gap, 0 for a dot
        Adesk::Int16 shapeCode = 0;
        AcDbObjectId styleId;
        double xOffset = 0.0;
        double yOffset = 0.0;
        double scale = 1.0;
        double rotation = 0.0;
        Adesk::Int16 flags = 0;  ///< 1 rotation is absolute, 2 a text, 4 a shape
    };

    const char* comments() const { return description_.c_str(); }
    double patternLength() const { return patternLength_; }
    const std::vector<Dash>& dashes() const { return dashes_; }
    /// Makes the line type a row of dashes and gaps, drawing units, as `Dash::length` has them.
    void setDashLengths(const std::vector<double>& lengths);
    std::unique_ptr<AcDbObject> clone() const override;

private:
    template <class T>
    friend struct DwgFields;
    friend class AcDbDatabase;
    std::string description_;
    double patternLength_ = 0.0;
    std::uint8_t alignment_ = 'A';
    std::vector<Dash> dashes_;
    std::array<std::uint8_t, 256> texts_{};  ///< of the dashes, as the file has them
};

/// The table of line types. The records of "ByLayer" and "ByBlock" are among them.
class AcDbLinetypeTable : public AcDbSymbolTable {
public:
    ACRX_DECLARE_MEMBERS(AcDbLinetypeTable);
};
