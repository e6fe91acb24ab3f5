#include "platform/dwg/DwgClassTable.h"

#include <algorithm>

std::uint16_t DwgClassTable::numberOf(const ClassPtr& fileClass) {
    auto found = std::find_if(classes_.begin(), classes_.end(), [&](const ClassPtr& known) {
        return known == fileClass ||
               (known->dxfName == fileClass->dxfName && known->isEntity == fileClass->isEntity);
    });
    if (found == classes_.end()) {
        found = classes_.insert(classes_.end(), fileClass);
    }
    return static_cast<std::uint16_t>(kFirstNumber + (found - classes_.begin()));
}

DwgClassTable::ClassPtr DwgClassTable::at(std::uint16_t number) const {
    const std::size_t index = static_cast<std::size_t>(number) - kFirstNumber;
    return number >= kFirstNumber && index < classes_.size() ? classes_[index] : nullptr;
}
