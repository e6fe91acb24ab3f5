#include "apps/desk/part_missing.h"

#include "apps/windows/interface_text.h"

namespace desk {

QString PartMissing() {
    return windows::InterfaceText(
        "The drawing's blocks and patterns make more than can be shown: a part is missing.",
        "图形中的块和图案展开后过多，未能全部显示。");
}

}  // namespace desk
