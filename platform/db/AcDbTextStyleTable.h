#pragma once

#include "platform/db/AcDbSymbolTable.h"

/// A text style: fonts and the defaults of texts that use it.
class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord);
    AcDbTextStyleTableRecord() = default;

    const char* fileName() const { return fileName_.c_str(); }
    Acad::ErrorStatus setFileName(const char* fontFile);
    const char* bigFontFileName() const { return bigFontFileName_.c_str(); }
    Acad::ErrorStatus setBigFontFileName(const char* fontFile);
    /// 0: the height is each text's own.
    double textSize() const { return textSize_; }
    double xScale() const { return xScale_; }
    double obliquingAngle() const { return obliquingAngle_; }
    std::unique_ptr<AcDbObject> clone() const override;

private:
    template <class T>
    friend struct DwgFields;
    std::string fileName_ = "txt";
    std::string bigFontFileName_;
    double textSize_ = 0.0;
    double xScale_ = 1.0;
    double obliquingAngle_ = 0.0;
    double priorSize_ = 2.5;
    bool vertical_ = false;
    bool shapeFile_ = false;
    std::uint8_t generation_ = 0;
};

/// The table of text styles.
class AcDbTextStyleTable : public AcDbSymbolTable {
public:
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTable);
};
