#pragma once

namespace host {

/// Whether a drawing that is opened or made takes the place of the current one (system variable
/// SDI). There is always one drawing then.
bool IsSingleDocumentMode();

}  // namespace host
