#pragma once

namespace desk {

/// Name, language and style of the program; to be called once a QApplication exists.
void SetUpApplication();

}  // namespace desk
