#include "platform/dwg/object_image.h"

#include "platform/db/AcDbCopyFiler.h"
#include "platform/db/AcDbKeptEntity.h"
#include "platform/db/AcDbKeptObject.h"
#include "platform/dwg/DwgCodec.h"

namespace {

class UndoFiler : public AcDbCopyFiler {
public:
    AcDb::FilerType filerType() const override { return AcDb::kUndoFiler; }
};

// A copy is for another place; what is to come back here has to be all there is.
std::unique_ptr<AcDbObject> copyOfModules(const AcDbObject& object) {
    std::unique_ptr<AcDbObject> copy = object.clone();
    UndoFiler filer;
    if (copy != nullptr) {
        object.dwgOutFields(&filer);
        copy->dwgInFields(&filer);
    }
    return filer.filerStatus() == Acad::eOk ? std::move(copy) : nullptr;
}

// Of the layer's own classes every member; modules' classes file what they have.
std::unique_ptr<AcDbObject> copyOf(const AcDbObject& object) {
    if (const DwgCodec* codec = FindCodec(object)) {
        return codec->copy(object);
    }
    if (object.isA() == AcDbKeptEntity::desc()) {
        return std::make_unique<AcDbKeptEntity>(static_cast<const AcDbKeptEntity&>(object));
    }
    if (object.isA() == AcDbKeptObject::desc()) {
        return std::make_unique<AcDbKeptObject>(static_cast<const AcDbKeptObject&>(object));
    }
    return copyOfModules(object);
}

}  // namespace

std::unique_ptr<AcDbObject> ImageOf(const AcDbObject& object) {
    std::unique_ptr<AcDbObject> image = copyOf(object);
    if (image != nullptr) {
        image->setOwnerId(object.ownerId());
        const AcDbObjectId dictionary = object.fileData().extensionDictionary;
        if (!dictionary.isNull()) {
            image->fileData().extensionDictionary = dictionary;
        }
    }
    return image;
}
