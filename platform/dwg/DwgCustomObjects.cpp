#include "platform/dwg/DwgCustomObjects.h"

#include <utility>

#include "platform/db/AcDbEntity.h"
#include "platform/db/AcDbStub.h"
#include "platform/dwg/DwgFault.h"
#include "platform/dwg/DwgInFiler.h"
#include "platform/dwg/DwgObjectReader.h"
#include "platform/dwg/DwgObjectWriter.h"
#include "platform/dwg/DwgOutFiler.h"
#include "platform/gi/AcGiProxyGraphicsRecorder.h"
#include "platform/rx/AcRxDictionary.h"

DwgReadAccess::DwgReadAccess(AcDbObject& object) {
    AcDbStub* stub = object.objectId().stub();
    if (stub != nullptr && !stub->writer) {
        stub_ = stub;
        ++stub_->readers;
    }
}

DwgReadAccess::~DwgReadAccess() {
    if (stub_ != nullptr) {
        --stub_->readers;
    }
}

std::shared_ptr<const AcDbFileClass> FileClassOf(const AcDbObject& object) {
    const AcRxClass* record = object.isA();
    if (record->dxfName() == nullptr) {
        throw DwgFault(Acad::eNotApplicable, std::string("the class ") + record->name() +
                                                 " has no name in drawing files");
    }
    AcDbFileClass fileClass;
    fileClass.appName = record->appName() != nullptr ? record->appName() : "";
    fileClass.className = record->name();
    fileClass.dxfName = record->dxfName();
    fileClass.proxyFlags = static_cast<Adesk::Int16>(record->proxyFlags());
    fileClass.isEntity = object.isKindOf(AcDbEntity::desc());
    return std::make_shared<const AcDbFileClass>(std::move(fileClass));
}

std::vector<std::uint8_t> ProxyGraphicsOf(AcDbEntity& entity) {
    AcGiProxyGraphicsRecorder recorder;
    entity.saveAs(&recorder, AcDb::kR13Save);
    return recorder.bytes();
}

void WriteCustomFields(DwgObjectWriter& writer, AcDbObject& object) {
    const AcDbKeptFields* rest = std::as_const(object).fileData().unreadFields.get();
    DwgOutFiler filer(writer, rest);
    object.dwgOutFields(&filer);
    if (rest != nullptr) {
        filer.endBeforeRest();
        writer.keptFields(*rest);
    }
}

void ReadCustomFields(DwgObjectReader& reader, AcDbObject& object) {
    DwgInFiler filer(reader);
    object.dwgInFields(&filer);
    if (!reader.atEnd() && filer.filerStatus() == Acad::eOk) {
        AcDbKeptFields rest = reader.remainingFields();
        rest.kindsReadBefore = filer.kinds();
        object.fileData().unreadFields = std::make_shared<const AcDbKeptFields>(std::move(rest));
    }
}

std::unique_ptr<AcDbObject> MakeCustomObject(const AcDbFileClass& fileClass) {
    const auto* classes =
        static_cast<const AcRxDictionary*>(acrxSysRegistry()->at("ClassDictionary"));
    const auto* record = static_cast<const AcRxClass*>(classes->at(fileClass.className.c_str()));
    if (record == nullptr || record->dxfName() == nullptr ||
        fileClass.dxfName != record->dxfName()) {
        return nullptr;
    }
    std::unique_ptr<AcRxObject> made(record->create());
    if (made == nullptr || !made->isKindOf(AcDbObject::desc()) ||
        made->isKindOf(AcDbEntity::desc()) != fileClass.isEntity) {
        return nullptr;
    }
    return std::unique_ptr<AcDbObject>(static_cast<AcDbObject*>(made.release()));
}
