#include "platform/db/DrawingDamage.h"

#include <utility>

void DrawingDamage::note(std::string reason) {
    constexpr std::size_t kMostReasons = 10;
    ++count;
    if (reasons.size() < kMostReasons) {
        reasons.push_back(std::move(reason));
    }
}

std::vector<std::string> DrawingDamage::report() const {
    if (empty()) {
        return {};
    }
    std::string head = file + ": the drawing is damaged";
    if (!objects.empty()) {
        head += ", " + std::to_string(objects.size()) +
                (objects.size() == 1 ? " object is missing" : " objects are missing");
    }
    std::vector<std::string> lines{head};
    for (const std::string& reason : reasons) {
        lines.push_back("  " + reason);
    }
    if (reasons.size() < count) {
        lines.push_back("  and " + std::to_string(count - reasons.size()) + " more");
    }
    lines.emplace_back("It can be saved under another name only.");
    return lines;
}
