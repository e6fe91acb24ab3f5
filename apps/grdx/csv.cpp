#include "apps/grdx/csv.h"

#include <utility>

namespace console {

namespace {
/// Reads the text once from start to end.
class Reader {
public:
    Reader(std::string_view text, std::vector<LineError>& errors) : text_(text), errors_(errors) {}

    std::vector<CsvRecord> ReadAll() {
        std::vector<CsvRecord> records;
        while (position_ < text_.size()) {
            CsvRecord record{line_, {}};
            const bool good = ReadRecord(record.fields);
            const bool empty = record.fields.size() == 1 && record.fields.front().empty();
            if (good && !empty) {
                records.push_back(std::move(record));
            }
        }
        return records;
    }

private:
    bool AtEnd() const { return position_ >= text_.size(); }
    bool AtLineEnd() const {
        return AtEnd() || text_[position_] == '\n' || text_.substr(position_, 2) == "\r\n";
    }

    bool ReadRecord(std::vector<std::string>& fields) {
        const std::size_t start = line_;
        while (true) {
            std::string field;
            const char* fault = ReadField(field);
            if (fault != nullptr) {
                errors_.push_back({start, fault});
                SkipLine();
                return false;
            }
            fields.push_back(std::move(field));
            if (AtLineEnd()) {
                SkipLine();
                return true;
            }
            ++position_;  // the comma
        }
    }

    /// Ends at a comma or a line's end. Null, or what is wrong.
    const char* ReadField(std::string& field) {
        if (!AtEnd() && text_[position_] == '"') {
            return ReadQuoted(field);
        }
        while (!AtLineEnd() && text_[position_] != ',') {
            if (text_[position_] == '"') {
                return "a quote within a field that does not stand in quotes";
            }
            field += text_[position_++];
        }
        return nullptr;
    }

    const char* ReadQuoted(std::string& field) {
        for (++position_; !AtEnd(); ++position_) {
            if (text_[position_] != '"') {
                line_ += text_[position_] == '\n' ? 1 : 0;
                field += text_[position_];
            } else if (text_.substr(position_, 2) == "\"\"") {
                field += '"';
                ++position_;
            } else {
                ++position_;
                return AtLineEnd() || text_[position_] == ','
                           ? nullptr
                           : "text after the closing quote of a field";
            }
        }
        return "a field's closing quote is missing";
    }

    void SkipLine() {
        const std::size_t end = text_.find('\n', position_);
        position_ = end == std::string_view::npos ? text_.size() : end + 1;
        ++line_;
    }

    std::string_view text_;
    std::vector<LineError>& errors_;
    std::size_t position_ = 0;
    std::size_t line_ = 1;
};
}  // namespace

std::vector<CsvRecord> ReadCsv(std::string_view text, std::vector<LineError>& errors) {
    return Reader(text, errors).ReadAll();
}

}  // namespace console
