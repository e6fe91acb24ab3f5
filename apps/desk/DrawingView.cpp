#include "apps/desk/DrawingView.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "apps/desk/part_missing.h"
#include "host/coordinates.h"
#include "host/picture/shape_hits.h"
#include "platform/db/AcDbDatabase.h"
#include "platform/db/AcDbEntity.h"

namespace desk {

namespace {
constexpr double kZoomStep = 1.25;     ///< of one notch of the wheel
constexpr double kWheelNotch = 120.0;  ///< eighths of a degree
constexpr double kReachPixels = 6.0;   ///< how far off a click may be
constexpr double kDragPixels = 4.0;    ///< less is a click with an unsteady hand

AcApView NoView() {
    return {};
}

bool IsOpen(AcDbObjectId id) {
    return AcDbDatabase::objectOf(id) != nullptr && !id.isErased();
}

picture::Box BoxOf(picture::Point a, picture::Point b) {
    picture::Box box;
    box.add(a);
    box.add(b);
    return box;
}
}  // namespace

DrawingView::DrawingView(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
    setObjectName(QStringLiteral("drawing"));
    setMinimumSize(200, 150);
    look_.background = picture::Background::kDark;
    look_.emphasis = [this](AcDbObjectId id) {
        const auto* entity = dynamic_cast<const AcDbEntity*>(AcDbDatabase::objectOf(id));
        const bool marked = (entity != nullptr && entity->isHighlighted()) || IsSelected(id);
        return marked                    ? paint::Emphasis::kHighlighted
               : id == target_.Offered() ? paint::Emphasis::kOffered
                                         : paint::Emphasis::kNone;
    };
}

ViewTransform DrawingView::Transform() const {
    return {document_ != nullptr ? document_->view() : NoView(), size()};
}

double DrawingView::Reach() const {
    return kReachPixels / Transform().Scale();
}

void DrawingView::SetDocument(AcApDocument* document) {
    AcDbDatabase* const database = document != nullptr ? document->database() : nullptr;
    if (document == document_ && database == database_) {
        return;
    }
    document_ = document;
    database_ = database;
    selection_.clear();
    target_.LookAway();
    selectedLast_.setNull();
    picture_ = picture::DisplayList();
    windowCorner_.reset();
    panFrom_.reset();
    pressed_ = false;
    Rebuild();
}

void DrawingView::Rebuild() {
    stale_ = true;
    std::erase_if(selection_, [](AcDbObjectId id) { return !IsOpen(id); });
    LoadGrips();
    update();
}

/// In few steps, so that zooming seldom makes the picture anew.
double DrawingView::WantedChordError() const {
    constexpr double kStep = 8.0;
    constexpr double kFinest = picture::kChordError / (kStep * kStep * kStep * kStep);
    const double halfPixel = 0.5 / Transform().Scale();
    double error = picture::kChordError;
    while (error > halfPixel && error > kFinest) {
        error /= kStep;
    }
    return error;
}

const picture::DisplayList& DrawingView::Picture() {
    const double chordError = database_ != nullptr ? WantedChordError() : chordError_;
    if ((stale_ || chordError != chordError_) && (!mayLook || mayLook())) {
        stale_ = false;
        chordError_ = chordError;
        picture_ = database_ != nullptr ? picture::PictureOf(*database_, fonts_, chordError)
                                        : picture::DisplayList();
        tellOfPart_ = !picture_.isWhole();
    }
    return picture_;
}

std::vector<std::string> DrawingView::TakeFaults() {
    std::vector<std::string> faults = fonts_.takeFaults();
    if (std::exchange(tellOfPart_, false)) {
        faults.push_back(PartMissing().toStdString());
    }
    return faults;
}

void DrawingView::SetAsking(Asking asking) {
    asking_ = asking;
    if (asking == Asking::kPoint) {
        target_.LookAway();
    }
    update();
}

void DrawingView::SetBackground(picture::Background background) {
    look_.background = background;
    update();
}

void DrawingView::Select(std::vector<AcDbObjectId> entities) {
    selection_ = std::move(entities);
    LoadGrips();
    update();
}

void DrawingView::LoadGrips() {
    grips_.Load(selection_);
}

bool DrawingView::GiveUp() {
    const bool busy = grips_.IsDragging() || grips_.AnyHot();
    if (busy) {
        grips_.CoolAll();
    } else if (windowCorner_) {
        windowCorner_.reset();
    } else if (!selection_.empty()) {
        Select({});
    } else {
        return false;
    }
    pressed_ = false;
    target_.LookAway();
    update();
    if (onCursor) {
        onCursor(cursor_);
    }
    return true;
}

void DrawingView::Drop() {
    const std::vector<std::string> arguments = grips_.MoveArguments();
    grips_.CoolAll();
    pressed_ = false;
    update();
    if (onGripsMoved) {
        onGripsMoved(arguments);
    }
}

bool DrawingView::DropAt(const std::string& text) {
    const bool relative = text.starts_with('@');
    const auto point = host::ParsePoint(relative ? text.substr(1) : text);
    if (!grips_.IsDragging() || !point) {
        return false;
    }
    const picture::Point typed{point->x, point->y};
    grips_.DragTo(relative ? grips_.Base() + typed : typed);
    Drop();
    return true;
}

void DrawingView::mousePressEvent(QMouseEvent* event) {
    const picture::Point point = ToPlane(event->position());
    if (event->button() == Qt::MiddleButton) {
        panFrom_ = std::make_unique<picture::Point>(point);
        setCursor(Qt::ClosedHandCursor);
    } else if (event->button() == Qt::LeftButton && document_ != nullptr) {
        pressedAt_ = event->position();
        PressLeft(point, event->modifiers().testFlag(Qt::ShiftModifier));
    }
}

void DrawingView::PressLeft(picture::Point point, bool shift) {
    if (grips_.IsDragging()) {
        grips_.DragTo(point);
        return Drop();
    }
    if (windowCorner_) {
        cursor_ = point;
        return FinishWindow(shift);
    }
    cursor_ = point;
    LookUnderCursor();
    if (asking_ == Asking::kPoint) {
        return onPoint(point);
    }
    if (asking_ == Asking::kEntity) {
        return onEntity(target_.Offered().isNull() ? AcDbObjectId() : target_.Take());
    }
    if (const int grip = grips_.At(point, Reach()); grip >= 0) {
        return PressGrip(grip, shift);
    }
    if (!PressEntity(shift)) {
        windowCorner_ = std::make_unique<picture::Point>(point);
        pressed_ = true;
    }
    update();
}

/// With Shift grips are gathered; without, the drag begins, by a gathered one with all of them.
void DrawingView::PressGrip(int grip, bool shift) {
    if (shift) {
        grips_.Toggle(grip);
    } else {
        if (!grips_.Grips()[static_cast<std::size_t>(grip)].hot) {
            grips_.CoolAll();
        }
        grips_.StartDrag(grip);
        pressed_ = true;
        if (onCursor) {
            onCursor(cursor_);
        }
    }
    update();
}

/// Selects what is offered, in place of what the last click here has selected. With Shift, takes
/// out the first selected one of all that is here.
bool DrawingView::PressEntity(bool shift) {
    if (target_.Offered().isNull()) {
        return false;
    }
    const std::vector<AcDbObjectId>& within = target_.Within();
    if (shift) {
        const auto out = std::find_if(within.begin(), within.end(),
                                      [this](AcDbObjectId id) { return IsSelected(id); });
        Add(std::vector(out, out == within.end() ? out : out + 1), true);
        return true;
    }
    const AcDbObjectId before = target_.TakenLast();
    const AcDbObjectId taken = target_.Take();
    if (!before.isNull() && before == selectedLast_ && before != taken) {
        std::erase(selection_, before);
    }
    selectedLast_ = IsSelected(taken) ? AcDbObjectId() : taken;
    Add({taken}, false);
    return true;
}

/// Grips lie above what can be taken; a point that is asked for is no entity.
void DrawingView::LookUnderCursor() {
    const AcDbObjectId before = target_.Offered();
    const bool atRest = asking_ == Asking::kNothing;
    if (database_ == nullptr || grips_.IsDragging() || windowCorner_ || panFrom_ ||
        asking_ == Asking::kPoint || (atRest && grips_.At(cursor_, Reach()) >= 0)) {
        target_.LookAway();
    } else {
        target_.Look(Picture(), cursor_, Reach());
    }
    if (target_.Offered() != before) {
        update();
    }
}

bool DrawingView::IsSelected(AcDbObjectId entity) const {
    return std::find(selection_.begin(), selection_.end(), entity) != selection_.end();
}

void DrawingView::Add(const std::vector<AcDbObjectId>& entities, bool takeOut) {
    for (const AcDbObjectId id : entities) {
        const auto found = std::find(selection_.begin(), selection_.end(), id);
        if (takeOut && found != selection_.end()) {
            selection_.erase(found);
        } else if (!takeOut && found == selection_.end()) {
            selection_.push_back(id);
        }
    }
    LoadGrips();
}

void DrawingView::FinishWindow(bool shift) {
    const picture::Box box = BoxOf(*windowCorner_, cursor_);
    const bool crossing = cursor_.x < windowCorner_->x;
    windowCorner_.reset();
    pressed_ = false;
    Add(picture::EntitiesIn(Picture(), box, crossing), shift);
    update();
}

void DrawingView::mouseMoveEvent(QMouseEvent* event) {
    if (panFrom_ && document_ != nullptr) {
        Pan(document_->view(), *panFrom_, ToPlane(event->position()));
        update();
    }
    cursor_ = ToPlane(event->position());
    if (grips_.IsDragging()) {
        grips_.DragTo(cursor_);
        update();
    }
    if (windowCorner_) {
        update();
    }
    LookUnderCursor();
    if (onCursor) {
        onCursor(cursor_);
    }
}

/// What was begun by a press and dragged on ends here; after a mere click the next one ends it.
void DrawingView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) {
        panFrom_.reset();
        setCursor(Qt::CrossCursor);
        return;
    }
    const QPointF way = event->position() - pressedAt_;
    const bool dragged = std::hypot(way.x(), way.y()) > kDragPixels;
    if (event->button() != Qt::LeftButton || !std::exchange(pressed_, false) || !dragged) {
        return;
    }
    cursor_ = ToPlane(event->position());
    if (grips_.IsDragging()) {
        grips_.DragTo(cursor_);
        Drop();
    } else if (windowCorner_) {
        FinishWindow(event->modifiers().testFlag(Qt::ShiftModifier));
    }
}

void DrawingView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton) {
        return mousePressEvent(event);
    }
    if (onShowAll) {
        onShowAll();
    }
}

void DrawingView::wheelEvent(QWheelEvent* event) {
    if (document_ != nullptr) {
        const double notches = event->angleDelta().y() / kWheelNotch;
        ZoomAbout(document_->view(), ToPlane(event->position()), std::pow(kZoomStep, notches));
        update();
    }
}

void DrawingView::leaveEvent(QEvent* /*event*/) {
    target_.LookAway();
    update();
}

}  // namespace desk
