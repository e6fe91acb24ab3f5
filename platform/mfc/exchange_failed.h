#pragma once

#include <stdexcept>

namespace mfc {

/// Ends a data exchange; UpdateData catches it.
class ExchangeFailed : public std::runtime_error {
public:
    ExchangeFailed() : std::runtime_error("the data exchange failed") {}
};

}  // namespace mfc
