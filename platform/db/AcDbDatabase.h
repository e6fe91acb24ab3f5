#pragma once

#include <deque>
#include <memory>
#include <string>

#include "platform/db/AcDbObjectId.h"
#include "platform/rx/AcRxObject.h"
#include "platform/rx/Acad.h"

class AcDbBlockTable;
class AcDbChangeRecorder;
class AcDbLayerTable;
class AcDbTextStyleTable;
struct DrawingDamage;
struct DwgFileRemains;
struct HeaderVariables;

/// One drawing: its objects, its tables, its header variables. It owns every object appended to it.
class AcDbDatabase : public AcRxObject {
public:
    static AcRxClass* desc();
    AcRxClass* isA() const override;

    /// `buildDefaultDrawing` makes the tables, the layer "0", the style "Standard", model and paper
    /// space and so on; without it the database is empty and only good for readDwgFile.
    /// `noDocument` has no effect here: documents are made of databases, not the other way round.
    explicit AcDbDatabase(bool buildDefaultDrawing = true, bool noDocument = false);
    ~AcDbDatabase() override;
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode);

    AcDbObjectId clayer() const;
    /// eWrongDatabase, eNullObjectId, eWasErased or eNotApplicable (not a layer) leave it as it
    /// was.
    Acad::ErrorStatus setClayer(AcDbObjectId layer);
    AcDbObjectId textstyle() const;
    /// Likewise.
    Acad::ErrorStatus setTextstyle(AcDbObjectId style);
    AcDbObjectId continuousLinetype() const;
    AcDbObjectId byLayerLinetype() const;
    AcDbObjectId byBlockLinetype() const;

    /// Writes the drawing as AC1015 under a Windows path: whole or not at all. Reactors of
    /// AcRxEventReactor hear of it. eFileAccessErr with the reason in lastFileError(), also for a
    /// drawing that is to replace the damaged file it was read from; eInvalidInput without a name.
    Acad::ErrorStatus saveAs(const char* fileName);
    /// Reads a drawing into this empty database. `shareMode` is accepted for its callers: the file
    /// is read at once and closed. eFileNotFound, eFileAccessErr, eNotADrawing, eDwgVersionRefused,
    /// eFileInternalErr; the database is then empty and lastFileError() names file and reason.
    /// Damaged objects are left out and told by damage(); the status is eOk then.
    /// eNotApplicable for a database that has objects already.
    Acad::ErrorStatus readDwgFile(const char* fileName, int shareMode = 0);
    /// Copies the model space of `source` into a new block definition, with the layers, styles,
    /// line types and nested blocks it uses; where a name exists here, this drawing's definition
    /// wins. A block of that name is not made twice: its id is returned. eNoDatabase for an empty
    /// source.
    Acad::ErrorStatus insert(AcDbObjectId& blockId, const char* blockName, AcDbDatabase* source,
                             bool preserveSourceDatabase = true);

    /// Windows path of the file last read or saved; empty for none.
    const char* getFilename() const { return fileName_.c_str(); }
    /// What the last failed saveAs or readDwgFile failed at: file and reason, UTF-8.
    const std::string& lastFileError() const { return lastFileError_; }
    /// True once an object was opened for write, or a variable set, since reading or saving.
    bool isModified() const { return modified_; }
    /// What could not be read of the file last read; empty for a sound one.
    const DrawingDamage& damage() const { return *damage_; }
    void setModified(bool modified) { modified_ = modified; }

    /// The id of a handle; null, and eKeyNotFound, when the drawing knows no such handle.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, AcDbHandle handle) const;

    // For the layer's own rooms.
    /// saveAs for what a person saves: the file is on the disk when it returns.
    Acad::ErrorStatus saveToDisk(const char* fileName);
    /// No object has a higher handle: new ones count up to here and never wrap around.
    static constexpr AcDbHandle kHighestHandle = AcDbHandle{1} << 62U;
    const HeaderVariables& header() const { return *header_; }
    HeaderVariables& header() { return *header_; }
    /// Takes ownership, gives a fresh handle, leaves the object closed.
    AcDbObjectId addObject(std::unique_ptr<AcDbObject> object, AcDbObjectId owner);
    /// The entry of a handle, made when missing; the object may come later. Null for handle 0.
    AcDbObjectId idOfHandle(AcDbHandle handle);
    /// Frees what finding handles takes; it is made anew when a handle is next asked for.
    void forgetHandles();
    /// Puts an object read from a file, all its fields set, behind its entry.
    void placeObject(AcDbObjectId id, std::unique_ptr<AcDbObject> object);
    /// Who hears of the changes to the drawing's objects; null for nobody. Not owned.
    void setRecorder(AcDbChangeRecorder* recorder) { recorder_ = recorder; }
    /// Before a change to one of the objects.
    void noteChange(AcDbObject& object);
    /// Puts a free object, null for none, behind an entry in place of the one there, which comes
    /// back free. `modified` is what AcDbObject::isModified says from then on.
    std::unique_ptr<AcDbObject> exchangeObject(AcDbObjectId id, std::unique_ptr<AcDbObject> object,
                                               bool modified);
    /// New objects get the handles from `seed` on again, and the entries of these handles, whose
    /// objects have been taken out.
    void rewindHandles(AcDbHandle seed);
    /// Every entry in handle order of creation, those without an object too.
    const std::deque<AcDbStub>& entries() const;
    std::deque<AcDbStub>& entries();
    /// The object behind an id without opening it; null when there is none.
    static AcDbObject* objectOf(AcDbObjectId id);
    /// Parts of the file that are kept as they were read; null for a new drawing.
    DwgFileRemains* fileRemains() const { return remains_.get(); }
    void setFileRemains(std::shared_ptr<DwgFileRemains> remains) { remains_ = std::move(remains); }
    void setLastFileError(std::string text) { lastFileError_ = std::move(text); }
    void setDamage(DrawingDamage damage);
    void setFilename(const char* name) { fileName_ = name; }

private:
    friend class AcDbBlockTableRecord;
    friend class AcDbSymbolTable;
    class DefaultDrawing;
    void buildDefaultDrawing();
    Acad::ErrorStatus save(const char* fileName, bool toDisk);
    Acad::ErrorStatus readFileAt(const std::string& path);

    AcDbStub* find(AcDbHandle handle) const;
    AcDbObjectId nextEntry();
    Acad::ErrorStatus makeCurrent(AcDbObjectId& current, AcDbObjectId id, const AcRxClass* kind);

    /// Without objects and damage, with the variables of a new drawing.
    void clear();

    struct Entries;
    std::unique_ptr<Entries> entries_;
    std::unique_ptr<HeaderVariables> header_;
    std::unique_ptr<DrawingDamage> damage_;
    std::shared_ptr<DwgFileRemains> remains_;
    std::string fileName_;
    std::string lastFileError_;
    bool modified_ = false;
    AcDbChangeRecorder* recorder_ = nullptr;
    AcDbHandle rewoundFrom_ = 0;  ///< below it a new object's entry may be there already
};
