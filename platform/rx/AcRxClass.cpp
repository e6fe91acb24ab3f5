#include "platform/rx/AcRxClass.h"

#include "platform/rx/AcRxDictionary.h"

ACRX_DEFINE_MEMBERS(AcRxClass, AcRxObject, nullptr);

namespace {

constexpr const char* kClassDictionary = "ClassDictionary";

AcRxDictionary& classDictionary() {
    return *static_cast<AcRxDictionary*>(acrxSysRegistry()->at(kClassDictionary));
}

std::string textOf(const char* text) {
    return text != nullptr ? text : "";
}

}  // namespace

AcRxClass* AcRxClass::myParent() const {
    if (parent_ == nullptr && !parentName_.empty()) {
        parent_ = static_cast<AcRxClass*>(classDictionary().at(parentName_.c_str()));
    }
    return parent_;
}

bool AcRxClass::isDerivedFrom(const AcRxClass* other) const {
    if (other == nullptr) {
        return false;
    }
    const AcRxClass* ancestor = this;
    while (ancestor != nullptr && ancestor != other) {
        ancestor = ancestor->myParent();
    }
    return ancestor == other;
}

void AcRxClass::getClassVersion(int& dwgVersion, int& maintenanceVersion) const {
    dwgVersion = dwgVersion_;
    maintenanceVersion = maintenanceVersion_;
}

AcRxClass* newAcRxClass(const char* className, const char* parentClassName, int dwgVersion,
                        int maintenanceVersion, int proxyFlags, AcRxClass::Constructor constructor,
                        const char* dxfName, const char* appName) {
    const std::string name = textOf(className);
    if (name.empty()) {
        return nullptr;
    }
    AcRxDictionary& classes = classDictionary();
    if (AcRxObject* existing = classes.at(name.c_str())) {
        return static_cast<AcRxClass*>(existing);
    }
    auto* record = new AcRxClass;
    record->name_ = name;
    record->parentName_ = textOf(parentClassName);
    record->dxfName_ = textOf(dxfName);
    record->appName_ = textOf(appName);
    record->dwgVersion_ = dwgVersion;
    record->maintenanceVersion_ = maintenanceVersion;
    record->proxyFlags_ = proxyFlags;
    record->constructor_ = constructor;
    classes.atPut(name.c_str(), record);
    return record;
}

void deleteAcRxClass(AcRxClass* aClass) {
    if (aClass == nullptr) {
        return;
    }
    AcRxDictionary& classes = classDictionary();
    classes.remove(aClass->name());
    for (const auto& [name, entry] : classes.entries_) {
        auto* other = static_cast<AcRxClass*>(entry);
        if (other->parent_ == aClass) {
            other->parent_ = nullptr;
        }
    }
    delete aClass;
}
