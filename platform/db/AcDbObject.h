#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/db/AcDbObjectId.h"
#include "platform/rx/AcRxClass.h"
#include "platform/rx/Acad.h"

class AcDbDwgFiler;
struct AcDbKeptFields;

/// What a drawing file holds of an object beside its class's own fields; kept so that opening and
/// saving loses nothing.
struct AcDbObjectFileData {
    AcDbObjectIdArray reactors;              ///< objects told of changes, each once
    std::vector<std::uint8_t> extendedData;  ///< application data as its bits stand in the file
    std::size_t extendedDataBits = 0;        ///< how many; the last byte is filled up with zeros
    AcDbObjectId extensionDictionary;
    AcDbObjectId plotStyle;  ///< of an entity with plotStyleSource 3
    std::uint8_t plotStyleSource =
        0;  ///< of an entity: 0 by layer, 1 by block, 2 default, 3 its own
    /// What the class's dwgInFields left unread; null for nothing.
    std::shared_ptr<const AcDbKeptFields> unreadFields;
};

/// An object of a drawing database. Objects appended to a database are used only between opening
/// (acdbOpenObject, a table's getAt) and close(); an object of no database is free for use and is
/// deleted by its holder.
class AcDbObject : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObject);
    ~AcDbObject() override = default;

    /// Null until the object is in a database.
    AcDbObjectId objectId() const;
    AcDbObjectId ownerId() const { return ownerId_; }
    void setOwnerId(AcDbObjectId id) { ownerId_ = id; }
    void getAcDbHandle(AcDbHandle& handle) const;
    AcDbDatabase* database() const;

    /// Ends one open. eNotInDatabase for a free object, eNotOpenForRead when it is not open.
    Acad::ErrorStatus close();
    /// Marks the object erased (or brings it back). Needs write access.
    Acad::ErrorStatus erase(Adesk::Boolean erasing = true);
    bool isErased() const;
    bool isReadEnabled() const;
    bool isWriteEnabled() const;
    /// Stops the program when the object is in a database and not open in that mode: a fault of
    /// ours.
    void assertReadEnabled() const;
    /// The same for write; also notes that the object has changed since it was read or saved.
    void assertWriteEnabled();
    /// True once assertWriteEnabled has run since the object was read from a file.
    bool isModified() const { return changed_; }

    /// Objects (hatches, for instance) told of changes; filed with the object, each once.
    Acad::ErrorStatus addPersistentReactor(AcDbObjectId reactor);
    const AcDbObjectIdArray& persistentReactors() const { return fileData().reactors; }
    /// For the layer's own rooms: all at once, each named once.
    void setPersistentReactors(AcDbObjectIdArray reactors);

    /// Files the class's own fields; a derived class calls its base first. What all objects have
    /// in common is filed by the drawing file itself.
    virtual Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer);
    virtual Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const;
    /// A free copy of the object; its references, reactors among them, still name the source's
    /// objects, but it has no owner and no extension dictionary. Null when the class cannot be
    /// made. Unless overridden the copy comes from the class record's constructor and gets its
    /// fields by filing; the object must be open for read.
    virtual std::unique_ptr<AcDbObject> clone() const;

    /// Undo or redo has put the object back into this state; `object` is itself. It is open for
    /// write, so that it can be changed where it does not suit the present any more.
    virtual void modifyUndone(const AcDbObject* object);

    /// For the layer's own rooms, of a container: the ids that it lists and only ever adds to, to
    /// be shortened or lengthened again. Null for other objects.
    virtual std::vector<AcDbObjectId>* growingList() { return nullptr; }

    /// Makes it where there was none: most objects have nothing of the kind.
    AcDbObjectFileData& fileData();
    const AcDbObjectFileData& fileData() const;

protected:
    AcDbObject() = default;
    AcDbObject(const AcDbObject& other);
    AcDbObject& operator=(const AcDbObject&) = delete;
    /// Takes over what is not filed by dwgOutFields; `other` is of the same class.
    virtual void copyCommonData(const AcDbObject& other);

private:
    friend class AcDbDatabase;
    friend Acad::ErrorStatus acdbOpenObject(AcDbObject*&, AcDbObjectId, AcDb::OpenMode, bool);

    AcDbStub* stub_ = nullptr;
    AcDbObjectId ownerId_;
    std::unique_ptr<AcDbObjectFileData> fileData_;  // null for nothing
    bool changed_ = false;
};

/// Opens an object. Any number of readers or one writer; the status says what stands in the way.
/// On failure `object` is null. An entry without an object gives eNullObjectId.
Acad::ErrorStatus acdbOpenObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased = false);
/// Published name of the same for modules that take any object.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);

/// Opens an object of class T; eNotApplicable, and closed again, when it is of another class.
template <class T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased = false) {
    object = nullptr;
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus status = acdbOpenObject(opened, id, mode, openErased);
    if (status != Acad::eOk) {
        return status;
    }
    if (!opened->isKindOf(T::desc())) {
        opened->close();
        return Acad::eNotApplicable;
    }
    object = static_cast<T*>(opened);
    return Acad::eOk;
}
