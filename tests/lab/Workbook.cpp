#include "tests/lab/Workbook.h"

#include <zip.h>

#include <sstream>

#include "platform/win32/number_text.h"

std::string MakePackage(const std::vector<std::pair<std::string, std::string>>& parts) {
    zip_error_t error;
    zip_source_t* const target = zip_source_buffer_create(nullptr, 0, 0, &error);
    zip_source_keep(target);
    zip_t* const archive = zip_open_from_source(target, ZIP_TRUNCATE, &error);
    for (const auto& [name, content] : parts) {
        zip_source_t* const source = zip_source_buffer(archive, content.data(), content.size(), 0);
        zip_file_add(archive, name.c_str(), source, 0);
    }
    zip_close(archive);
    zip_stat_t stat;
    zip_source_stat(target, &stat);
    std::string bytes(stat.size, '\0');
    zip_source_open(target);
    zip_source_read(target, bytes.data(), bytes.size());
    zip_source_free(target);
    return bytes;
}

std::string MakeWorkbook(const std::string& sheet, const std::string& second) {
    const std::string types =
        "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
    const auto relation = [&](const char* id, const char* type, const char* target) {
        return std::string("<Relationship Id=\"") + id + "\" Type=\"" + types + type +
               "\" Target=\"" + target + "\"/>";
    };
    return MakePackage(
        {{"_rels/.rels", "<Relationships>" + relation("a", "officeDocument", "xl/workbook.xml") +
                             "</Relationships>"},
         {"xl/_rels/workbook.xml.rels",
          "<Relationships>" + relation("r0", "worksheet", "worksheets/sheet2.xml") +
              relation("r1", "worksheet", "/xl/worksheets/sheet1.xml") +
              relation("r2", "sharedStrings", "sharedStrings.xml") +
              relation("r3", "styles", "styles.xml") + "</Relationships>"},
         {"xl/workbook.xml",
          "<workbook><sheets><sheet name=\"隐\" state=\"hidden\" r:id=\"r0\"/>"
          "<sheet name=\"颗分\" r:id=\"r1\"/><sheet name=\"第二\" "
          "r:id=\"r0\"/></sheets></workbook>"},
         {"xl/sharedStrings.xml",
          "<sst><si><t>钻孔编号</t></si><si><r><t>试样</t></r><r><t>编号</t></r><rPh><t>x</t></"
          "rPh></si>"
          "<si><t>ZK1</t></si><si><t>1-1</t></si></sst>"},
         {"xl/styles.xml",
          "<styleSheet><numFmts><numFmt numFmtId=\"170\" formatCode=\"&quot;ZK&quot;General\"/>"
          "<numFmt numFmtId=\"171\" formatCode=\"0000\"/></numFmts><cellXfs><xf numFmtId=\"0\"/>"
          "<xf numFmtId=\"2\"/><xf numFmtId=\"9\"/><xf numFmtId=\"14\"/><xf numFmtId=\"170\"/>"
          "<xf numFmtId=\"171\"/></cellXfs></styleSheet>"},
         {"xl/worksheets/sheet1.xml", "<worksheet>" + sheet + "</worksheet>"},
         {"xl/worksheets/sheet2.xml", "<worksheet>" + second + "</worksheet>"}});
}

std::string Rows(const std::vector<std::string>& rows) {
    std::string xml;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        xml += "<row r=\"" + std::to_string(row + 1) + "\">";
        std::istringstream cells(rows[row]);
        std::string text;
        for (char column = 'A'; cells >> text; ++column) {
            if (text == "-") {
                continue;
            }
            xml.append("<c r=\"").append(1, column).append(std::to_string(row + 1));
            if (win32::ParseNumber(text)) {
                xml.append("\"><v>").append(text).append("</v></c>");
            } else {
                xml.append("\" t=\"inlineStr\"><is><t>").append(text).append("</t></is></c>");
            }
        }
        xml += "</row>";
    }
    return "<sheetData>" + xml + "</sheetData>";
}
