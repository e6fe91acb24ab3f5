#include "platform/oledb/last_error.h"

#include <utility>

namespace oledb {
namespace {
std::string& Text() {
    static std::string text;
    return text;
}

ErrorListener& Listener() {
    static ErrorListener listener;
    return listener;
}
}  // namespace

ErrorListener SetErrorListener(ErrorListener listener) {
    return std::exchange(Listener(), std::move(listener));
}

const std::string& LastErrorText() {
    return Text();
}

HRESULT SetLastError(HRESULT result, std::string text) {
    Text() = std::move(text);
    if (Listener()) {
        Listener()(Text());
    }
    return result;
}

void ClearLastError() {
    Text().clear();
}

}  // namespace oledb
