#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "apps/paint/sheet_pages.h"
#include "host/picture/FontLibrary.h"
#include "platform/ap/AcApDocument.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace desk {

/// Asks what to plot and plots it: the current drawing or all that are open as pages of a PDF file
/// or of a printer, the current one as an SVG page or a PNG picture.
class PlotWindow : public QDialog {
public:
    /// `documents` are those open, `current` one of them. An untitled drawing with nothing in it is
    /// no page among others.
    PlotWindow(std::vector<AcApDocument*> documents, AcApDocument* current, QWidget* parent);

    /// Plots; what stands against it is told in a box, and the window stays. A file that is there
    /// is overwritten only when the user agrees, an open drawing never.
    void accept() override;
    /// What was plotted, as a line for the command line; empty while nothing was.
    const QString& Report() const { return report_; }

private:
    void MakeForm();
    void FollowFormat();
    void ChooseFile();
    void Preview();
    paint::PlotOptions Options() const;
    std::vector<AcApDocument*> Chosen() const;
    paint::Sheet SheetOf(const AcApDocument& document);
    bool IsNoDrawing(const QString& path);
    bool MayWrite(const QString& path);
    /// Makes the chosen sheets one after the other. False when the user has given up.
    bool ForEachSheet(const std::function<void(const paint::Sheet&)>& plot);
    /// The bytes of the plotted file; false when the user has given up.
    bool Plot(QByteArray& bytes);
    bool WriteFile();
    bool Print();
    /// Tells something in a box; false.
    bool Warn(const QString& reason);

    std::vector<AcApDocument*> documents_;
    std::vector<AcApDocument*> pages_;  ///< of all open drawings
    AcApDocument* current_;
    QComboBox* format_;
    QCheckBox* all_;
    QCheckBox* monochrome_;
    QSpinBox* resolution_;
    QLineEdit* file_;
    QPushButton* browse_;
    picture::FontLibrary fonts_;
    paint::PicturePainter painter_;
    QString report_;
    bool whole_ = true;  ///< the pictures plotted last lack nothing
};

}  // namespace desk
