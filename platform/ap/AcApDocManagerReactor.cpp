#include "platform/ap/AcApDocManagerReactor.h"

ACRX_DEFINE_MEMBERS(AcApDocManagerReactor, AcRxObject, nullptr);

void AcApDocManagerReactor::documentToBeDestroyed(AcApDocument* /*document*/) {}
