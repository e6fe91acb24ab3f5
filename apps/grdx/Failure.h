#pragma once

#include "lab/Failure.h"

namespace console {

using lab::Failure;

}  // namespace console
