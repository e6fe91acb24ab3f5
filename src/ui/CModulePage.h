#pragma once

#include <cstddef>
#include <vector>

#include "platform/mfc/CPropertyPage.h"

/// A page whose template comes from the plug-in's own resources, whatever module's resources are
/// current when the page is shown.
class CModulePage : public CPropertyPage {
protected:
    /// Without a template of that number, or while the plug-in is not attached, the sheet that the
    /// page is put on cannot be shown.
    explicit CModulePage(WORD dialogNumber);

private:
    std::vector<std::byte> templateCopy_;
};
