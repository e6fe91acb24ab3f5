#include "platform/oledb/RowBuffer.h"

#include <cstdint>
#include <cstring>

namespace oledb {
namespace {

template <class T>
void Put(std::string& bytes, T number) {
    char raw[sizeof(T)];
    std::memcpy(raw, &number, sizeof(T));
    bytes.append(raw, sizeof(T));
}

template <class T>
T Take(const char*& at) {
    T number;
    std::memcpy(&number, at, sizeof(T));
    at += sizeof(T);
    return number;
}

}  // namespace

void RowBuffer::Append(const Value& value) {
    bytes_.push_back(static_cast<char>(value.kind));
    switch (value.kind) {
        case Value::Kind::Null:
            break;
        case Value::Kind::Integer:
            Put(bytes_, value.integer);
            break;
        case Value::Kind::Real:
            Put(bytes_, value.real);
            break;
        case Value::Kind::Text:
        case Value::Kind::Blob:
            Put(bytes_, static_cast<std::uint32_t>(value.text.size()));
            bytes_.append(value.text);
            break;
    }
}

void RowBuffer::Read(std::size_t row, std::vector<Value>& values) const {
    const std::size_t end = row + 1 < starts_.size() ? starts_[row + 1] : bytes_.size();
    const char* at = bytes_.data() + starts_[row];
    const char* const last = bytes_.data() + end;
    values.clear();
    while (at != last) {
        Value& value = values.emplace_back();
        value.kind = static_cast<Value::Kind>(*at++);
        switch (value.kind) {
            case Value::Kind::Null:
                break;
            case Value::Kind::Integer:
                value.integer = Take<std::int64_t>(at);
                break;
            case Value::Kind::Real:
                value.real = Take<double>(at);
                break;
            case Value::Kind::Text:
            case Value::Kind::Blob: {
                const auto size = Take<std::uint32_t>(at);
                value.text = {at, size};
                at += size;
                break;
            }
        }
    }
}

}  // namespace oledb
