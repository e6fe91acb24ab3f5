#pragma once

#include <string>

#include "platform/win32/win_types.h"

/// A GBK text. Positions and lengths are bytes, base 0; searching goes by whole
/// characters, so it never takes the second byte of a character for one of its own.
class CString {
public:
    CString() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): texts and literals are used as strings
    // throughout
    CString(const char* text) : text_(text == nullptr ? "" : text) {}
    CString(const char* text, int length) : text_(text, static_cast<std::size_t>(length)) {}
    explicit CString(char repeated, int count = 1)
        : text_(static_cast<std::size_t>(count), repeated) {}

    CString& operator=(const char* text);

    // NOLINTNEXTLINE(google-explicit-constructor): handed to functions that take a plain text
    operator const char*() const { return text_.c_str(); }
    int GetLength() const { return static_cast<int>(text_.size()); }
    BOOL IsEmpty() const { return text_.empty() ? TRUE : FALSE; }
    void Empty() { text_.clear(); }
    char GetAt(int position) const { return text_.at(static_cast<std::size_t>(position)); }

    CString& operator+=(const char* text);
    CString& operator+=(char c);
    friend CString operator+(CString left, const char* right) { return left += right; }
    friend CString operator+(CString left, const CString& right) {
        return left += right.text_.c_str();
    }
    friend CString operator+(const char* left, const CString& right) {
        return CString(left) += right.text_.c_str();
    }

    friend bool operator==(const CString& left, const CString& right) {
        return left.text_ == right.text_;
    }
    friend bool operator==(const CString& left, const char* right) { return left.text_ == right; }
    friend bool operator<(const CString& left, const CString& right) {
        return left.text_ < right.text_;
    }
    /// Below, at or above 0, by bytes.
    int Compare(const char* other) const { return text_.compare(other); }
    /// The same without regard to case, double-byte letters included.
    int CompareNoCase(const char* other) const;

    /// Replaces the text by a printf-style one.
    void Format(const char* format, ...) __attribute__((format(printf, 2, 3)));
    /// Sets the text to string resource `number` of the current resources; FALSE and empty when
    /// there is none.
    BOOL LoadString(UINT number);

    /// Parts; positions and counts outside the text are taken to its ends.
    CString Left(int count) const;
    CString Right(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;

    /// Position at or after `start` (the start of a character), -1 when there is none.
    int Find(char c, int start = 0) const;
    int Find(const char* part, int start = 0) const;
    int ReverseFind(char c) const;
    /// Replaces every occurrence and returns how many there were. Empty `old`: none.
    int Replace(const char* old, const char* replacement);

private:
    std::string text_;
};
