#pragma once

#include "platform/mfc/CWnd.h"

/// A field for one line of text: its window text.
class CEdit : public CWnd {};
