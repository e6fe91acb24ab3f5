#include "lab/tables/TableHeader.h"

#include <algorithm>

namespace lab {

namespace {
/// Above a header stand a title, a project, a date.
constexpr int kMostRowsAbove = 50;
constexpr std::size_t kMostLines = 4;

bool Contains(const std::initializer_list<Column>& columns, Column column) {
    return std::find(columns.begin(), columns.end(), column) != columns.end();
}

std::vector<std::string> Folded(const TableRow& row) {
    std::vector<std::string> texts;
    for (const Cell& cell : row.cells) {
        texts.push_back(FoldedHeader(cell.shown));
    }
    return texts;
}

bool Names(const std::string& folded, Column column, const ColumnNames& names) {
    return names.Find(folded).column == column;
}

bool IsHeader(const std::vector<std::string>& texts, const TableForm& form,
              const ColumnNames& names) {
    return std::all_of(form.keys.begin(), form.keys.end(), [&](Column key) {
        return std::any_of(texts.begin(), texts.end(),
                           [&](const std::string& text) { return Names(text, key, names); });
    });
}

bool IsSizeOrName(const std::string& folded, const ColumnNames& names) {
    std::string fault;
    return names.Find(folded).column || ReadSizeHeader(folded, fault);
}

/// Whether the header goes on in the row: nothing new under its keys, but sizes or names elsewhere.
bool GoesOn(const std::vector<std::string>& first, const TableRow& row, const TableForm& form,
            const ColumnNames& names) {
    const std::vector<std::string> texts = Folded(row);
    bool more = false;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const bool key = i < first.size() &&
                         std::any_of(form.keys.begin(), form.keys.end(),
                                     [&](Column column) { return Names(first[i], column, names); });
        if (key && !texts[i].empty() && !row.cells[i].continued) {
            return false;
        }
        more = more || (!key && !row.cells[i].continued && IsSizeOrName(texts[i], names));
    }
    return more;
}

/// Whether what is to be read is in one line's texts: then no second line is looked for.
bool IsWhole(const std::vector<std::string>& texts, const TableForm& form,
             const ColumnNames& names) {
    if (!form.sizes) {
        return true;
    }
    std::string fault;
    return std::any_of(texts.begin(), texts.end(), [&](const std::string& text) {
        return Names(text, Column::kSize, names) || ReadSizeHeader(text, fault);
    });
}

std::string KeysOf(const TableForm& form) {
    std::string text;
    for (const Column key : form.keys) {
        text += (text.empty() ? "" : " and ") + std::string(ColumnName(key));
    }
    return text;
}
}  // namespace

bool TableHeader::Read(TableSource& source, const TableForm& form, const ColumnNames& names,
                       TableRow& next, bool& more, Findings& findings) {
    more = source.Next(next);
    for (int above = 0; more && !IsHeader(Folded(next), form, names); ++above) {
        more = above < kMostRowsAbove && source.Next(next);
    }
    if (!more) {
        if (!findings.Refused()) {
            findings.Refuse(source.Place(1, 0), "no header line that names " + KeysOf(form));
        }
        return false;
    }
    row_ = next.number;
    std::vector<Line> lines = {Folded(next)};
    for (const Cell& cell : next.cells) {
        texts_.push_back(PlainText(cell.shown));
    }
    const bool whole = IsWhole(lines.front(), form, names);
    while ((more = source.Next(next)) && !whole && lines.size() < kMostLines &&
           GoesOn(lines.front(), next, form, names)) {
        lines.push_back(Folded(next));
        texts_.resize(std::max(texts_.size(), next.cells.size()));
        for (std::size_t i = 0; i < next.cells.size(); ++i) {
            const std::string text = PlainText(next.cells[i].shown);
            texts_[i] = text.empty() ? texts_[i] : text;
        }
    }
    return Recognise(source, lines, form, names, findings);
}

bool TableHeader::Recognise(const TableSource& source, const std::vector<Line>& lines,
                            const TableForm& form, const ColumnNames& names, Findings& findings) {
    indexes_.fill(kNone);
    bool good = true;
    for (std::size_t index = 0; index < texts_.size(); ++index) {
        std::string fault;
        const bool known = std::any_of(lines.rbegin(), lines.rend(), [&](const Line& line) {
            return index < line.size() && !line[index].empty() &&
                   Enter(line[index], index, form, names, fault);
        });
        const std::string place = source.Place(row_, index);
        if (!fault.empty()) {
            findings.Refuse(place, "column " + Quoted(texts_[index]) + ": " + fault);
            good = false;
        } else if (!known && !texts_[index].empty()) {
            findings.Note(place + ": column " + Quoted(texts_[index]) +
                          " is not known and is left out");
        }
    }
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
        FindGroup(lines[i], names);
    }
    return good;
}

/// Whether the text says what the column is; then `fault` may say why it cannot be that.
bool TableHeader::Enter(const std::string& folded, std::size_t index, const TableForm& form,
                        const ColumnNames& names, std::string& fault) {
    const ColumnNames::Match match = names.Find(folded);
    const bool named = match.column &&
                       (Contains(form.keys, *match.column) || Contains(form.others, *match.column));
    std::string sizeFault;
    const std::optional<SizeHeader> size =
        form.sizes ? ReadSizeHeader(folded, sizeFault) : std::nullopt;
    if (named && size) {
        fault = "names " + std::string(ColumnName(*match.column)) + " and is a size, too";
        return true;
    }
    if (size) {
        fault = sizeFault;
        for (const SizeColumn& other : sizes_) {
            if (other.header.size == size->size && other.header.below == size->below) {
                fault = "the same size as column " + Quoted(texts_[other.index]);
            }
        }
        sizes_.push_back({index, *size});
        return true;
    }
    if (!named) {
        return false;
    }
    std::size_t& known = indexes_[static_cast<std::size_t>(*match.column)];
    fault = match.fault;
    if (known != kNone) {
        fault = "the same as column " + Quoted(texts_[known]);
    }
    known = index;
    return true;
}

/// A heading stands over the first of its columns, or is repeated over each of them.
void TableHeader::FindGroup(const Line& line, const ColumnNames& names) {
    if (sizes_.empty()) {
        return;
    }
    std::size_t index = std::min(sizes_.front().index + 1, line.size());
    while (index > 0 && line[index - 1].empty()) {
        --index;
    }
    if (index > 0) {
        const auto column = names.Find(line[index - 1]).column;
        const bool ofValues =
            column == Column::kMass || column == Column::kPassing || column == Column::kCumulative;
        group_ = ofValues ? column : group_;
    }
}

}  // namespace lab
