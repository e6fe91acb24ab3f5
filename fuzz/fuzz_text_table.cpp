// Text tables, and what else a file may turn out to be.
#include <cstddef>
#include <cstdint>

#include "fuzz/read_tables.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ReadTables(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
