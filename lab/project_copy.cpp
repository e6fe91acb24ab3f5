#include "lab/project_copy.h"

#include <algorithm>
#include <optional>

#include "lab/Failure.h"
#include "lab/project_schema.h"

namespace lab {

namespace {
constexpr const char* kKey = "GCSY";

using Row = std::vector<std::optional<std::string>>;

std::string Lower(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return name;
}

/// One table on its way. Values pass as texts, which every column takes that can hold them.
class TableCopy {
public:
    TableCopy(oledb::SqlDatabase& from, oledb::SqlDatabase& to, const char* name)
        : from_(from), to_(to), copied_{name, 0, {}} {
        std::vector<std::string> known;
        for (const std::string& column : to.Columns(name)) {
            known.push_back(Lower(column));
        }
        for (const std::string& column : from.Columns(name)) {
            if (std::find(known.begin(), known.end(), Lower(column)) == known.end()) {
                copied_.leftOut.push_back(column);
            } else if (Lower(column) != Lower(kKey)) {
                columns_ += ", " + column;
                places_ += ", ?";
                ++count_;
            }
        }
    }

    CopiedTable Copy(int index, int newIndex) {
        const std::vector<Row> rows = Read(from_, index);
        oledb::SqlStatement insert(to_, "INSERT INTO " + copied_.name + " (" + kKey + columns_ +
                                            ") VALUES (?" + places_ + ")");
        for (const Row& row : rows) {
            Write(insert, newIndex, row);
        }
        Compare(rows, Read(to_, newIndex));
        copied_.rows = rows.size();
        return copied_;
    }

private:
    std::vector<Row> Read(oledb::SqlDatabase& database, int index) const {
        oledb::SqlStatement select(database, std::string("SELECT ") + kKey + columns_ + " FROM " +
                                                 copied_.name + " WHERE " + kKey + " = ?");
        select.Bind(1, index);
        std::vector<Row> rows;
        while (select.Step()) {
            Row& row = rows.emplace_back();
            for (int column = 1; column <= count_; ++column) {
                row.push_back(select.IsNull(column) ? std::nullopt
                                                    : std::optional(select.Text(column)));
            }
        }
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    void Write(oledb::SqlStatement& insert, int index, const Row& row) const {
        insert.Bind(1, index);
        int parameter = 2;
        for (const std::optional<std::string>& value : row) {
            if (value) {
                insert.Bind(parameter++, std::string_view(*value));
            } else {
                insert.BindNull(parameter++);
            }
        }
        try {
            insert.Run();
        } catch (const Failure& failure) {
            throw Failure(copied_.name + ", row " + Described(row) + ": " + failure.what());
        }
    }

    void Compare(const std::vector<Row>& before, const std::vector<Row>& now) const {
        for (std::size_t i = 0; i < std::max(before.size(), now.size()); ++i) {
            if (i >= before.size() || i >= now.size() || before[i] != now[i]) {
                throw Failure(copied_.name + ": row " +
                              (i < before.size() ? Described(before[i]) : "none") + " became " +
                              (i < now.size() ? Described(now[i]) : "none"));
            }
        }
    }

    static std::string Described(const Row& row) {
        std::string text;
        for (const std::optional<std::string>& value : row) {
            text += (text.empty() ? "(" : ", ") + value.value_or("null");
        }
        return text + ")";
    }

    oledb::SqlDatabase& from_;
    oledb::SqlDatabase& to_;
    CopiedTable copied_;
    std::string columns_;  ///< but the key, each behind a comma
    std::string places_;
    int count_ = 0;
};
}  // namespace

CopiedProject CopyProject(oledb::SqlDatabase& from, int index, oledb::SqlDatabase& to) {
    oledb::SqlTransaction reading(from);
    oledb::SqlTransaction writing(to);
    CopiedProject copied{MakeRoom(to, index), {}};
    for (const char* const name : ProjectTables()) {
        if (from.Columns(name).empty()) {
            continue;
        }
        MakeProjectTable(to, name);
        copied.tables.push_back(TableCopy(from, to, name).Copy(index, copied.index));
    }
    writing.Commit();
    return copied;
}

}  // namespace lab
