#include "src/ui/plugin_resources.h"

#include <set>

#include "platform/mfc/window_styles.h"
#include "tests/src/ui/ProjectFixture.h"

namespace {

bool Within(const mfc::DialogRect& inner, const mfc::DialogRect& outer) {
    return inner.x >= 0 && inner.y >= 0 && inner.x + inner.width <= outer.width &&
           inner.y + inner.height <= outer.height;
}

TEST(PluginResourcesTest, EveryDialogCanBeWorkedByKeyboardAndFitsItsControls) {
    for (const mfc::DialogDescription& dialog : PluginResources().dialogs) {
        SCOPED_TRACE(dialog.number);
        std::set<WORD> ids;
        bool reachable = false;
        for (const mfc::ControlDescription& control : dialog.controls) {
            EXPECT_TRUE(Within(control.rect, dialog.rect)) << win32::Utf8FromGbk(control.text);
            if (control.id == IDC_STATIC) {
                EXPECT_EQ(control.style & WS_TABSTOP, 0U);
                continue;
            }
            EXPECT_TRUE(ids.insert(control.id).second) << control.id;
            EXPECT_NE(control.style & WS_TABSTOP, 0U) << control.id;
            reachable = true;
        }
        EXPECT_TRUE(reachable);
        const bool isPage = (dialog.style & WS_CHILD) != 0;
        EXPECT_EQ(ids.contains(IDOK) && ids.contains(IDCANCEL), !isPage)
            << "pages leave both to their sheet";
    }
}

}  // namespace
