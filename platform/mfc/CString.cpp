#include "platform/mfc/CString.h"

#include <algorithm>
#include <cstdarg>
#include <cstring>

#include "platform/mfc/afx.h"
#include "platform/mfc/resources.h"
#include "platform/win32/code_page.h"
#include "platform/win32/format_text.h"
#include "platform/win32/gbk_case.h"

namespace {

/// Position of `part` at or after `from`, at the start of a character; npos when there is none.
std::size_t FindPart(std::string_view text, std::string_view part, std::size_t from) {
    for (std::size_t pos = from; pos + part.size() <= text.size();
         pos += win32::CharLength(text, pos)) {
        if (text.substr(pos, part.size()) == part) {
            return pos;
        }
        if (pos == text.size()) {
            break;
        }
    }
    return std::string_view::npos;
}

int Index(std::size_t position) {
    return position == std::string_view::npos ? -1 : static_cast<int>(position);
}

/// A count or position taken into the range 0 to `limit`.
std::size_t Within(int value, std::size_t limit) {
    return value < 0 ? 0 : std::min(static_cast<std::size_t>(value), limit);
}

}  // namespace

CString& CString::operator=(const char* text) {
    text_ = std::string(text == nullptr ? "" : text);  // the text may be a part of this one
    return *this;
}

CString& CString::operator+=(const char* text) {
    text_ += std::string(text == nullptr ? "" : text);
    return *this;
}

CString& CString::operator+=(char c) {
    text_ += c;
    return *this;
}

int CString::CompareNoCase(const char* other) const {
    return win32::CompareNoCase(text_, other);
}

void CString::Format(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    text_ = win32::FormatText(format, arguments);
    va_end(arguments);
}

BOOL CString::LoadString(UINT number) {
    text_.clear();
    return mfc::FindString(AfxGetResourceHandle(), number, text_) ? TRUE : FALSE;
}

CString CString::Left(int count) const {
    return Mid(0, count);
}

CString CString::Right(int count) const {
    const std::size_t length = Within(count, text_.size());
    return Mid(static_cast<int>(text_.size() - length));
}

CString CString::Mid(int first) const {
    return Mid(first, GetLength());
}

CString CString::Mid(int first, int count) const {
    const std::size_t start = Within(first, text_.size());
    CString part;
    part.text_ = text_.substr(start, Within(count, text_.size() - start));
    return part;
}

int CString::Find(char c, int start) const {
    return Index(win32::FindChar(text_, c, Within(start, text_.size())));
}

int CString::Find(const char* part, int start) const {
    return Index(FindPart(text_, part, Within(start, text_.size())));
}

int CString::ReverseFind(char c) const {
    return Index(win32::FindLastChar(text_, c));
}

int CString::Replace(const char* old, const char* replacement) {
    const std::size_t oldLength = std::strlen(old);
    if (oldLength == 0) {
        return 0;
    }
    int count = 0;
    std::string replaced;
    std::size_t done = 0;
    for (std::size_t pos = FindPart(text_, old, 0); pos != std::string::npos;
         pos = FindPart(text_, old, done)) {
        replaced.append(text_, done, pos - done).append(replacement);
        done = pos + oldLength;
        ++count;
    }
    replaced.append(text_, done);
    text_ = std::move(replaced);
    return count;
}
