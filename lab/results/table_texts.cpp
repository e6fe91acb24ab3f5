#include "lab/results/table_texts.h"

#include <nlohmann/json.hpp>

#include "lab/checks/findings_json.h"
#include "platform/win32/number_text.h"

namespace lab {

namespace {
using Json = nlohmann::ordered_json;

std::string Quoted(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (const char c : text) {
        quoted.append(c == '"' ? 2 : 1, c);
    }
    return quoted + '"';
}

struct TextMaker {
    std::string operator()(std::monostate /*empty*/) const { return {}; }
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(double number) const { return win32::ShortestText(number); }
    std::string operator()(bool flag) const { return flag ? "yes" : "no"; }
    std::string operator()(const FindingList& findings) const {
        std::string codes;
        for (const Finding& finding : findings) {
            codes += (codes.empty() ? "" : " ") + std::string(finding.code);
        }
        return codes;
    }
};

struct JsonMaker {
    Json operator()(std::monostate /*empty*/) const { return nullptr; }
    Json operator()(const FindingList& findings) const { return FindingsAsJson(findings); }
    template <class Value>
    Json operator()(const Value& value) const {
        return value;
    }
};
}  // namespace

std::string HeaderOf(const ResultTable::Column& column) {
    return column.remark.empty() ? column.name : column.name + " (" + column.remark + ")";
}

std::string TextOf(const ResultTable::Cell& cell) {
    return std::visit(TextMaker(), cell);
}

std::string TableAsCsv(const ResultTable& table) {
    std::string text;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        text += (i == 0 ? "" : ",") + Quoted(HeaderOf(table.columns[i]));
    }
    text += '\n';
    for (const auto& row : table.rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            text += (i == 0 ? "" : ",") + Quoted(TextOf(row[i]));
        }
        text += '\n';
    }
    return text;
}

std::string TableAsJson(const ResultTable& table) {
    std::string text = "[";
    for (const auto& row : table.rows) {
        Json object;
        for (std::size_t i = 0; i < row.size(); ++i) {
            object[table.columns[i].name] = std::visit(JsonMaker(), row[i]);
        }
        text += (text.size() == 1 ? "\n" : ",\n") + object.dump();
    }
    return text + "\n]\n";
}

}  // namespace lab
