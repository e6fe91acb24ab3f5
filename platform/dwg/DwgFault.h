#pragma once

#include <stdexcept>
#include <string>

#include "platform/rx/Acad.h"

/// Why a drawing file cannot be read; never leaves this room.
class DwgFault : public std::runtime_error {
public:
    DwgFault(Acad::ErrorStatus status, const std::string& reason)
        : std::runtime_error(reason), status_(status) {}
    /// A file whose own checks fail.
    explicit DwgFault(const std::string& reason) : DwgFault(Acad::eFileInternalErr, reason) {}

    Acad::ErrorStatus status() const { return status_; }

private:
    Acad::ErrorStatus status_;
};
