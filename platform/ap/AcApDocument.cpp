#include "platform/ap/AcApDocument.h"

#include <algorithm>

AcAp::DocLockMode AcApDocument::lockMode() const {
    const auto strongest = std::max_element(locks_.begin(), locks_.end());
    return strongest != locks_.end() ? *strongest : AcAp::kNone;
}
