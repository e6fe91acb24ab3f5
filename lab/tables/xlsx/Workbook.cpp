#include "lab/tables/xlsx/Workbook.h"

#include <charconv>
#include <map>
#include <utility>

#include <pugixml.hpp>

#include "lab/Failure.h"
#include "lab/numbers.h"
#include "lab/tables/Findings.h"
#include "lab/tables/TableSource.h"
#include "lab/tables/xlsx/XmlElements.h"

namespace lab {

namespace {
constexpr std::size_t kMostSharedBytes = 128 << 20;

/// Reads a part that is small.
void Load(const Package& package, const std::string& part, pugi::xml_document& document) {
    const std::string content = package.Content(part);
    if (!document.load_buffer(content.data(), content.size())) {
        throw Failure(package.Name() + ": the workbook is broken: part " + part);
    }
}

/// The last word of a relation's type, which is the same in both kinds of the form.
std::string LastWord(std::string_view type) {
    return std::string(type.substr(type.rfind('/') + 1));
}

/// A target as the parts of the package are named; it counts from the folder of its source.
std::string PartOf(const std::string& source, std::string_view target) {
    if (target.starts_with('/')) {
        return std::string(target.substr(1));
    }
    std::string folder = source.substr(0, source.rfind('/') + 1);
    while (target.starts_with("../")) {
        target.remove_prefix(3);
        folder.resize(folder.empty() ? 0 : folder.size() - 1);
        folder.resize(folder.rfind('/') + 1);
    }
    return folder + std::string(target);
}

/// Characters that XML cannot have stand as _x000D_.
std::string Unescaped(std::string text) {
    for (std::size_t at = text.find("_x"); at != std::string::npos; at = text.find("_x", at + 1)) {
        unsigned code = 0;
        const char* const first = text.data() + at + 2;
        if (at + 7 <= text.size() && text[at + 6] == '_' &&
            std::from_chars(first, first + 4, code, 16).ptr == first + 4 && code < 0x80) {
            text.replace(at, 7, 1, static_cast<char>(code));
        }
    }
    return text;
}
}  // namespace

pugi::xml_node ChildOf(const pugi::xml_node& node, std::string_view name) {
    for (const pugi::xml_node& child : node.children()) {
        if (LocalName(child.name()) == name) {
            return child;
        }
    }
    return {};
}

std::string_view AttributeOf(const pugi::xml_node& node, std::string_view name) {
    for (const pugi::xml_attribute& attribute : node.attributes()) {
        if (LocalName(attribute.name()) == name) {
            return attribute.value();
        }
    }
    return {};
}

std::string TextOfRuns(const pugi::xml_node& node) {
    std::string text;
    for (const pugi::xml_node& child : node.children()) {
        if (LocalName(child.name()) == "t") {
            text += child.text().get();
        } else if (LocalName(child.name()) == "r") {
            text += ChildOf(child, "t").text().get();
        }
    }
    return Unescaped(std::move(text));
}

Workbook::Workbook(std::string name, std::string_view bytes, const std::string& sheet)
    : package_(std::move(name), bytes), formats_{NumberFormat("General")} {
    std::string part;
    for (const Relation& relation : RelationsOf("")) {
        part = relation.type == "officeDocument" ? relation.part : part;
    }
    if (part.empty()) {
        throw Failure(package_.Name() + ": no workbook: it does not say which part is one");
    }
    const std::vector<Relation> relations = RelationsOf(part);
    FindSheet(part, relations, sheet);
    for (const Relation& relation : relations) {
        if (relation.type == "sharedStrings") {
            ReadSharedTexts(relation.part);
        } else if (relation.type == "styles") {
            ReadStyles(relation.part);
        }
    }
}

std::vector<Workbook::Relation> Workbook::RelationsOf(const std::string& part) const {
    const std::size_t name = part.rfind('/') + 1;
    pugi::xml_document document;
    Load(package_, part.substr(0, name) + "_rels/" + part.substr(name) + ".rels", document);
    std::vector<Relation> relations;
    for (const pugi::xml_node& node : document.first_child().children()) {
        relations.push_back({std::string(AttributeOf(node, "Id")),
                             LastWord(AttributeOf(node, "Type")),
                             PartOf(part, AttributeOf(node, "Target"))});
    }
    return relations;
}

void Workbook::FindSheet(const std::string& part, const std::vector<Relation>& relations,
                         const std::string& wanted) {
    pugi::xml_document document;
    Load(package_, part, document);
    const pugi::xml_node root = document.first_child();
    const std::string_view since = AttributeOf(ChildOf(root, "workbookPr"), "date1904");
    since1904_ = since == "1" || since == "true";
    std::string names;
    for (const pugi::xml_node& sheet : ChildOf(root, "sheets").children()) {
        const std::string name(AttributeOf(sheet, "name"));
        const std::string_view id = sheet.attribute("r:id").value();
        for (const Relation& relation : relations) {
            const bool isSheet =
                relation.type == "worksheet" &&
                (id.empty() ? relation.id == AttributeOf(sheet, "id") : relation.id == id);
            if (!isSheet) {
                continue;
            }
            names += (names.empty() ? "" : ", ") + name;
            const bool shown =
                AttributeOf(sheet, "state").empty() || AttributeOf(sheet, "state") == "visible";
            if (sheetPart_.empty() && (wanted.empty() ? shown : name == wanted)) {
                sheetPart_ = relation.part;
                sheetName_ = name;
            }
        }
    }
    if (sheetPart_.empty()) {
        throw Failure(package_.Name() + ": there is no sheet " +
                      (wanted.empty() ? "that is shown" : Quoted(wanted)) +
                      "; there are: " + names);
    }
}

void Workbook::ReadSharedTexts(const std::string& part) {
    XmlElements elements(package_.Name(), package_.Open(part), {"si"});
    std::string_view element;
    pugi::xml_document document;
    std::size_t bytes = 0;
    while (elements.Next(element)) {
        if (!document.load_buffer(element.data(), element.size(),
                                  pugi::parse_default | pugi::parse_ws_pcdata)) {
            throw Failure(package_.Name() + ": the workbook is broken: text " +
                          std::to_string(texts_.size()));
        }
        texts_.push_back(TextOfRuns(document.first_child()));
        bytes += texts_.back().size() + sizeof(std::string);
        if (bytes > kMostSharedBytes) {
            throw Failure(package_.Name() + ": more texts than a table can have");
        }
    }
}

void Workbook::ReadStyles(const std::string& part) {
    pugi::xml_document document;
    Load(package_, part, document);
    const pugi::xml_node root = document.first_child();
    std::map<std::string, std::string, std::less<>> codes;
    for (const pugi::xml_node& format : ChildOf(root, "numFmts").children()) {
        codes.emplace(AttributeOf(format, "numFmtId"), AttributeOf(format, "formatCode"));
    }
    std::map<std::string, std::size_t, std::less<>> places;
    for (const pugi::xml_node& style : ChildOf(root, "cellXfs").children()) {
        const std::string id(AttributeOf(style, "numFmtId"));
        const auto [place, isNew] = places.try_emplace(id, formats_.size());
        if (isNew) {
            const auto code = codes.find(id);
            formats_.push_back(code != codes.end()
                                   ? NumberFormat(code->second)
                                   : NumberFormat::BuiltIn(ParseInteger(id).value_or(0)));
        }
        formatOfStyle_.push_back(place->second);
    }
}

const std::string* Workbook::SharedText(std::size_t index) const {
    return index < texts_.size() ? &texts_[index] : nullptr;
}

const NumberFormat& Workbook::Format(std::size_t style) const {
    return formats_[style < formatOfStyle_.size() ? formatOfStyle_[style] : 0];
}

}  // namespace lab
