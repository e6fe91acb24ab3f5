#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/db/AcDbKeptFields.h"

/// The classes of a drawing that have no number in the format itself: the first has number 500.
class DwgClassTable {
public:
    static constexpr std::uint16_t kFirstNumber = 500;
    using ClassPtr = std::shared_ptr<const AcDbFileClass>;

    DwgClassTable() = default;
    explicit DwgClassTable(std::vector<ClassPtr> classes);

    /// The number of a class, which is added when no class of its DXF name is there; of several
    /// the first.
    std::uint16_t numberOf(const ClassPtr& fileClass);
    /// Null for a number that is not in the table.
    ClassPtr at(std::uint16_t number) const;
    const std::vector<ClassPtr>& classes() const { return classes_; }
    void add(ClassPtr fileClass);

private:
    std::vector<ClassPtr> classes_;
    std::unordered_map<std::string, std::uint16_t> numbers_;
};
