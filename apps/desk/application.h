#pragma once

namespace desk {

/// Name, style and font of the program; to be called once a QApplication exists.
void SetUpApplication();

}  // namespace desk
