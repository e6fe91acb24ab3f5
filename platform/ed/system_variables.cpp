#include "platform/ed/system_variables.h"

#include "platform/win32/gbk_case.h"

namespace {
/// The one variable kept: 1 when a drawing opened takes the place of the one before.
short& Sdi() {
    static short value = 0;
    return value;
}

bool IsSdi(const char* name) {
    return name != nullptr && win32::EqualNoCase(name, "SDI");
}
}  // namespace

int acedGetVar(const char* name, resbuf* result) {
    if (!IsSdi(name) || result == nullptr) {
        return RTERROR;
    }
    result->restype = RTSHORT;
    result->resval.rint = Sdi();
    return RTNORM;
}

int acedSetVar(const char* name, const resbuf* value) {
    if (!IsSdi(name) || value == nullptr || value->restype != RTSHORT || value->resval.rint < 0 ||
        value->resval.rint > 1) {
        return RTERROR;
    }
    Sdi() = value->resval.rint;
    return RTNORM;
}
