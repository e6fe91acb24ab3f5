#include "platform/mfc/window_system.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/rx/AcRxDynamicLinker.h"

namespace mfc {
namespace {

WindowSystem* current = nullptr;

constexpr UINT kButtonsMask = 0xF;
constexpr UINT kDefaultShift = 8;

std::vector<int> Buttons(UINT type) {
    switch (type & kButtonsMask) {
        case MB_OKCANCEL:
            return {IDOK, IDCANCEL};
        case MB_YESNOCANCEL:
            return {IDYES, IDNO, IDCANCEL};
        case MB_YESNO:
            return {IDYES, IDNO};
        default:
            return {IDOK};
    }
}

}  // namespace

WindowSystem* SetWindowSystem(WindowSystem* system) {
    return std::exchange(current, system);
}

WindowSystem& CurrentWindowSystem() {
    if (current == nullptr) {
        acrx_abort("a window is to be shown, but no window system is set");
    }
    return *current;
}

int DefaultButton(UINT type) {
    const std::vector<int> buttons = Buttons(type);
    const std::size_t index = (type >> kDefaultShift) & 0x3U;
    return index < buttons.size() ? buttons[index] : buttons.front();
}

bool HasButton(UINT type, int id) {
    const std::vector<int> buttons = Buttons(type);
    return std::find(buttons.begin(), buttons.end(), id) != buttons.end();
}

}  // namespace mfc
