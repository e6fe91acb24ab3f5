#pragma once

#include "platform/db/AcCmColor.h"
#include "platform/db/AcDb.h"
#include "platform/db/AcDbSymbolTable.h"

/// A layer; new ones are on, thawed, unlocked, plotted, colour 7, continuous.
class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord);
    AcDbLayerTableRecord();

    bool isOff() const { return off_; }
    void setIsOff(bool off);
    bool isFrozen() const { return frozen_; }
    void setIsFrozen(bool frozen);
    bool isLocked() const { return locked_; }
    AcCmColor color() const { return color_; }
    void setColor(const AcCmColor& color);
    /// False for a layer that is shown but not printed.
    bool isPlottable() const { return plottable_; }
    void setIsPlottable(bool plottable);
    AcDb::LineWeight lineWeight() const;
    /// eInvalidInput, and no change, for a width that lines cannot have.
    Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight);
    AcDbObjectId linetypeObjectId() const { return linetypeId_; }
    void setLinetypeObjectId(AcDbObjectId linetype);
    std::unique_ptr<AcDbObject> clone() const override;

private:
    template <class T>
    friend struct DwgFields;
    friend class AcDbDatabase;
    void takeDefaults(const AcDbDatabase& database) override;

    bool off_ = false;
    bool frozen_ = false;
    bool frozenInNewViewports_ = false;
    bool locked_ = false;
    bool plottable_ = true;
    std::uint8_t lineWeight_ = 31;  ///< code of the file format
    AcCmColor color_;
    AcDbObjectId plotStyleId_;
    AcDbObjectId linetypeId_;  ///< null until added, then the drawing's "Continuous"
};

/// The table of layers. Adding a record gives it the drawing's continuous line type when unset.
class AcDbLayerTable : public AcDbSymbolTable {
public:
    ACRX_DECLARE_MEMBERS(AcDbLayerTable);
};
