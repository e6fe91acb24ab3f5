// Drawings plotted from the window.

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <filesystem>

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
};

TEST_F(Plotting, AllDrawingsBecomePagesAndAFileThatCannotBeWrittenKeepsTheWindow) {
    ASSERT_EQ(suite_.Draw("ZK1").status, 0);
    TypeLine("SDI 0");
    QStringList paths;
    for (const auto& sheet : suite_.Sheets()) {
        paths << QString::fromStdString(sheet);
    }
    window_.OpenDrawings(paths);
    TypeLine("CLOSE");
    const std::string pdf = scratch_.Path() / "图纸.pdf";

    person_.In("Plot", [&](QWidget& plot) {
        EXPECT_EQ(File(plot).text(), QString(paths[paths.size() - 2]).replace(".dwg", ".pdf"));
        plot.findChild<QCheckBox*>()->setChecked(true);
        File(plot).setText(QString::fromStdString(scratch_.Path() / "missing" / "a.pdf"));
        PressOk(plot);
    });
    person_.Then("the box with the reason", [] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) {
            return false;
        }
        EXPECT_TRUE(box->text().contains("missing/a.pdf")) << box->text().toStdString();
        box->accept();
        return true;
    });
    person_.In("Plot", [&](QWidget& plot) {
        File(plot).setText(QString::fromStdString(pdf));
        PressOk(plot);
    });
    window_.Plot();
    person_.Finish();
    EXPECT_TRUE(Said().contains(QString::fromStdString(pdf)));
    const std::string info = RunProgram({"pdfinfo", pdf}).output;
    EXPECT_NE(info.find("Pages:           " + std::to_string(paths.size())), std::string::npos)
        << "the untitled drawing is a page, the closed one is none: " << info;

    person_.In("Plot", [&](QWidget& plot) {
        plot.findChild<QComboBox*>()->setCurrentText("PNG");
        EXPECT_TRUE(File(plot).text().endsWith(".png"));
        EXPECT_FALSE(plot.findChild<QCheckBox*>()->isEnabled()) << "a picture has one page";
        PressOk(plot);
    });
    window_.Plot();
    person_.Finish();
    const QImage picture(QString(paths[paths.size() - 2]).replace(".dwg", ".png"));
    EXPECT_NEAR(picture.width(), 210 / 25.4 * 200, 2);
    EXPECT_NEAR(picture.height(), 297 / 25.4 * 200, 2);
}

}  // namespace
