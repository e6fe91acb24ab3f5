#include "platform/oledb/last_error.h"

#include <utility>

namespace oledb {
namespace {
std::string& Text() {
    static std::string text;
    return text;
}
}  // namespace

const std::string& LastErrorText() {
    return Text();
}

HRESULT SetLastError(HRESULT result, std::string text) {
    Text() = std::move(text);
    return result;
}

void ClearLastError() {
    Text().clear();
}

}  // namespace oledb
