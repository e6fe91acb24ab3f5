#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lab/tables/xlsx/NumberFormat.h"
#include "lab/tables/xlsx/Package.h"

namespace pugi {
class xml_document;
class xml_node;
}  // namespace pugi

namespace lab {

/// What the cells of a workbook's sheets need: the sheets' parts, the shared texts, the formats.
class Workbook {
public:
    /// Opens one sheet: that of the name, or the first that is shown. Failure when there is none,
    /// with the names that there are.
    Workbook(std::string name, std::string_view bytes, const std::string& sheet);

    const Package& Parts() const { return package_; }
    const std::string& SheetPart() const { return sheetPart_; }
    const std::string& SheetName() const { return sheetName_; }
    /// Null when there is no text of that number.
    const std::string* SharedText(std::size_t index) const;
    const NumberFormat& Format(std::size_t style) const;
    bool Since1904() const { return since1904_; }

private:
    struct Relation {
        std::string id;
        std::string type;  ///< the last word of it
        std::string part;
    };
    std::vector<Relation> RelationsOf(const std::string& part) const;
    void FindSheet(const std::string& part, const std::vector<Relation>& relations,
                   const std::string& wanted);
    void ReadSharedTexts(const std::string& part);
    void ReadStyles(const std::string& part);

    Package package_;
    std::string sheetPart_;
    std::string sheetName_;
    std::vector<std::string> texts_;
    std::vector<NumberFormat> formats_;
    std::vector<std::size_t> formatOfStyle_;
    bool since1904_ = false;
};

/// The text of a cell or shared text: its runs, without what tells their pronunciation.
std::string TextOfRuns(const pugi::xml_node& node);
/// The first child of that name, whatever its prefix.
pugi::xml_node ChildOf(const pugi::xml_node& node, std::string_view name);
/// An attribute by its name without prefix; empty when there is none.
std::string_view AttributeOf(const pugi::xml_node& node, std::string_view name);

}  // namespace lab
