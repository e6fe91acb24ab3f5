// Tables as laboratories have them, in every shape, kind of file and coding, and what is refused.

#include "lab/tables/table_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "lab/Failure.h"
#include "lab/numbers.h"
#include "platform/win32/code_page.h"
#include "tests/lab/Workbook.h"

using testing::HasSubstr;

namespace {
struct Case {
    const char* why;
    std::string bytes;
    /// A sample a line, "borehole sample depth thickness method total: size=mass …"; after "!" a
    /// part of what is refused, after "?" a part of a note.
    std::string expected;
    std::optional<lab::ValueKind> as = std::nullopt;
    std::string sheet = {};
    std::string map = {};
};

constexpr auto kCumulative = lab::ValueKind::kCumulative;
constexpr auto kPassing = lab::ValueKind::kPassing;

std::string Number(const std::optional<double>& number) {
    return number ? lab::ShortestText(*number) : "-";
}

std::string Describe(const std::vector<lab::Sample>& samples) {
    std::string text;
    for (const lab::Sample& sample : samples) {
        text += sample.borehole + " " + sample.sample + " " + Number(sample.depth) + " " +
                Number(sample.thickness) + " " + (sample.method.empty() ? "-" : sample.method) +
                " " + Number(sample.total) + ":";
        for (const lab::SieveItem& item : sample.items) {
            text += " " + Number(item.size) + "=" + Number(item.mass);
        }
        text += "\n";
    }
    return text;
}

std::string Read(const Case& file) {
    lab::TableOptions options;
    options.as = file.as;
    options.sheet = file.sheet;
    lab::Findings findings;
    try {
        if (!file.map.empty()) {
            options.names.Add("map.json", file.map);
        }
        const auto samples = lab::ReadSamples({{"f", file.bytes}}, options, findings);
        findings.ThrowIfRefused();
        std::string text = Describe(samples);
        for (const std::string& note : findings.Notes()) {
            text += "? " + note + "\n";
        }
        return text;
    } catch (const lab::Failure& failure) {
        return std::string("! ") + failure.what();
    }
}

void Check(const Case& file) {
    const std::string read = Read(file);
    if (file.expected.starts_with('!') || file.expected.starts_with('?')) {
        EXPECT_THAT(read, HasSubstr(file.expected.substr(2))) << file.why;
        EXPECT_EQ(read.starts_with('!'), file.expected.starts_with('!'))
            << file.why << ": " << read;
    } else {
        EXPECT_EQ(read, file.expected) << file.why;
    }
}

std::string Utf16(const std::string& utf8, bool little) {
    std::string bytes = little ? "\xFF\xFE" : "\xFE\xFF";
    for (const char16_t unit : win32::Utf16FromUtf8(utf8)) {
        const char high = static_cast<char>(unit >> 8U);
        const char low = static_cast<char>(unit & 0xFFU);
        bytes += little ? std::string{low, high} : std::string{high, low};
    }
    return bytes;
}

/// A table of one group, its lines as they are; the keys are short since names of groups count.
std::string Ags(const std::string& samples, const std::string& points,
                const std::string& more = "") {
    const auto group = [](const std::string& name, const std::string& headings,
                          const std::string& units, const std::string& rows) {
        return "\"GROUP\",\"" + name + "\"\r\n\"HEADING\"," + headings + "\r\n\"UNIT\"," + units +
               "\r\n" + rows + "\r\n";
    };
    return group("SAMP", R"("LOCA_ID","SAMP_TOP","SAMP_REF","SAMP_ID","SAMP_BASE")",
                 R"("","m","","","m")", samples) +
           more +
           group("GRAT",
                 R"("LOCA_ID","SAMP_TOP","SAMP_REF","SAMP_ID","SPEC_REF","GRAT_SIZE","GRAT_PERP")",
                 R"("","m","","","","mm","%")", points);
}
std::string AgsData(const std::vector<std::string>& rows) {
    std::string text;
    for (const std::string& row : rows) {
        text += "\"DATA\",\"" + row + "\"\r\n";
        for (std::size_t at = 0; (at = text.find(" | ", at)) != std::string::npos;) {
            text.replace(at, 3, "\",\"");
        }
    }
    return text;
}

const std::string kLong = "borehole,sample,depth,thickness,method,total,size,mass\n";
const std::string kLongData = kLong +
                              "ZK1,1-1,1.20,0.20,筛析法,161.6,2,100.1\n"
                              "ZK1,1-1,1.2,0.2,筛析法,161.60,0.5,61.5\n";
const std::string kLongRead = "ZK1 1-1 1.2 0.2 筛析法 161.6: 2=100.1 0.5=61.5\n";
const std::string kWide = "孔号,样号,总质量(g),20,20~2,2～0.5mm,<0.075\n";
}  // namespace

TEST(TableFilesTest, TextTablesAreReadInEveryShapeAndCoding) {
    const Case cases[] = {
        {"UTF-8", kLongData, kLongRead},
        {"UTF-8 with a mark", "\xEF\xBB\xBF" + kLongData, kLongRead},
        {"GBK", win32::GbkFromUtf8(kLongData), kLongRead},
        {"four bytes of GB 18030 in a column that is left out",
         "borehole,sample,total,size,mass,\x98\x32\xD5\x35\nK,1,9,2,9,\xD1\xF9\n",
         "? column \"𩛥\" is not known and is left out"},
        {"UTF-16, low bytes first", Utf16(kLongData, true), kLongRead},
        {"UTF-16, high bytes first", Utf16(kLongData, false), kLongRead},
        {"CR LF, empty lines, quotes, samples between each other",
         "borehole,sample,total,size,mass\r\n\"K\",1,10,0.5,3\r\n,,,,\r\n\r\nK,2,30,2,1\r\nK,\"1\","
         "10,2,7",
         "K 1 - - - 10: 0.5=3 2=7\nK 2 - - - 30: 2=1\n"},
        {"semicolons", "borehole;sample;total;size;mass\nK;1;10;2;7\n", "K 1 - - - 10: 2=7\n"},
        {"tabs", "borehole\tsample\ttotal\tsize\tmass\nK\t1\t10\t2\t7\n", "K 1 - - - 10: 2=7\n"},
        {"Chinese names, another order, a title above",
         "颗粒分析试验记录,,,,\n土样编号,孔号,粒径 (mm),留筛质量（g）,试样总质量[g]\n1,K,2,7,10\n",
         "K 1 - - - 10: 2=7\n"},
        {"letter case, blanks, units and full-width forms",
         " Sample ,BOREHOLE,Total(g),Size(mm),Mass\n1,K,１６１．６ g, ２ mm ,100.10g\n",
         "K 1 - - - 161.6: 2=100.1\n"},
        {"depths from top to bottom",
         "borehole,sample,取样深度(m),total,size,mass\nK,1,1.20～1.50m,9,2,9\n",
         "K 1 1.2 0.3 - 9: 2=9\n"},
        {"exponents", "borehole,sample,total,size,mass\nK,1,1e2,5E-3,0.1e1\n",
         "K 1 - - - 100: 0.005=1\n"},
        {"one row a sample, an empty cell is no item",
         kWide + "K,1,100,10,,61.5,28.5\nK,2,9,,9,,\n",
         "K 1 - - - 100: 20=10 0.5=61.5 0=28.5\nK 2 - - - 9: 2=9\n"},
        {"sizes in another order, with d and the pan",
         "孔号,样号,总质量,底盘,0.5,>20,1-2(mm)\nK,1,9,1,2,3,2\n",
         "K 1 - - - 9: 0=1 0.5=2 20=3 1=2\n"},
        {"cumulative by the call", kWide + "K,1,100,10,,71.5,100\n",
         "K 1 - - - 100: 20=10 0.5=61.5 0=28.5\n", kCumulative},
        {"cumulative by the heading over the sizes",
         "孔号,样号,总质量,累计筛余质量(g),,\n,,,20,2,0.5\nK,1,100,10.1,50.2,50.2\n",
         "K 1 - - - 100: 20=10.1 2=40.1 0.5=0\n"},
        {"passing by the call, without a total", "孔号,样号,20,2,<0.075\nK,1,97.3,50,12.5\n",
         "K 1 - - - 100: 20=2.7 2=47.3 0.075=37.5 0=12.5\n", kPassing},
        {"passing by its column, coarse at the end",
         "borehole,sample,size,passing\nK,1,0.5,40%\nK,1,2,100\n",
         "K 1 - - - 100: 2=0 0.5=60 0=40\n"},
        {"passing of a mass: shares of six digits that add up",
         "borehole,sample,total,size,passing\nK,1,5000,2,66.667\nK,1,5000,0.5,33.333\n",
         "K 1 - - - 5000: 2=1666.65 0.5=1666.7 0=1666.65\n"},
        {"masses and percentages side by side",
         "孔号,样号,总质量,孔径,筛余质量,小于某粒径百分数\nK,1,10,2,7,30\n", "K 1 - - - 10: 2=7\n"},
        {"the same, and the percentages are asked for",
         "孔号,样号,总质量,孔径,筛余质量,小于某粒径百分数\nK,1,10,2,7,30\n",
         "K 1 - - - 10: 2=7 0=3\n", kPassing},
        {"names of a map", "Hole,No,W,mesh,left\nK,1,10,2,7\n", "K 1 - - - 10: 2=7\n", std::nullopt,
         "",
         R"({"borehole": ["Hole"], "sample": "No", "total": ["W"], "size": ["Mesh"], "mass": ["left"]})"},
        {"an unknown column is told", "borehole,sample,total,size,mass,备注\nK,1,10,2,7,x\n",
         "? f:1: column \"备注\" is not known and is left out"},
    };
    for (const Case& file : cases) {
        Check(file);
    }
}

TEST(TableFilesTest, WorkbooksAreReadAsTheyAreShown) {
    const std::string merged =
        R"(<sheetData><row r="1"><c r="A1" t="inlineStr"><is><t>颗粒分析</t></is></c></row>
<row r="2"><c r="A2" t="s"><v>0</v></c><c r="B2" t="s"><v>1</v></c><c r="C2" t="inlineStr"><is><t>总质量
(g)</t></is></c><c r="D2" t="str"><v>小于某粒径百分数</v></c></row>
<row r="3"><c r="D3"><v>2</v></c><c r="E3" s="1"><v>0.5</v></c></row>
<row r="4"><c r="A4" t="s"><v>2</v></c><c r="B4" t="s"><v>3</v></c><c r="C4"><v>200</v></c><c r="D4" s="2"><v>0.9</v></c><c r="E4"><f>1+1</f><v>40.000000000000004</v></c></row>
<row r="5"><c r="B5" t="inlineStr"><is><t>1-2</t></is></c><c r="D5"><v>50</v></c></row></sheetData>
<mergeCells><mergeCell ref="A1:E1"/><mergeCell ref="A2:A3"/><mergeCell ref="B2:B3"/><mergeCell ref="C2:C3"/><mergeCell ref="D2:E2"/><mergeCell ref="A4:A5"/><mergeCell ref="C4:C5"/></mergeCells>)";
    const std::string head =
        R"(<row r="1"><c t="s"><v>0</v></c><c t="s"><v>1</v></c><c t="inlineStr"><is><t>total</t></is></c><c><v>2</v></c></row>)";
    const auto sheet = [&](const std::string& cells) {
        return MakeWorkbook("<sheetData>" + head + "<row r=\"2\">" + cells + "</row></sheetData>");
    };
    const std::string name = R"(<c t="s"><v>2</v></c><c t="s"><v>3</v></c><c><v>9</v></c>)";
    const Case cases[] = {
        {"merged headers and cells, shared texts, formulas, percentages", MakeWorkbook(merged),
         "ZK1 1-1 - - - 200: 2=20 0.5=100 0=80\nZK1 1-2 - - - 200: 2=100 0=100\n"},
        {"numbers under names are names as they are shown",
         sheet(
             R"(<c s="4"><v>7</v></c><c s="5"><v>12</v></c><c><v>9</v></c><c s="1"><v>1.2345</v></c>)"),
         "ZK7 0012 - - - 9: 2=1.2345\n"},
        {"a prefix before each element, strange blanks",
         MakeWorkbook(
             "<x:sheetData >" + head +
             "<x:row><x:c t=\"inlineStr\"><x:is><x:t>K&amp;1</x:t>"
             "</x:is></x:c><x:c><x:v>1</x:v></x:c><x:c><x:v>9</x:v></x:c><x:c><x:v>3</x:v></x:c>"
             "</x:row><!-- <row> --></x:sheetData>"),
         "K&1 1 - - - 9: 2=3\n"},
        {"a sheet by name", MakeWorkbook("<sheetData/>", Rows({"孔号 样号 total 2", "K 1 9 3"})),
         "K 1 - - - 9: 2=3\n", std::nullopt, "第二"},
        {"a number that became a date", sheet(R"(<c t="s"><v>2</v></c><c s="3"><v>46162</v></c>)"),
         "! B2: 试样编号 \"2026/5/20\": / cannot stand"},
        {"a date among masses", sheet(name + R"(<c s="3"><v>46162</v></c>)"),
         "! f, sheet 颗分, D2: 2 \"2026/5/20\": not a number"},
        {"a formula without a value", sheet(name + "<c><f>A1</f><v></v></c>"),
         "! D2: 2: a formula without a stored value"},
        {"an error", sheet(name + R"(<c t="e"><f>1/0</f><v>#DIV/0!</v></c>)"),
         "! \"#DIV/0!\": not a number"},
        {"a merged mass",
         MakeWorkbook(Rows({"孔号 样号 total 2 1", "K 1 9 3 -"}) +
                      "<mergeCells><mergeCell ref=\"D2:E2\"/></mergeCells>"),
         "! E2: 1 \"3\": of merged cells"},
        {"a sheet that is not there", sheet(name),
         "! there is no sheet \"第三\"; there are: 隐, 颗分, 第二", std::nullopt, "第三"},
        {"a sheet of a text file", kLongData, "! a text file has no sheet", std::nullopt, "a"},
        {"a password, or an old kind", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 and so on",
         "! a workbook with a password"},
        {"half a workbook", MakeWorkbook(merged).substr(0, 900), "! the file is broken"},
        {"another package", MakePackage({{"mimetype", "x"}}), "! no workbook"},
        {"half a sheet", MakeWorkbook("<sheetData><row r=\"1\">"), "! ends within an element"},
        {"rows out of order", MakeWorkbook("<sheetData><row r=\"2\"/><row r=\"1\"/></sheetData>"),
         "! row \"1\" after row 2"},
        {"a document type", MakeWorkbook("<!DOCTYPE a [<!ENTITY b 'c'>]>"), "! document type"},
        {"a part that unpacks without end",
         MakeWorkbook("<sheetData>" + std::string(std::size_t{8} << 20U, ' ')),
         "! far more than a table"},
        {"a text of no cell", sheet(name + R"(<c t="s"><v>99</v></c>)"),
         "! a text that the workbook does not have"},
    };
    for (const Case& file : cases) {
        Check(file);
    }
}

TEST(TableFilesTest, AgsFilesAreReadByTheirGroups) {
    const std::string sample = AgsData({"BH1 | 1.5 | 3 | D\"\"1 | 1.8", "BH1 | 3.0 | 4 |  | "});
    const std::string good =
        AgsData({"BH1 | 3.0 | 4 |  |  | 2 | 90", "BH1 | 3.0 | 4 |  |  | 0.5 | 40"});
    const std::string grading =
        "\"GROUP\",\"PROJ\"\r\n\"HEADING\",\"PROJ_ID\"\r\n\"DATA\",\"x\"\r\n"
        "\"GROUP\",\"GRAG\"\r\n\"HEADING\",\"LOCA_ID\",\"SAMP_TOP\",\"SAMP_REF\",\"SAMP_ID\","
        "\"SPEC_REF\","
        "\"GRAG_METH\",\"GRAG_TOTL\"\r\n\"DATA\",\"BH1\",\"3.0\",\"4\",\"\",\"\",\"sieving\","
        "\"50\"\r\n";
    const Case cases[] = {
        {"SAMP_REF stands in for an empty SAMP_ID", Ags(sample, good),
         "BH1 4 3 - - 100: 2=10 0.5=50 0=40\n"},
        {"total and method, groups left out", Ags(sample, good, grading),
         "? f: groups PROJ are left out"},
        {"depths", Ags(AgsData({"B | 1.5 |  | 3 | 1.8"}), AgsData({"B | 1.5 |  | 3 |  | 2 | 0"})),
         "B 3 1.5 0.3 - 100: 2=100\n"},
        {"without points", "\"GROUP\",\"SAMP\"\r\n\"HEADING\",\"LOCA_ID\"\r\n\"DATA\",\"B\"\r\n",
         "! no points of gradings (group GRAT)"},
        {"a point of no sample", Ags(sample, AgsData({"BH2 | 1 |  | 1 |  | 2 | 50"})),
         "! f:10: the sample of the point is not in group SAMP"},
        {"two gradings of a sample", Ags(sample, good + AgsData({"BH1 | 3.0 | 4 |  | b | 2 | 50"})),
         "! another grading"},
        {"a quote that is missing", Ags(sample, "\"DATA\",\"BH1\",\"3.0\r\n"),
         "! f:10: the closing quote of value 3 is missing"},
        {"a value without quotes", Ags(sample, "\"DATA\",BH1\r\n"),
         "! f:10: value 2 does not stand in quotes"},
        {"a line that ends with LF", Ags(sample, good + "\"DATA\"\n"),
         "! f:12: the line ends with LF alone"},
        {"values without headings", Ags(sample, "\"DATA\",\"BH1\"\r\n"),
         "! 1 values for 7 headings"},
        {"another unit",
         Ags(sample, good,
             "\"GROUP\",\"GRAG\"\r\n\"HEADING\",\"GRAG_TOTL\"\r\n\"UNIT\",\"kg\"\r\n"),
         "! GRAG_TOTL in kg where g is read"},
        {"a name no sheet can have", Ags(sample, AgsData({"BH1 | 1.5 | 3 | D\"\"1 |  | 2 | 50"})),
         "! SAMP_ID \"D\"1\": \" cannot stand"},
        {"masses", Ags(sample, good), "! AGS4 holds percent passing", kCumulative},
    };
    for (const Case& file : cases) {
        Check(file);
    }
}

TEST(TableFilesTest, WhatIsWrongIsNamedByPlaceAndText) {
    const std::pair<const char*, const char*> lines[] = {
        {"K,1,1,1,m,10,2", "f:3: 7 fields instead of 8"},
        {"K,1,1,1,m,10,2,1,", "f:3: 9 fields instead of 8"},
        {"K,1,1,1,m,10,2,1,5", "f:3: 9 fields instead of 8"},
        {",1,1,1,m,10,2,1", "f:3: borehole: missing"},
        {" K,1,1,1,m,10,2,1", "blanks around"},
        {"K　,1,1,1,m,10,2,1", "blanks around"},
        {"K'1,1,1,1,m,10,2,1", "borehole \"K'1\": ' cannot stand in the name of a sheet"},
        {"K,x/../../y,1,1,m,10,2,1", "sample \"x/../../y\": / cannot stand"},
        {"\"\"\"q\"\"\",1,1,1,m,10,2,1", "borehole \"\"q\"\": \" cannot stand"},
        {"K\t,1,1,1,m,10,2,1", "control character"},
        {"K,1,1,1,한,10,2,1", "a character that GBK does not have"},
        {"钻孔钻孔钻孔钻孔钻孔钻孔钻孔钻孔钻孔钻孔1,1,1,1,m,10,2,1", "more than 20 characters"},
        {"K,1234567890123,1,1,m,10,2,1", "more than 12 characters"},
        {"K,1,1,1,1234567890123456,10,2,1", "more than 15 characters"},
        {"K,1,x,1,m,10,2,1", "depth \"x\": not a number"},
        {"K,1,1.5~1.2,1,m,10,2,1", "depth \"1.5~1.2\": neither a number nor a range that goes up"},
        {"K,1,1.5~1.5,,m,10,2,1", "depth \"1.5~1.5\": neither a number nor a range that goes up"},
        {"K,1,1.5~1.7,1,m,10,2,1", "depth \"1.5~1.7\": the thickness is another one"},
        {"K,1,1,-0.1,m,10,2,1", "thickness \"-0.1\": below 0"},
        {"K,1,1,1,m,,2,1", "total: missing"},
        {"K,1,1,1,m,1e60,2,1", "32-bit float"},
        {"K,1,1,1,m,10,2mm,1kg", "mass \"1kg\": in kg where g is read"},
        {"K,1,1,1,m,10,2,1%", "in % where g is read"},
        {"K,1,1,1,m,10,75um,1", "in um where mm is read"},
        {"K,1,1,1,m,10,nan,1", "size \"nan\": not a number"},
        {"K,1,1,1,m,10,2,", "mass: missing"},
        {"K,1,1,1,m,10,2,\"1,5\"", "mass \"1,5\": a comma in a number"},
        {"K,1,1,1,m,10,2,1 2", "mass \"1 2\": not a number"},
        {"K,1,1,1,m,10,2,\"1", "closing quote is missing"},
        {"K,1,1,1,\"m\"x,10,2,1", "after the closing quote"},
        {"K,1,1,1,m\"m\",10,2,1", "does not stand in quotes"},
        {"A,0,1,1,m,11,2,1", "total differs from that of f:2, which is of the same sample"},
        {"A,0,,1,m,10,2,1", "depth differs from that of f:2"},
    };
    for (const auto& [line, reason] : lines) {
        Check({line, kLong + "A,0,1,1,m,10,2,1\n" + line + "\n", std::string("! ") + reason});
    }
    const std::string values = "孔号,样号,total,2,0.5\n";
    const Case files[] = {
        {"empty", "", "! no header line that names borehole and sample"},
        {"no header", "K,1,1,1,m,10,2,1\n", "! no header line"},
        {"no data", kLong, "! f:1: no data after the header line"},
        {"no sizes", "borehole,sample,total\nK,1,9\n", "! no column of sizes"},
        {"no masses", "borehole,sample,total,size\nK,1,9,2\n", "! no column mass or passing"},
        {"no total", "borehole,sample,size,mass\nK,1,2,9\n", "! no column total"},
        {"a header twice", "borehole,sample,total,Total (g),size,mass\n",
         "! column \"Total (g)\": the same as column \"total\""},
        {"a size twice", "孔号,样号,total,2,2mm\n",
         "! column \"2mm\": the same size as column \"2\""},
        {"size and name", "2,样号,total,0.5\n", "! column \"2\": names borehole and is a size, too",
         std::nullopt, "", R"({"borehole": "2"})"},
        {"both shapes", "孔号,样号,total,size,2\nK,1,9,2,9\n",
         "! sizes stand in a column of their own and in headers, too"},
        {"another unit", "孔号,样号,总质量(kg),2\n",
         "! column \"总质量(kg)\": in kg where g is read"},
        {"a size in another unit", "孔号,样号,total,75μm\n", "! column \"75μm\": a size in μm"},
        {"a sample twice", values + "K,1,9,2,3\nK,1,9,2,3\n",
         "! f:3: 样号 \"1\": the sample stands at f:2, too"},
        {"nothing but a name", values + "K,1,9,,\n", "! f:2: sample 1 of K has no values"},
        {"cumulative masses that fall", values + "K,1,9,5,4\n",
         "! f:2: sample 1 of K: the cumulative mass falls to 4 from 5", kCumulative},
        {"percentages that rise", values + "K,1,9,5,6\n",
         "! the percentage finer rises to 6 from 5", kPassing},
        {"more than all", values + "K,1,9,101,6\n", "! rises to 101 from 100", kPassing},
        {"sizes up and down", "borehole,sample,size,passing\nK,1,2,90\nK,1,5,50\nK,1,1,10\n",
         "! f:3: sample 1 of K: size 5 stands out of order beside 2"},
        {"a size twice among percentages",
         "borehole,sample,size,passing\nK,1,2,90\nK,1,2,50\nK,1,1,10\n",
         "! f:3: sample 1 of K: size 2 stands out of order beside 2"},
        {"percentages that are to be masses", "borehole,sample,total,size,passing\nK,1,9,2,9\n",
         "! says itself that its values are passing", kCumulative},
        {"decimal commas", "borehole;sample;total;size;mass\nK;1;9,5;2;1\n",
         "! total \"9,5\": a comma in a number"},
        {"neither coding", "borehole\n\x81", "! neither UTF-8 nor GBK"},
        {"zero bytes", std::string("a\0b", 3), "! zero bytes"},
        {"a cell of 10 MB", kLong + std::string(10 << 20, 'x'),
         "! f:2: a value of more than 32767 bytes"},
        {"a map of nothing", "", "! map.json: there is no column \"hole\"", std::nullopt, "",
         R"({"hole": "x"})"},
        {"a map that is none", "", "! map.json: not of the form", std::nullopt, "", "[1"},
        {"a name of two", "", "! \"SIZE\" names both size and mass", std::nullopt, "",
         R"({"mass": ["SIZE"]})"},
    };
    for (const Case& file : files) {
        Check(file);
    }
}

TEST(TableFilesTest, AllThatIsWrongIsToldInOrderAndVeryManyAreCounted) {
    const std::string text = Read({"",
                                   kLong + "A,1,1,1,m,x,2,1\nA,1,1,1,m,10,2,1\n"
                                           "A,1,1,1,\"m\nm\",10,2,1\nA,2\nA,1,1,1,m,10,2,y\n",
                                   ""});
    for (const char* part : {"! f:2: ", "\nf:4: ", "\nf:6: ", "\nf:7: "}) {
        EXPECT_THAT(text, HasSubstr(part));
    }
    std::string bad = kLong;
    for (int i = 0; i < 150; ++i) {
        bad += "x\n";
    }
    EXPECT_THAT(Read({"", bad, ""}), HasSubstr("\nand 50 more"));
}

TEST(TableFilesTest, LayersHaveStandardSizesOnceAndKeepTheirTexts) {
    const auto read = [](const std::string& text) {
        lab::Findings findings;
        std::string described;
        for (const lab::Layer& layer : lab::ReadLayers({{"f", text}}, {}, findings)) {
            described += layer.Label() + ":";
            for (const auto& percentage : layer.percentages) {
                described += " " + std::to_string(percentage.code) + "=" + percentage.text;
            }
            described += "\n";
        }
        try {
            findings.ThrowIfRefused();
        } catch (const lab::Failure& failure) {
            return std::string(failure.what());
        }
        return described;
    };
    EXPECT_EQ(
        read("main,sub,size,percent\n2,1,800,25.50\n3,0,0.075,10\n2,1,0.0740,5 %\n2,1,0,1e1\n"),
        "2-1: 1100=25.50 1113=5 1118=1e1\n3: 1112=10\n");
    EXPECT_EQ(read("百分含量,粒径(mm),主层\n５０,20,4\n"), "4: 1105=50\n");
    const char* const bad[][2] = {
        {"256,0,2,10", "f:3: main \"256\": not an integer from 0 to 255"},
        {"1,0.5,2,10", "sub \"0.5\": not an integer"},
        {"1,0,3,10", "none of the standard sizes"},
        {"1,0,2,ten", "percent \"ten\": not a number"},
        {"1,0,20,7", "given twice"},
    };
    for (const auto& [line, reason] : bad) {
        EXPECT_THAT(read(std::string("main,sub,size,percent\n1,0,20,7\n") + line + "\n"),
                    HasSubstr(reason));
    }
}
