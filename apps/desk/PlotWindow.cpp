#include "apps/desk/PlotWindow.h"

#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QSpinBox>
#include <filesystem>

#include "apps/desk/PreviewWindow.h"
#include "apps/desk/PrintedPages.h"
#include "apps/desk/WorkProgress.h"
#include "apps/desk/part_missing.h"
#include "apps/windows/interface_text.h"
#include "apps/windows/qt_text.h"
#include "host/picture/picture_of.h"
#include "platform/win32/file_replace.h"
#include "platform/win32/windows_path.h"

namespace desk {

namespace {
using windows::InterfaceText;

enum Format { kPdf, kSvg, kPng, kPrinter };
constexpr const char* kEndings[] = {".pdf", ".svg", ".png"};
constexpr int kLeastDpi = 50;
constexpr int kGreatestDpi = 1200;
constexpr int kUsualDpi = 200;

/// The drawing's file without its ending, in the file system.
QString BasePath(const AcApDocument& document) {
    const QString path = document.isUntitled()
                             ? windows::FromGbk(document.fileName())
                             : QString::fromStdString(win32::FileSystemPath(document.fileName()));
    const QFileInfo file(path);
    return QDir(file.absolutePath()).filePath(file.completeBaseName());
}

/// The drawing that a program starts with, untouched.
bool IsBlank(const AcApDocument& document) {
    picture::FontLibrary fonts;
    return document.isUntitled() && picture::PictureOf(*document.database(), fonts).items().empty();
}
}  // namespace

PlotWindow::PlotWindow(std::vector<AcApDocument*> documents, AcApDocument* current, QWidget* parent)
    : QDialog(parent),
      documents_(std::move(documents)),
      pages_(documents_),
      current_(current),
      format_(new QComboBox(this)),
      all_(new QCheckBox(
          InterfaceText("&All open drawings, a page each", "所有打开的图形，每图一页(&A)"), this)),
      monochrome_(new QCheckBox(InterfaceText("&Black only", "单色(&B)"), this)),
      resolution_(new QSpinBox(this)),
      file_(new QLineEdit(this)),
      browse_(new QPushButton(InterfaceText("Bro&wse...", "浏览(&W)..."), this)) {
    std::erase_if(pages_, [](const AcApDocument* document) { return IsBlank(*document); });
    setWindowTitle(InterfaceText("Plot", "打印"));
    format_->addItems({QStringLiteral("PDF"), QStringLiteral("SVG"), QStringLiteral("PNG"),
                       InterfaceText("Printer", "打印机")});
    resolution_->setRange(kLeastDpi, kGreatestDpi);
    resolution_->setValue(kUsualDpi);
    file_->setObjectName(QStringLiteral("plot file"));
    file_->setMinimumWidth(fontMetrics().averageCharWidth() * 60);
    file_->setText(BasePath(*current_));
    MakeForm();
    FollowFormat();
}

void PlotWindow::MakeForm() {
    auto* const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(InterfaceText("OK", "确定"));
    buttons->button(QDialogButtonBox::Cancel)->setText(InterfaceText("Cancel", "取消"));
    auto* const preview = buttons->addButton(InterfaceText("Pre&view...", "预览(&V)..."),
                                             QDialogButtonBox::ActionRole);
    preview->setObjectName(QStringLiteral("preview"));

    auto* const form = new QFormLayout(this);
    form->addRow(InterfaceText("Plot &to:", "输出到(&T):"), format_);
    form->addRow(QString(), all_);
    form->addRow(QString(), monochrome_);
    form->addRow(InterfaceText("Dots per &inch:", "分辨率(dpi)(&I):"), resolution_);
    form->addRow(InterfaceText("F&ile:", "文件(&L):"), file_);
    form->addRow(QString(), browse_);
    form->addRow(buttons);

    connect(format_, &QComboBox::currentIndexChanged, this, [this] { FollowFormat(); });
    connect(browse_, &QPushButton::clicked, this, [this] { ChooseFile(); });
    connect(preview, &QPushButton::clicked, this, [this] { Preview(); });
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
    connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
}

void PlotWindow::FollowFormat() {
    const int format = format_->currentIndex();
    const bool hasPages = format == kPdf || format == kPrinter;
    all_->setEnabled(hasPages && !pages_.empty() && pages_ != std::vector{current_});
    resolution_->setEnabled(format == kPng);
    file_->setEnabled(format != kPrinter);
    browse_->setEnabled(format != kPrinter);
    if (format == kPrinter) {
        return;
    }
    QString path = file_->text();
    for (const char* ending : kEndings) {
        if (path.endsWith(QLatin1String(ending))) {
            path.chop(4);
        }
    }
    file_->setText(path + QLatin1String(kEndings[format]));
}

void PlotWindow::ChooseFile() {
    const QString chosen = QFileDialog::getSaveFileName(
        this, windowTitle(), file_->text(),
        QStringLiteral("*%1").arg(QLatin1String(kEndings[format_->currentIndex()])), nullptr,
        QFileDialog::DontConfirmOverwrite);  // asked for when it is written
    if (!chosen.isEmpty()) {
        file_->setText(chosen);
    }
}

paint::PlotOptions PlotWindow::Options() const {
    return {monochrome_->isChecked(), static_cast<double>(resolution_->value())};
}

std::vector<AcApDocument*> PlotWindow::Chosen() const {
    return all_->isEnabled() && all_->isChecked() ? pages_ : std::vector{current_};
}

paint::Sheet PlotWindow::SheetOf(const AcApDocument& document) {
    paint::Sheet sheet{QFileInfo(BasePath(document)).fileName(),
                       picture::PictureOf(*document.database(), fonts_)};
    whole_ = whole_ && sheet.list.isWhole();
    return sheet;
}

void PlotWindow::Preview() {
    const std::vector<AcApDocument*> chosen = Chosen();
    PreviewWindow(
        static_cast<int>(chosen.size()),
        [&](int index) { return SheetOf(*chosen.at(static_cast<std::size_t>(index))); }, Options(),
        this)
        .exec();
}

bool PlotWindow::ForEachSheet(const std::function<void(const paint::Sheet&)>& plot) {
    const std::vector<AcApDocument*> chosen = Chosen();
    WorkProgress progress(this);
    whole_ = true;
    for (const AcApDocument* document : chosen) {
        plot(SheetOf(*document));
        if (progress.Step(InterfaceText("Plotting drawings...", "正在打印图形……"),
                          static_cast<int>(chosen.size()))) {
            return false;
        }
    }
    return true;
}

bool PlotWindow::Plot(QByteArray& bytes) {
    if (format_->currentIndex() == kPdf) {
        QBuffer file(&bytes);
        file.open(QIODevice::WriteOnly);
        paint::PdfPages pages(painter_, Options(), file);
        const bool isThrough = ForEachSheet([&](const paint::Sheet& sheet) { pages.Add(sheet); });
        pages.Finish();
        return isThrough;
    }
    return ForEachSheet([&](const paint::Sheet& sheet) {
        bytes = format_->currentIndex() == kSvg ? SvgOf(sheet, painter_, Options())
                                                : PngOf(sheet, painter_, Options());
    });
}

bool PlotWindow::Warn(const QString& reason) {
    QMessageBox::warning(this, windowTitle(), reason);
    return false;
}

/// A plot never takes the place of what it was made of.
bool PlotWindow::IsNoDrawing(const QString& path) {
    for (const AcApDocument* document : documents_) {
        std::error_code missing;
        if (!document->isUntitled() &&
            std::filesystem::equivalent(path.toStdString(),
                                        win32::FileSystemPath(document->fileName()), missing)) {
            return Warn(InterfaceText("%1 is an open drawing. Plot to another file.",
                                      "%1 是已打开的图形，请输出到别的文件。")
                            .arg(path));
        }
    }
    return true;
}

bool PlotWindow::MayWrite(const QString& path) {
    return IsNoDrawing(path) &&
           (!QFileInfo::exists(path) ||
            QMessageBox::question(
                this, windowTitle(),
                InterfaceText("%1 is there already. Overwrite it?", "%1 已存在，是否覆盖?")
                    .arg(path),
                QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes);
}

bool PlotWindow::WriteFile() {
    const QString ending = QLatin1String(kEndings[format_->currentIndex()]);
    if (!file_->text().endsWith(ending, Qt::CaseInsensitive)) {
        file_->setText(file_->text() + ending);
    }
    const QString path = file_->text();
    QByteArray bytes;
    if (!MayWrite(path) || !Plot(bytes)) {
        return false;
    }
    if (bytes.isEmpty()) {
        return Warn(InterfaceText("The picture would be too large at this resolution.",
                                  "该分辨率下图片过大。"));
    }
    std::string error;
    if (!win32::ReplaceFileWhole(path.toStdString(),
                                 {bytes.data(), static_cast<std::size_t>(bytes.size())}, error)) {
        return Warn(QString::fromStdString(error));
    }
    report_ = path;
    return true;
}

bool PlotWindow::Print() {
    const std::vector<AcApDocument*> chosen = Chosen();
    const paint::Page first = paint::PageOf(SheetOf(*chosen.front()).list);
    QPrinter printer(QPrinter::HighResolution);
    PrintedPages::Prepare(printer, first);
    QPrintDialog dialog(&printer, this);
    dialog.setMinMax(1, static_cast<int>(chosen.size()));
    if (dialog.exec() != QDialog::Accepted || !IsNoDrawing(printer.outputFileName())) {
        return false;
    }
    PrintedPages pages(printer, first, painter_, Options());
    if (!ForEachSheet([&](const paint::Sheet& sheet) { pages.Add(sheet); })) {
        pages.Abort();
        return false;
    }
    const QString target =
        printer.outputFileName().isEmpty() ? printer.printerName() : printer.outputFileName();
    if (!pages.Finish()) {
        return Warn(InterfaceText("%1 cannot be printed to.", "无法打印到 %1。").arg(target));
    }
    report_ =
        InterfaceText("%1: pages printed: %2", "%1：已打印 %2 页").arg(target).arg(pages.Printed());
    if (pages.ScaledDown() > 0) {
        Warn(InterfaceText("The paper is too small for %1 of the pages: they are not in real "
                           "size.",
                           "纸张过小，有 %1 页缩小打印，不是实际大小。")
                 .arg(pages.ScaledDown()));
    }
    return true;
}

void PlotWindow::accept() {
    if (!(format_->currentIndex() == kPrinter ? Print() : WriteFile())) {
        return;
    }
    if (!whole_) {
        QMessageBox::warning(this, windowTitle(), PartMissing());
    }
    QDialog::accept();
}

}  // namespace desk
