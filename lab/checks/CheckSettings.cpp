#include "lab/checks/CheckSettings.h"

#include <cstdlib>
#include <string>

#include "lab/Failure.h"
#include "lab/numbers.h"
#include "lab/suite_profiles.h"
#include "platform/win32/ProfileText.h"
#include "platform/win32/code_page.h"
#include "platform/win32/file_replace.h"
#include "platform/win32/windows_path.h"
#include "src/facts/curve_form.h"
#include "src/facts/mark_keys.h"

namespace lab {

CheckSettings ReadCheckSettings() {
    const std::string path = win32::FileSystemPath(SettingsProfilePath());
    std::string content;
    std::string error;
    bool missing = false;
    if (!win32::ReadFileWhole(path, content, error, &missing) && !missing) {
        throw Failure(error);
    }
    const win32::ProfileText profile(content);
    CheckSettings settings;
    std::string value;
    if (profile.Find(kSettingsSection, "bBFHL", value)) {
        settings.recompute = std::atoi(value.c_str()) != 0;
    }
    if (profile.Find(kCurveSection, kGuardKey, value) && std::atoi(value.c_str()) == 1) {
        settings.curve = CurveForm::guarded;
    }
    if (profile.Find("Check", "MassLoss", value) && !value.empty()) {
        const std::optional<double> percent = ParseNumber(value);
        if (!percent || *percent < 0.0) {
            throw Failure(path + ": MassLoss in section [Check] is \"" + win32::Utf8FromGbk(value) +
                          "\" and not a percentage");
        }
        settings.massLoss = *percent;
    }
    return settings;
}

}  // namespace lab
