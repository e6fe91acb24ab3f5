#include "apps/desk/PlotWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>

#include "apps/desk/WorkProgress.h"
#include "apps/desk/part_missing.h"
#include "apps/windows/interface_text.h"
#include "apps/windows/qt_text.h"
#include "host/picture/FontLibrary.h"
#include "host/picture/picture_of.h"
#include "platform/win32/file_replace.h"
#include "platform/win32/windows_path.h"

namespace desk {

namespace {
using windows::InterfaceText;

enum Format { kPdf, kSvg, kPng };
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

paint::Sheet SheetOf(const AcApDocument& document) {
    picture::FontLibrary fonts;
    return {QFileInfo(BasePath(document)).fileName(),
            picture::PictureOf(*document.database(), fonts)};
}
}  // namespace

PlotWindow::PlotWindow(std::vector<AcApDocument*> documents, AcApDocument* current, QWidget* parent)
    : QDialog(parent),
      documents_(std::move(documents)),
      current_(current),
      format_(new QComboBox(this)),
      all_(new QCheckBox(InterfaceText("&All open drawings as pages of one file",
                                       "所有打开的图形合为一个文件(&A)"),
                         this)),
      monochrome_(new QCheckBox(InterfaceText("&Black only", "单色(&B)"), this)),
      resolution_(new QSpinBox(this)),
      file_(new QLineEdit(this)) {
    setWindowTitle(InterfaceText("Plot", "打印"));
    format_->addItems({QStringLiteral("PDF"), QStringLiteral("SVG"), QStringLiteral("PNG")});
    resolution_->setRange(kLeastDpi, kGreatestDpi);
    resolution_->setValue(kUsualDpi);
    file_->setObjectName(QStringLiteral("plot file"));
    file_->setMinimumWidth(fontMetrics().averageCharWidth() * 60);
    file_->setText(BasePath(*current_));
    auto* const browse = new QPushButton(InterfaceText("Bro&wse...", "浏览(&W)..."), this);
    auto* const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(InterfaceText("OK", "确定"));
    buttons->button(QDialogButtonBox::Cancel)->setText(InterfaceText("Cancel", "取消"));

    auto* const form = new QFormLayout(this);
    form->addRow(InterfaceText("&Format:", "格式(&F):"), format_);
    form->addRow(QString(), all_);
    form->addRow(QString(), monochrome_);
    form->addRow(InterfaceText("Dots per &inch:", "分辨率(dpi)(&I):"), resolution_);
    form->addRow(InterfaceText("F&ile:", "文件(&L):"), file_);
    form->addRow(QString(), browse);
    form->addRow(buttons);

    connect(format_, &QComboBox::currentIndexChanged, this, [this] { FollowFormat(); });
    connect(browse, &QPushButton::clicked, this, [this] { ChooseFile(); });
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
    connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
    FollowFormat();
}

void PlotWindow::FollowFormat() {
    const int format = format_->currentIndex();
    all_->setEnabled(format == kPdf && documents_.size() > 1);
    resolution_->setEnabled(format == kPng);
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
        QStringLiteral("*%1").arg(QLatin1String(kEndings[format_->currentIndex()])));
    if (!chosen.isEmpty()) {
        file_->setText(chosen);
    }
}

std::optional<QByteArray> PlotWindow::Bytes() {
    paint::PicturePainter painter;
    const paint::PlotOptions options{monochrome_->isChecked(),
                                     static_cast<double>(resolution_->value())};
    whole_ = true;
    if (format_->currentIndex() == kPdf) {
        const bool all = all_->isEnabled() && all_->isChecked();
        return PagesOf(all ? documents_ : std::vector<AcApDocument*>{current_}, painter, options);
    }
    const paint::Sheet sheet = SheetOf(*current_);
    whole_ = sheet.list.isWhole();
    return format_->currentIndex() == kSvg ? paint::SvgOf(sheet, painter, options)
                                           : paint::PngOf(sheet, painter, options);
}

std::optional<QByteArray> PlotWindow::PagesOf(const std::vector<AcApDocument*>& documents,
                                              paint::PicturePainter& painter,
                                              const paint::PlotOptions& options) {
    WorkProgress progress(this);
    paint::PdfPages pages(painter, options);
    for (const AcApDocument* document : documents) {
        const paint::Sheet sheet = SheetOf(*document);
        whole_ = whole_ && sheet.list.isWhole();
        pages.Add(sheet);
        if (progress.Step(InterfaceText("Plotting drawings...", "正在打印图形……"),
                          static_cast<int>(documents.size()))) {
            return std::nullopt;
        }
    }
    return pages.Finish();
}

void PlotWindow::accept() {
    const std::optional<QByteArray> plotted = Bytes();
    if (!plotted) {
        return;
    }
    const QByteArray& bytes = *plotted;
    std::string error;
    if (bytes.isEmpty()) {
        error = InterfaceText("The picture would be too large at this resolution.",
                              "该分辨率下图片过大。")
                    .toStdString();
    } else if (win32::ReplaceFileWhole(file_->text().toStdString(),
                                       {bytes.data(), static_cast<std::size_t>(bytes.size())},
                                       error)) {
        written_ = file_->text();
        if (!whole_) {
            QMessageBox::warning(this, windowTitle(), PartMissing());
        }
        return QDialog::accept();
    }
    QMessageBox::warning(this, windowTitle(), QString::fromStdString(error));
}

}  // namespace desk
