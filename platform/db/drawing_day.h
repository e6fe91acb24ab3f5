#pragma once

#include "platform/db/HeaderVariables.h"

/// Today in local time as drawings note it: the day only, so that a drawing made twice on a day is
/// the same file.
DrawingTime CurrentDrawingDay();
