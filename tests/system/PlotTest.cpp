// Whole runs of plotting, read by programs that are not ours.

#include <gmock/gmock.h>

#include <fstream>

#include "tests/system/Program.h"

namespace {

using testing::HasSubstr;
using testing::IsEmpty;

std::string Read(const std::vector<std::string>& command) {
    const ProgramResult result = RunProgram(command);
    EXPECT_EQ(result.status, 0) << command[0] << ": " << result.errors;
    return result.output;
}

ProgramResult Plot(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {GRDX_PROGRAM, "plot"});
    return RunProgram(arguments);
}

/// One pixel of a portable pixmap of poppler's.
std::vector<int> PixelOf(const std::string& pixmap, int width, int x, int y) {
    const std::size_t header = pixmap.find("255\n") + 4;
    const std::size_t at =
        header + 3 * (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x));
    std::vector<int> pixel;
    for (std::size_t i = at; i < at + 3; ++i) {
        pixel.push_back(static_cast<unsigned char>(pixmap.at(i)));
    }
    return pixel;
}

class PlotTest : public testing::Test {
protected:
    std::string path(const std::string& name) const { return scratch_.Path() / name; }

    ScratchFolder scratch_;
};

TEST_F(PlotTest, SheetsBecomePagesOfOnePdfFile) {
    const SampleSuite a4(scratch_.Path() / "a4", 0);
    const SampleSuite a3(scratch_.Path() / "a3", 2);
    ASSERT_EQ(a4.Draw("ZK1").status, 0);
    ASSERT_EQ(a3.Draw("ZK1").status, 0);
    const std::string pdf = path("all.pdf");
    const std::string small = a4.Sheets().at(0);
    const std::string large = a3.Sheets().at(0);
    const ProgramResult plotted = Plot({small, large, "--to", "pdf", "-o", pdf});
    ASSERT_EQ(plotted.status, 0) << plotted.errors;
    EXPECT_EQ(plotted.output, pdf + "\n");
    EXPECT_THAT(plotted.errors, IsEmpty());

    const std::string info = Read({"pdfinfo", "-l", "2", pdf});
    EXPECT_THAT(info, HasSubstr("Pages:           2"));
    EXPECT_THAT(info,
                testing::ContainsRegex("Page +1 size: +595[.0-9]* x 842[.0-9]* pts \\(A4\\)"));
    EXPECT_THAT(info, testing::ContainsRegex("Page +2 size: +119[01][.0-9]* x 842[.0-9]* pts"));
    // name, type (two words), encoding, embedded, subset, with its characters
    EXPECT_THAT(Read({"pdffonts", pdf}),
                testing::ContainsRegex("WenQuanYiZenHei +CID TrueType +Identity-H +yes"));
    const std::string text = Read({"pdftotext", "-layout", pdf, "-"});
    for (const char* expected : {"滨江新城一期", "颗粒级配曲线", "土试样分类", "0.075",
                                 "1.20-1.40m", "0.075 0.05", "2026.05.20", "王工"}) {
        EXPECT_THAT(text, HasSubstr(expected));
    }

    // The outer frame from (2, 2) to (208, 295) mm at 254 dots an inch, ten a millimetre: black
    // and 0.18 mm wide, white beside it.
    Read({"pdftoppm", "-r", "254", "-f", "1", "-l", "1", pdf, path("page")});
    const std::string page = FileBytes(path("page-1.ppm"));
    const int width = std::stoi(page.substr(3));
    const std::vector<int> white{255, 255, 255};
    EXPECT_NEAR(width, 2100, 2);
    for (const int x : {20, 2080}) {
        const auto darkest =
            std::min({PixelOf(page, width, x - 2, 1000)[0], PixelOf(page, width, x - 1, 1000)[0],
                      PixelOf(page, width, x, 1000)[0], PixelOf(page, width, x + 1, 1000)[0]});
        EXPECT_LT(darkest, 100) << x;
        EXPECT_EQ(PixelOf(page, width, x + 8, 1000), white);
        EXPECT_EQ(PixelOf(page, width, x - 8, 1000), white);
    }
}

TEST_F(PlotTest, PicturesHaveTheirResolutionAndSvgItsSize) {
    const SampleSuite suite(scratch_.Path() / "suite", 0);
    ASSERT_EQ(suite.Draw("ZK1").status, 0);
    const auto sheets = suite.Sheets();
    ASSERT_EQ(Plot({sheets[0], "--to", "png", "--dpi", "100", "-o", path("a.png")}).status, 0);
    const std::string png = FileBytes(path("a.png"));
    EXPECT_EQ(png.substr(16, 8), std::string("\0\0\x03\x3B\0\0\x04\x91", 8)) << "827 x 1169";

    // Without a name each drawing gets its own beside it.
    const ProgramResult svg = Plot({sheets[0], sheets[1], "--to", "svg", "--monochrome"});
    ASSERT_EQ(svg.status, 0) << svg.errors;
    for (std::filesystem::path sheet : sheets) {
        sheet.replace_extension("svg");
        if (sheet.stem() == sheets[0].stem() || sheet.stem() == sheets[1].stem()) {
            EXPECT_THAT(svg.output, HasSubstr(sheet.string()));
            const std::string text = FileBytes(sheet);
            EXPECT_THAT(text, HasSubstr("width=\"210mm\" height=\"297mm\""));
            EXPECT_THAT(text, testing::Not(HasSubstr("#00ff00"))) << "the curve is black too";
        }
    }
}

TEST_F(PlotTest, WhatCannotBePlottedIsNamedAndNoPartialFileLeft) {
    const SampleSuite suite(scratch_.Path() / "suite", 0);
    ASSERT_EQ(suite.Draw("ZK1").status, 0);
    const std::string sheet = suite.Sheets().at(0);
    std::ofstream(path("broken.dwg")) << "AC1015 but no more";

    const ProgramResult together =
        Plot({sheet, path("broken.dwg"), "--to", "pdf", "-o", path("all.pdf")});
    EXPECT_EQ(together.status, 1);
    EXPECT_THAT(together.errors, HasSubstr("broken.dwg"));
    EXPECT_FALSE(std::filesystem::exists(path("all.pdf"))) << "not without one of its sheets";

    const ProgramResult apart = Plot({path("broken.dwg"), sheet, "--to", "pdf"});
    EXPECT_EQ(apart.status, 1);
    EXPECT_THAT(apart.output, HasSubstr(".pdf\n"));

    EXPECT_EQ(Plot({sheet, "--to", "pdf", "-o", path("missing/a.pdf")}).status, 1);
    EXPECT_EQ(Plot({sheet, sheet, "--to", "png", "-o", path("a.png")}).status, 2);
    for (const char* dots : {"0", "-100", "nan", "inf", "1e9", "150,5", "0x60"}) {
        EXPECT_EQ(Plot({sheet, "--to", "png", "--dpi=" + std::string(dots)}).status, 2) << dots;
    }
    EXPECT_EQ(Plot({"--to", "pdf"}).status, 2);

    // Over a drawing that is plotted, by whatever name.
    std::filesystem::create_symlink(sheet, path("link.pdf"));
    std::filesystem::create_hard_link(sheet, path("same.pdf"));
    const std::string drawing = FileBytes(sheet);
    for (const std::string& over : {sheet, path("link.pdf"), path("same.pdf")}) {
        const ProgramResult run = Plot({sheet, "--to", "pdf", "-o", over});
        EXPECT_EQ(run.status, 1) << over;
        EXPECT_THAT(run.errors, HasSubstr(over + ": "));
        EXPECT_EQ(FileBytes(sheet), drawing);
    }

    // A damaged font in the suite: said, and the sheet drawn with the installed one.
    std::ofstream(suite.Folder() / "Support" / "hztxt.shx") << "AC1.0 shapes";
    const ProgramResult damaged =
        Plot({sheet, "--to", "pdf", "-s", suite.Folder(), "-o", path("a.pdf")});
    EXPECT_EQ(damaged.status, 1);
    EXPECT_THAT(damaged.errors, HasSubstr("hztxt.shx: byte 0: "));
    EXPECT_THAT(Read({"pdftotext", path("a.pdf"), "-"}), HasSubstr("颗粒级配曲线"));
}

}  // namespace
