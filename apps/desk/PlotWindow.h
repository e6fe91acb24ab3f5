#pragma once

#include <QDialog>
#include <optional>
#include <vector>

#include "apps/paint/sheet_pages.h"
#include "platform/ap/AcApDocument.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QSpinBox;

namespace desk {

/// Asks what to plot and plots it: the current drawing or all that are open as pages of a PDF file,
/// the current one as an SVG page or a PNG picture.
class PlotWindow : public QDialog {
public:
    /// `documents` are those open, `current` one of them.
    PlotWindow(std::vector<AcApDocument*> documents, AcApDocument* current, QWidget* parent);

    /// Plots; a file that cannot be written is told in a box, and the window stays.
    void accept() override;
    /// The file written; empty while there is none.
    const QString& Written() const { return written_; }

private:
    void FollowFormat();
    void ChooseFile();
    /// The plotted file; nothing when the user has given up.
    std::optional<QByteArray> Bytes();
    std::optional<QByteArray> PagesOf(const std::vector<AcApDocument*>& documents,
                                      paint::PicturePainter& painter,
                                      const paint::PlotOptions& options);

    std::vector<AcApDocument*> documents_;
    AcApDocument* current_;
    QComboBox* format_;
    QCheckBox* all_;
    QCheckBox* monochrome_;
    QSpinBox* resolution_;
    QLineEdit* file_;
    QString written_;
    bool whole_ = true;  ///< the pictures plotted last lack nothing
};

}  // namespace desk
