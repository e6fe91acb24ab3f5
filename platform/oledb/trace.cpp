#include "platform/oledb/trace.h"

namespace oledb {
namespace {
TraceFunction current = nullptr;
}  // namespace

void SetTrace(TraceFunction trace) {
    current = trace;
}
TraceFunction Trace() {
    return current;
}

}  // namespace oledb
