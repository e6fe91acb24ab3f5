#pragma once

#include <stdexcept>

namespace win32 {

/// A request that is refused or has failed; the text (UTF-8) tells the user what stands against it.
/// Texts of several lines are several findings.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace win32
