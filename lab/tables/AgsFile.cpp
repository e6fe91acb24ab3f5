#include "lab/tables/AgsFile.h"

#include <algorithm>

#include "lab/tables/TableSource.h"

namespace lab {

std::size_t AgsGroup::IndexOf(std::string_view heading) const {
    const auto found = std::find(headings.begin(), headings.end(), heading);
    return found == headings.end() ? kNone : static_cast<std::size_t>(found - headings.begin());
}

AgsFile::AgsFile(const std::string& name, std::string_view text,
                 const std::vector<std::string_view>& wanted, Findings& findings)
    : name_(name), wanted_(wanted), findings_(findings) {
    while (!text.empty()) {
        ++line_;
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (end != std::string_view::npos && !line.ends_with('\r')) {
            Refuse("the line ends with LF alone; lines of AGS4 end with CR LF");
            return;  // every further line would say the same
        }
        line.remove_suffix(line.ends_with('\r') ? 1 : 0);
        ReadLine(line);
    }
}

const AgsGroup* AgsFile::Find(std::string_view group) const {
    const auto found = groups_.find(group);
    return found == groups_.end() ? nullptr : &found->second;
}

void AgsFile::Refuse(const std::string& reason) {
    findings_.Refuse(name_ + ":" + std::to_string(line_), reason);
}

void AgsFile::ReadLine(std::string_view line) {
    std::vector<std::string_view> values;
    if (line.find_first_not_of(" \t") == std::string_view::npos || !Split(line, values)) {
        return;
    }
    if (values.front() == "GROUP") {
        Begin(values);
    } else if (current_ == nullptr) {
        Refuse("a line before the first GROUP");
    } else {
        Enter(values);
    }
}

/// False, with what is wrong told, when the line is not made of quoted values and commas.
bool AgsFile::Split(std::string_view line, std::vector<std::string_view>& values) {
    std::size_t position = 0;
    while (true) {
        if (position >= line.size() || line[position] != '"') {
            Refuse("value " + std::to_string(values.size() + 1) + " does not stand in quotes");
            return false;
        }
        const std::size_t start = ++position;
        std::size_t quotes = 0;
        for (; position < line.size(); ++position) {
            if (line[position] == '"') {
                if (line.substr(position, 2) != "\"\"") {
                    break;
                }
                ++quotes;
                ++position;
            }
        }
        if (position >= line.size()) {
            Refuse("the closing quote of value " + std::to_string(values.size() + 1) +
                   " is missing");
            return false;
        }
        std::string_view value = line.substr(start, position - start);
        if (value.size() > kLongestCell) {
            Refuse("a value of more than 32767 bytes");
            return false;
        }
        if (quotes > 0) {
            std::string& plain = unescaped_.emplace_back();
            for (std::size_t i = 0; i < value.size(); ++i) {
                plain += value[i];
                i += value[i] == '"' ? 1 : 0;
            }
            value = plain;
        }
        values.push_back(value);
        if (++position == line.size()) {
            return true;
        }
        if (line[position++] != ',') {
            Refuse("text after the closing quote of value " + std::to_string(values.size()));
            return false;
        }
    }
}

void AgsFile::Begin(const std::vector<std::string_view>& values) {
    const std::string group(values.size() > 1 ? values[1] : "");
    if (group.empty()) {
        Refuse("a GROUP without a name");
    } else if (std::find(wanted_.begin(), wanted_.end(), group) == wanted_.end()) {
        others_.push_back(group);
        unwanted_ = {};
        current_ = &unwanted_;
    } else {
        const auto [known, added] = groups_.try_emplace(group);
        if (!added) {
            Refuse("the group " + group + " stands in line " + std::to_string(known->second.line) +
                   ", too");
        }
        current_ = &known->second;
        *current_ = {};
        current_->line = line_;
    }
}

void AgsFile::Enter(std::vector<std::string_view>& values) {
    const std::string_view kind = values.front();
    AgsGroup& group = *current_;
    if (kind == "HEADING" && group.headings.empty()) {
        group.headings.assign(values.begin() + 1, values.end());
    } else if (kind != "UNIT" && kind != "TYPE" && kind != "DATA") {
        Refuse("a line of the kind " + Quoted(kind) + " stands where it does not belong");
    } else if (group.headings.empty()) {
        Refuse("a line of the kind " + std::string(kind) + " before the group's headings");
    } else if (values.size() - 1 != group.headings.size()) {
        Refuse(std::to_string(values.size() - 1) + " values for " +
               std::to_string(group.headings.size()) + " headings");
    } else if (kind == "UNIT") {
        group.units.assign(values.begin() + 1, values.end());
    } else if (kind == "DATA" && current_ != &unwanted_) {
        values.erase(values.begin());
        group.rows.push_back({line_, std::move(values)});
    }
}

}  // namespace lab
