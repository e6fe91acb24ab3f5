#include "apps/grdx/csv_columns.h"

#include <algorithm>

#include "apps/grdx/numbers.h"
#include "platform/win32/code_page.h"
#include "src/core/sample_names.h"

namespace console {

namespace {
std::string Join(const std::vector<std::string>& names) {
    std::string joined;
    for (const std::string& name : names) {
        joined += (joined.empty() ? "" : ",") + name;
    }
    return joined;
}

std::string Count(std::size_t count, const char* unit) {
    return std::to_string(count) + " " + unit + (count == 1 ? "" : "s");
}

bool HasControlCharacter(const std::string& text) {
    return std::any_of(text.begin(), text.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 || byte == 0x7F;
    });
}
}  // namespace

std::vector<CsvRecord> ReadCsvTable(std::string_view text, const std::vector<std::string>& header,
                                    std::vector<LineError>& errors) {
    std::vector<CsvRecord> records = ReadCsv(text, errors);
    if (records.empty() || records.front().fields != header) {
        errors.insert(errors.begin(), {1, "the file must begin with the line " + Join(header)});
        return {};
    }
    records.erase(records.begin());
    if (records.empty() && errors.empty()) {
        errors.push_back({1, "no data after the header line"});
    }
    std::erase_if(records, [&](const CsvRecord& record) {
        if (record.fields.size() == header.size()) {
            return false;
        }
        errors.push_back({record.line, Count(record.fields.size(), "field") + " instead of " +
                                           std::to_string(header.size())});
        return true;
    });
    return records;
}

std::string RecordReader::Quoted(std::size_t column) const {
    return header_[column] + " \"" + record_.fields[column] + "\"";
}

void RecordReader::Fail(const std::string& reason) {
    if (reason_.empty()) {
        reason_ = reason;
    }
}

std::string RecordReader::Text(std::size_t column, std::size_t limit) {
    const std::string& text = record_.fields[column];
    std::string gbk;
    if (HasControlCharacter(text)) {
        Fail(header_[column] + ": a line break or another control character");
    } else if (!win32::TryGbkFromUtf8(text, gbk)) {
        Fail(Quoted(column) + ": a character that GBK does not have");
    } else if (win32::Utf16FromUtf8(text).size() > limit) {
        Fail(Quoted(column) + ": more than " + std::to_string(limit) + " characters");
    }
    return text;
}

std::string RecordReader::Name(std::size_t column, std::size_t limit) {
    const std::string& name = record_.fields[column];
    std::string gbk;
    if (name.empty()) {
        Fail(header_[column] + ": missing");
    } else if (win32::TryGbkFromUtf8(name, gbk)) {
        const NameFault fault = FindNameFault(gbk, limit);
        if (fault.kind == NameFault::Kind::kBlankAtEnd) {
            Fail(Quoted(column) + ": blanks around the name");
        } else if (fault.kind == NameFault::Kind::kCharacter) {
            Fail(Quoted(column) + ": " + fault.character +
                 " cannot stand in the name of a sheet or in its mark");
        }
    }
    return Text(column, limit);
}

double RecordReader::Number(std::size_t column) {
    const std::optional<double> number = ParseNumber(record_.fields[column]);
    if (IsEmpty(column)) {
        Fail(header_[column] + ": missing");
    } else if (!number) {
        Fail(Quoted(column) + ": not a number");
    } else if (*number < 0.0) {
        Fail(Quoted(column) + ": below 0");
    } else if (!StoredNumber(*number)) {
        Fail(Quoted(column) + ": outside the range of a 32-bit float");
    } else {
        return *StoredNumber(*number);
    }
    return 0.0;
}

int RecordReader::Integer(std::size_t column, int low, int high) {
    const std::optional<int> number = ParseInteger(record_.fields[column]);
    if (!number || *number < low || *number > high) {
        Fail(Quoted(column) + ": not an integer from " + std::to_string(low) + " to " +
             std::to_string(high));
        return low;
    }
    return *number;
}

}  // namespace console
