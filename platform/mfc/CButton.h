#pragma once

#include "platform/mfc/CWnd.h"

inline constexpr int BST_UNCHECKED = 0;
inline constexpr int BST_CHECKED = 1;

/// A push button or a check box.
class CButton : public CWnd {
public:
    /// BST_CHECKED or BST_UNCHECKED, which is what a push button always gives.
    int GetCheck() const;
    /// Sends no notification.
    void SetCheck(int check);
};
