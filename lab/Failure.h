#pragma once

#include "platform/win32/Failure.h"

namespace lab {

using win32::Failure;

}  // namespace lab
