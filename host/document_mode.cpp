#include "host/document_mode.h"

#include "platform/ed/system_variables.h"

namespace host {

bool IsSingleDocumentMode() {
    resbuf mode;
    return acedGetVar("SDI", &mode) == RTNORM && mode.resval.rint != 0;
}

}  // namespace host
