// map_pointer.cpp - see map_pointer.h.
// SPDX-License-Identifier: MIT
#include "map_pointer.h"

#include <algorithm>
#include <optional>

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <platform/qt/geo_map_widget.h>

#include "arrow_step.h"

namespace zav {

namespace {

constexpr int Arm = 14;  // of the cross, with a gap in its middle
constexpr int Gap = 4;
constexpr int FrameWidth = 2;
constexpr int LargestStep = 16;  // while an arrow key is held

bool IsButtonKey(int Key) {
  return Key == Qt::Key_Space || Key == Qt::Key_Return || Key == Qt::Key_Enter;
}

bool ByKey(Qt::FocusReason Reason) {
  return Reason == Qt::TabFocusReason || Reason == Qt::BacktabFocusReason ||
         Reason == Qt::ShortcutFocusReason;
}

}  // namespace

MapPointer::MapPointer(GeoMapWidget& Widget) : QWidget(&Widget), FWidget(Widget) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  setGeometry(Widget.rect());
  Widget.installEventFilter(this);
  hide();
}

void MapPointer::setActive(bool Active) {
  if (FActive == Active) return;
  if (!Active && FHeld) button(false, {});
  FActive = Active;
  if (Active) {
    if (!FWidget.rect().contains(FAt) || FAt.isNull()) FAt = FWidget.rect().center();
    FWidget.setFocus(Qt::ShortcutFocusReason);
    tellMap(QEvent::MouseMove);
  }
  follow();
}

// --- events

bool MapPointer::eventFilter(QObject* Watched, QEvent* Event) {
  if (Watched != &FWidget) return QWidget::eventFilter(Watched, Event);
  switch (Event->type()) {
    case QEvent::Resize:
      setGeometry(FWidget.rect());
      FAt = {std::clamp(FAt.x(), 0, std::max(0, width() - 1)),
             std::clamp(FAt.y(), 0, std::max(0, height() - 1))};
      break;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
      FFrame = FWidget.hasFocus() && (ByKey(static_cast<QFocusEvent*>(Event)->reason()) || FActive);
      follow();
      break;
    case QEvent::MouseButtonPress:
      if (FTelling) break;
      FFrame = false;
      follow();
      break;
    case QEvent::MouseMove:
      if (FTelling) break;
      FAt = static_cast<QMouseEvent*>(Event)->position().toPoint();
      if (FActive) update();
      break;
    case QEvent::ContextMenu:
      // The key's menu belongs to the pointer's place.
      if (!FActive || static_cast<QContextMenuEvent*>(Event)->reason() == QContextMenuEvent::Mouse)
        break;
      openMenu();
      return true;
    case QEvent::ShortcutOverride:
      if (!takesKey(*static_cast<QKeyEvent*>(Event))) break;
      Event->accept();
      return true;
    case QEvent::KeyPress:
      if (!takesKey(*static_cast<QKeyEvent*>(Event))) break;
      pressKey(*static_cast<QKeyEvent*>(Event));
      return true;
    case QEvent::KeyRelease:
      if (!FActive || !IsButtonKey(static_cast<QKeyEvent*>(Event)->key())) break;
      return true;
    default:
      break;
  }
  return QWidget::eventFilter(Watched, Event);
}

bool MapPointer::takesKey(const QKeyEvent& Event) const {
  if (!FActive || FWidget.imageFile().isEmpty()) return false;
  const auto Others = Event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
  // Ctrl and a click is a tool's, too.
  if (IsButtonKey(Event.key())) return Others == Qt::NoModifier || Others == Qt::ControlModifier;
  return Others == Qt::NoModifier && ArrowStep(Event.key());
}

void MapPointer::pressKey(const QKeyEvent& Event) {
  const bool Shift = Event.modifiers().testFlag(Qt::ShiftModifier);
  if (const std::optional<QPoint> Way = ArrowStep(Event.key())) {
    FRepeats = Event.isAutoRepeat() ? FRepeats + 1 : 0;
    // A pixel at first; held down, faster and faster.
    moveBy(*Way, Shift ? FarStep : std::clamp(FRepeats / 2, 1, LargestStep));
    return;
  }
  if (Event.isAutoRepeat()) return;
  const auto Modifiers = Event.modifiers() & Qt::ControlModifier;
  const bool Drags = Shift && !FHeld;
  if (!FHeld) button(true, Modifiers);
  if (!Drags) button(false, Modifiers);
}

// --- the mouse

void MapPointer::moveBy(QPoint Direction, int Step) {
  const QPoint To = FAt + Direction * Step;
  if (!rect().contains(To) && !FHeld) {
    // Over the edge the map comes along.
    FWidget.panBy(Direction * std::max(Step, FarStep));
  } else {
    FAt = {std::clamp(To.x(), 0, std::max(0, width() - 1)),
           std::clamp(To.y(), 0, std::max(0, height() - 1))};
  }
  tellMap(QEvent::MouseMove);
  update();
}

void MapPointer::button(bool Down, Qt::KeyboardModifiers Modifiers) {
  FHeld = Down;
  tellMap(Down ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease, Modifiers);
  update();
}

void MapPointer::tellMap(QEvent::Type Type, Qt::KeyboardModifiers Modifiers) {
  const bool Move = Type == QEvent::MouseMove;
  QMouseEvent Event(Type, FAt, FWidget.mapToGlobal(QPointF(FAt)),
                    Move ? Qt::NoButton : Qt::LeftButton, FHeld ? Qt::LeftButton : Qt::NoButton,
                    Modifiers);
  FTelling = true;
  QCoreApplication::sendEvent(&FWidget, &Event);
  FTelling = false;
}

void MapPointer::openMenu() {
  QContextMenuEvent Event(QContextMenuEvent::Mouse, FAt, FWidget.mapToGlobal(FAt));
  QCoreApplication::sendEvent(&FWidget, &Event);
}

// --- the look

void MapPointer::follow() {
  setVisible(FActive || FFrame);
  raise();
  update();
}

void MapPointer::paintEvent(QPaintEvent* /*Event*/) {
  QPainter Painter(this);
  if (FFrame) {
    // Seen on maps of any colour.
    const int Half = FrameWidth / 2;
    Painter.setPen(QPen(palette().color(QPalette::Highlight), FrameWidth));
    Painter.drawRect(rect().adjusted(Half, Half, -Half, -Half));
    Painter.setPen(QPen(palette().color(QPalette::HighlightedText), 1));
    Painter.drawRect(rect().adjusted(FrameWidth, FrameWidth, -FrameWidth - 1, -FrameWidth - 1));
  }
  if (!FActive) return;
  const QPointF At = QPointF(FAt) + QPointF(0.5, 0.5);
  for (const auto& [Color, Width] : {std::pair{Qt::white, 5.0}, std::pair{Qt::black, 2.0}}) {
    Painter.setPen(QPen(Color, Width, Qt::SolidLine, Qt::FlatCap));
    for (const QPoint Way : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)})
      Painter.drawLine(At + Way * Gap, At + Way * Arm);
    if (FHeld) Painter.drawEllipse(At, Gap, Gap);
  }
}

}  // namespace zav
