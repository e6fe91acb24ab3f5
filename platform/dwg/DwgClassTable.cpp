#include "platform/dwg/DwgClassTable.h"

#include <string>

namespace {

// What tells classes apart in a file.
std::string keyOf(const AcDbFileClass& fileClass) {
    return (fileClass.isEntity ? "E" : "O") + fileClass.dxfName;
}

}  // namespace

DwgClassTable::DwgClassTable(std::vector<ClassPtr> classes) {
    for (ClassPtr& fileClass : classes) {
        add(std::move(fileClass));
    }
}

void DwgClassTable::add(ClassPtr fileClass) {
    numbers_.emplace(keyOf(*fileClass), static_cast<std::uint16_t>(kFirstNumber + classes_.size()));
    classes_.push_back(std::move(fileClass));
}

std::uint16_t DwgClassTable::numberOf(const ClassPtr& fileClass) {
    const auto found = numbers_.find(keyOf(*fileClass));
    if (found != numbers_.end()) {
        return found->second;
    }
    add(fileClass);
    return static_cast<std::uint16_t>(kFirstNumber + classes_.size() - 1);
}

DwgClassTable::ClassPtr DwgClassTable::at(std::uint16_t number) const {
    const std::size_t index = static_cast<std::size_t>(number) - kFirstNumber;
    return number >= kFirstNumber && index < classes_.size() ? classes_[index] : nullptr;
}
