// AGS4 files: whatever the bytes, they begin as one.
#include <cstddef>
#include <cstdint>

#include "fuzz/read_tables.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    ReadTables(text.starts_with("\"GROUP\"") ? text : "\"GROUP\",\"SAMP\"\r\n" + text);
    return 0;
}
