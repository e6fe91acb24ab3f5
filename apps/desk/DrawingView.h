#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "apps/desk/ClickTarget.h"
#include "apps/desk/GripSet.h"
#include "apps/desk/ViewTransform.h"
#include "apps/paint/PicturePainter.h"
#include "host/picture/FontLibrary.h"
#include "host/picture/picture_of.h"

namespace desk {

/// Shows a document's drawing. The wheel zooms at the cursor, the middle button pans, and shows
/// everything when it is clicked twice. What a click would take lights up. At rest a click selects
/// it, the next one at the same place what lies below instead, Shift takes it out again; a click on
/// nothing, or a drag, opens a window: to the right everything in it is selected, to the left
/// everything it touches. Selected entities show their grips; one that is clicked is dragged until
/// the button goes up elsewhere or the next click, with Shift grips are made hot first. While a
/// command asks, a click is an entity or a point.
class DrawingView : public QWidget {
public:
    explicit DrawingView(QWidget* parent);

    /// Shows a document, null for none. A change of document ends selection and drag.
    void SetDocument(AcApDocument* document);
    /// The drawing has changed: it is drawn anew when it is next looked at, what is left of the
    /// selection stays.
    void Rebuild();
    /// Tells whether entities may be looked at; while a command runs it may hold some of them open,
    /// and what was seen before stays.
    std::function<bool()> mayLook;
    /// Looks fonts up anew: another suite folder has others.
    void ForgetFonts() { fonts_ = picture::FontLibrary(); }
    /// What was wrong with font files since the last call, and whether the picture lacks something
    /// (UTF-8).
    std::vector<std::string> TakeFaults();
    /// What a command waits for.
    enum class Asking { kNothing, kPoint, kEntity };
    void SetAsking(Asking asking);
    void SetBackground(picture::Background background);
    picture::Background Background() const { return look_.background; }

    /// In the order of selecting.
    const std::vector<AcDbObjectId>& Selection() const { return selection_; }
    void Select(std::vector<AcDbObjectId> entities);
    /// What lights up as a click would take it; null for nothing.
    AcDbObjectId Offered() const { return target_.Offered(); }
    const GripSet& Grips() const { return grips_; }
    /// Gives up the drag, else hot grips, else the window, else the selection. False when there was
    /// nothing to give up.
    bool GiveUp();
    /// Drops the dragged grips at a point typed as "x,y", or "@dx,dy" from where they were. False
    /// when nothing is dragged or the text is no point.
    bool DropAt(const std::string& text);

    picture::Point ToPlane(QPointF pixel) const { return Transform().ToPlane(pixel); }
    QPointF ToPixel(picture::Point point) const { return Transform().ToPixel(point); }
    const picture::DisplayList& Picture();

    /// A point was clicked while a command asks for one.
    std::function<void(picture::Point)> onPoint;
    /// An entity was clicked while a command asks for one; null where there is none.
    std::function<void(AcDbObjectId)> onEntity;
    /// Grips were dropped: arguments of GRIP, one for every entity.
    std::function<void(const std::vector<std::string>&)> onGripsMoved;
    /// The cursor moved, or the drag began or ended.
    std::function<void(picture::Point)> onCursor;
    /// The middle button was clicked twice.
    std::function<void()> onShowAll;

    QSize sizeHint() const override { return {900, 620}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    ViewTransform Transform() const;
    /// How far the chords of curves may be from them for half a pixel of the view.
    double WantedChordError() const;
    double Reach() const;
    void PressLeft(picture::Point point, bool shift);
    void PressGrip(int grip, bool shift);
    bool PressEntity(bool shift);
    void LookUnderCursor();
    void FinishWindow(bool shift);
    void Drop();
    bool IsSelected(AcDbObjectId entity) const;
    void Add(const std::vector<AcDbObjectId>& entities, bool takeOut);
    void LoadGrips();

    void PaintRubber(QPainter& painter) const;
    void PaintGrips(QPainter& painter) const;
    void PaintWindow(QPainter& painter) const;

    AcApDocument* document_ = nullptr;
    AcDbDatabase* database_ = nullptr;  ///< the document's; tells a new one in the same place
    picture::FontLibrary fonts_;
    picture::DisplayList picture_;
    double chordError_ = picture::kChordError;  ///< of the picture
    bool stale_ = false;
    bool tellOfPart_ = false;  ///< the picture is not whole, and nobody has been told
    mutable paint::PicturePainter painter_;
    paint::Look look_;
    Asking asking_ = Asking::kNothing;

    std::vector<AcDbObjectId> selection_;
    ClickTarget target_;
    AcDbObjectId selectedLast_;  ///< by the last click, which the next one may take back
    GripSet grips_;
    QPointF pressedAt_;     ///< pixels
    bool pressed_ = false;  ///< the left button is down since a press that began something
    picture::Point cursor_;
    std::unique_ptr<picture::Point> windowCorner_;  ///< first corner of an open window
    std::unique_ptr<picture::Point> panFrom_;
};

}  // namespace desk
