// Drawings plotted from the window.

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <fstream>

#include "apps/desk/PrintedPages.h"
#include "platform/mfc/message_box.h"
#include "tests/apps/desk/DeskFixture.h"

namespace {

class Plotting : public DeskFixture {
protected:
    static void PressOk(QWidget& plot) {
        QTest::mouseClick(plot.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok),
                          Qt::LeftButton);
    }
    static QLineEdit& File(QWidget& plot) { return *plot.findChild<QLineEdit*>("plot file"); }
    void Plot() {
        window_.Plot();
        person_.Finish();
    }
    static std::string PdfInfo(const std::string& pdf) {
        return RunProgram({"pdfinfo", "-l", "9", pdf}).output;
    }
    /// Answers the box that says so.
    void Box(const QString& text, QMessageBox::StandardButton answer) {
        person_.Meet<QMessageBox>("box " + text.toStdString(), [=](QMessageBox& box) {
            EXPECT_TRUE(box.text().contains(text)) << box.text().toStdString();
            box.button(answer)->click();
        });
    }
};

TEST_F(Plotting, AllDrawingsBecomePagesAndAFileThatCannotBeWrittenKeepsTheWindow) {
    ASSERT_EQ(suite_.Draw("ZK1").status, 0);
    TypeLine("SDI 0");
    const QStringList paths = SheetPaths();
    window_.OpenDrawings(paths);
    TypeLine("CLOSE");
    const std::string pdf = scratch_.Path() / "图纸.pdf";

    person_.In("Plot", [&](QWidget& plot) {
        EXPECT_EQ(File(plot).text(), QString(paths[paths.size() - 2]).replace(".dwg", ".pdf"));
        plot.findChild<QCheckBox*>()->setChecked(true);
        File(plot).setText(QString::fromStdString(scratch_.Path() / "missing" / "a.pdf"));
        PressOk(plot);
    });
    Box("missing/a.pdf", QMessageBox::Ok);
    person_.In("Plot", [&](QWidget& plot) {
        File(plot).setText(QString::fromStdString(pdf));
        PressOk(plot);
    });
    Plot();
    EXPECT_TRUE(Said().contains(QString::fromStdString(pdf)));
    const std::string info = PdfInfo(pdf);
    EXPECT_NE(info.find("Pages:           " + std::to_string(paths.size() - 1)), std::string::npos)
        << "the blank drawing is no page, the closed one neither: " << info;

    person_.In("Plot", [&](QWidget& plot) {
        plot.findChild<QComboBox*>()->setCurrentText("PNG");
        EXPECT_TRUE(File(plot).text().endsWith(".png"));
        EXPECT_FALSE(plot.findChild<QCheckBox*>()->isEnabled()) << "a picture has one page";
        PressOk(plot);
    });
    Plot();
    const QImage picture(QString(paths[paths.size() - 2]).replace(".dwg", ".png"));
    EXPECT_NEAR(picture.width(), 210 / 25.4 * 200, 2);
    EXPECT_NEAR(picture.height(), 297 / 25.4 * 200, 2);
}

TEST_F(Plotting, WhatIsThereIsOverwrittenOnlyWhenTheUserAgreesAndADrawingNever) {
    DrawSheet("ZK2", {"2-2"});
    const std::filesystem::path sheet = suite_.Sheets().at(0);
    const std::string drawing = FileBytes(sheet);
    const std::filesystem::path taken = scratch_.Path() / "taken.pdf";
    std::ofstream(taken) << "mine";
    const std::filesystem::path link = scratch_.Path() / "link.pdf";
    std::filesystem::create_symlink(sheet, link);
    const auto plotTo = [this](const std::filesystem::path& path) {
        person_.In("Plot", [path](QWidget& plot) {
            File(plot).setText(QString::fromStdString(path));
            PressOk(plot);
        });
    };
    plotTo(link);
    Box("is an open drawing", QMessageBox::Ok);
    plotTo(scratch_.Path() / "taken");
    Box("taken.pdf is there already", QMessageBox::No);
    person_.In("Plot", [&](QWidget& plot) {
        EXPECT_EQ(FileBytes(taken), "mine");
        PressOk(plot);
    });
    Box("taken.pdf is there already", QMessageBox::Yes);
    Plot();
    EXPECT_EQ(FileBytes(taken).substr(0, 5), "%PDF-");
    EXPECT_EQ(FileBytes(sheet), drawing);
}

TEST_F(Plotting, APrinterGetsEachSheetOnItsOwnPaperAsThePreviewShowsIt) {
    const SampleSuite large(scratch_.Path() / "a3", 2);
    ASSERT_EQ(large.Draw("ZK1").status, 0);
    ASSERT_EQ(suite_.Draw("ZK1").status, 0);
    TypeLine("SDI 0");
    window_.OpenDrawings({QString::fromStdString(suite_.Sheets().at(0)),
                          QString::fromStdString(large.Sheets().at(0))});
    const std::string printed = scratch_.Path() / "printed.pdf";
    person_.In("Plot", [](QWidget& plot) {
        plot.findChild<QComboBox*>()->setCurrentText("Printer");
        EXPECT_FALSE(File(plot).isEnabled());
        plot.findChild<QCheckBox*>()->setChecked(true);
        QTest::mouseClick(plot.findChild<QPushButton*>("preview"), Qt::LeftButton);
    });
    person_.Then("the preview is leafed through", [] {
        auto* const preview = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (preview == nullptr || !preview->windowTitle().startsWith("Preview")) {
            return false;
        }
        const QLabel& place = *preview->findChild<QLabel*>("page");
        EXPECT_EQ(place.text(), "Page 1 of 2, 210 \u00d7 297 mm");
        QTest::mouseClick(preview->findChild<QPushButton*>("next"), Qt::LeftButton);
        EXPECT_EQ(place.text(), "Page 2 of 2, 420 \u00d7 297 mm");
        const QImage paper = preview->findChild<QWidget*>("paper")->grab().toImage();
        int ink = 0;
        for (int x = 0; x < paper.width(); ++x) {
            for (int y = 0; y < paper.height(); ++y) {
                ink += paper.pixelColor(x, y).lightness() < 100 ? 1 : 0;
            }
        }
        EXPECT_GT(ink, paper.width() / 2) << "the frame's thick lines at least";
        preview->accept();
        return true;
    });
    person_.In("Plot", [](QWidget& plot) { PressOk(plot); });
    person_.Meet<QPrintDialog>("the printer is chosen", [&](QPrintDialog& dialog) {
        dialog.findChild<QLineEdit*>("filename")->setText(QString::fromStdString(printed));
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    Plot();
    EXPECT_TRUE(Said().contains("printed.pdf: pages printed: 2")) << Said().toStdString();
    const std::string info = PdfInfo(printed);
    EXPECT_NE(info.find("Page    1 size:  595"), std::string::npos) << info;
    EXPECT_NE(info.find("Page    2 size:  119"), std::string::npos) << info;
}

TEST(PrintedPages, AreScaledDownOnPaperThatIsTooSmallEitherWay) {
    const ScratchFolder scratch;
    const paint::Sheet sheet{"an empty A4 sheet", {}};
    const paint::Page page = paint::PageOf(sheet.list);
    paint::PicturePainter pictures;
    for (const auto& [paper, scaled] : {std::pair(QPageSize::A4, 0),
                                        {QPageSize::Letter, 1},
                                        {QPageSize::A5, 1},
                                        {QPageSize::A3, 0}}) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFileName(QString::fromStdString(scratch.Path("printed.pdf")));
        desk::PrintedPages::Prepare(printer, page);
        printer.setPageSize(QPageSize(paper));
        desk::PrintedPages pages(printer, page, pictures, {});
        pages.Add(sheet);
        EXPECT_TRUE(pages.Finish());
        EXPECT_EQ(pages.ScaledDown(), scaled) << QPageSize::name(paper).toStdString();
    }
}

}  // namespace
