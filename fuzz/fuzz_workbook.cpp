// Workbooks: the bytes are a whole package, or what stands in the sheet of one.
#include <cstddef>
#include <cstdint>

#include "fuzz/read_tables.h"
#include "tests/lab/Workbook.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    ReadTables(bytes.starts_with("PK") ? bytes : MakeWorkbook(bytes));
    return 0;
}
