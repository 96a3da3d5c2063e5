// tool_menu.cpp - see tool_menu.h.
// SPDX-License-Identifier: MIT
#include "tool_menu.h"

#include <algorithm>
#include <array>
#include <utility>

#include <QAction>
#include <QActionGroup>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QStatusBar>
#include <QToolBar>

#include "icons.h"
#include "tool_measure.h"
#include "tool_overlay.h"
#include "tool_selection.h"

namespace zav {

namespace {

using Tool = ToolMenu::Tool;

struct ToolRow {
  Tool Mode;
  ViewerIcon Icon;
  Qt::CursorShape Cursor;
  Qt::Key Key;
  const char* Text;
  const char* Tip;
  const char* Hint;
};

// clang-format off
constexpr std::array<ToolRow, 8> Rows{{
    {Tool::Pan, ViewerIcon::Pan, Qt::OpenHandCursor, Qt::Key_P,
     QT_TRANSLATE_NOOP("zav::ToolMenu", "&Move the Map"),
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Move the map"), ""},
    {Tool::PanHorizontal, ViewerIcon::PanHorizontal, Qt::SizeHorCursor, Qt::Key_H,
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Move &Left and Right"),
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Move the map to the left and right only"),
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Drag: move the map to the left and right")},
    {Tool::PanVertical, ViewerIcon::PanVertical, Qt::SizeVerCursor, Qt::Key_V,
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Move &Up and Down"),
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Move the map up and down only"),
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Drag: move the map up and down")},
    {Tool::ZoomBox, ViewerIcon::ZoomBox, Qt::CrossCursor, Qt::Key_Z,
     QT_TRANSLATE_NOOP("zav::ToolMenu", "&Zoom to a Box"),
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Drag a box that then fills the window"),
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Drag a box: it fills the window. Right button or Esc: give it up")},
    {Tool::ZoomDrag, ViewerIcon::ZoomDrag, Qt::SizeVerCursor, Qt::Key_D,
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Zoom by &Dragging"),
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Zoom by dragging up and down"),
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Drag up: enlarge; down: make smaller. The middle stays")},
    {Tool::RubberBand, ViewerIcon::Measure, Qt::CrossCursor, Qt::Key_L,
     QT_TRANSLATE_NOOP("zav::ToolMenu", "M&easure Lengths"),
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Measure lengths, directions and areas"),
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Click: begin and end a line. Ctrl and click: another piece, three points have an area. Backspace: take a point back. Esc: give it up")},
    {Tool::SelectRect, ViewerIcon::SelectRect, Qt::CrossCursor, Qt::Key_R,
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Select a &Rectangle"),
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Select a rectangle, to copy its corners or to save it as a picture"),
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Drag a rectangle: copy its corners, save it as a picture, zoom to it")},
    {Tool::MouseTrace, ViewerIcon::Trace, Qt::CrossCursor, Qt::Key_T,
     QT_TRANSLATE_NOOP("zav::ToolMenu", "&Trace"),
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Draw a line along a road or river and measure it"),
     QT_TRANSLATE_NOOP("zav::ToolMenu", "Drag along a road or river: its length is told. Shift+Esc clears the trace")},
}};
// clang-format on

const ToolRow& RowOf(Tool Mode) {
  const auto* Row = std::find_if(Rows.begin(), Rows.end(),
                                 [&](const ToolRow& Each) { return Each.Mode == Mode; });
  return Row == Rows.end() ? Rows.front() : *Row;
}

}  // namespace

ToolMenu::ToolMenu(GeoMapWidget& Widget, std::function<QString(QPointF)> TextAt, QWidget* Parent)
    : QMenu(tr("&Tools"), Parent),
      FWidget(Widget),
      FOverlay(new ToolOverlay(Widget)),
      FMeasure(new MeasureTool(Widget, *FOverlay, this)),
      FSelection(new SelectionTool(Widget, *FOverlay, std::move(TextAt))),
      FTrace(new TraceTool(Widget, this)),
      FTools(new QActionGroup(this)) {
  setToolTipsVisible(true);
  for (const ToolRow& Row : Rows) addTool(Row.Mode);
  addSeparator();
  addResults();
  connect(FTools, &QActionGroup::triggered, this,
          [this](const QAction* Action) { choose(static_cast<Tool>(Action->data().toInt())); });
  Widget.installEventFilter(this);
  connect(&Widget, &GeoMapWidget::settingsChanged, this, &ToolMenu::showTool);
  connect(&Widget, &GeoMapWidget::mapChanged, this, [this] {
    FWidget.map().CancelMouse();
    FMeasure->clear();
    FSelection->clear();
  });
  connect(FMeasure, &MeasureTool::changed, this, &ToolMenu::update);
  connect(FTrace, &TraceTool::changed, this, &ToolMenu::update);
  connect(FSelection, &SelectionTool::changed, this, &ToolMenu::update);
  connect(FSelection, &SelectionTool::copyText, this, &ToolMenu::copyText);
  connect(FSelection, &SelectionTool::refused, this, &ToolMenu::told);
  connect(FSelection, &SelectionTool::saveRectangle, this, &ToolMenu::saveRectangle);
  connect(FSelection, &SelectionTool::zoomTo, this, &ToolMenu::zoomTo);
  showTool();
}

QAction* ToolMenu::addTool(Tool Mode) {
  const ToolRow& Row = RowOf(Mode);
  QAction* Action = FTools->addAction(MakeIcon(Row.Icon), tr(Row.Text));
  Action->setCheckable(true);
  Action->setData(static_cast<int>(Mode));
  Action->setShortcut(Row.Key);
  // A letter is a shortcut on the map only; elsewhere it is what is typed.
  Action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  const QString Key = Action->shortcut().toString(QKeySequence::NativeText);
  Action->setToolTip(QStringLiteral("%1 (%2)").arg(tr(Row.Tip), Key));
  addAction(Action);
  FWidget.addAction(Action);
  return Action;
}

void ToolMenu::addResults() {
  FCopyArea = addAction(tr("Copy &Area"), this, [this] { emit copyText(FMeasure->areaText()); });
  FCopyLength = addAction(tr("&Copy Length"), this, [this] { emit copyText(lengthText()); });
  FClear = addAction(tr("Clear Li&nes and Trace"), this, [this] {
    clearResults();
    FTrace->clear();
  });
  FClear->setShortcut(Qt::SHIFT | Qt::Key_Escape);
  FClear->setToolTip(tr("Clear measured lines, the selected rectangle and the trace (%1)")
                         .arg(FClear->shortcut().toString(QKeySequence::NativeText)));
}

void ToolMenu::addTo(QToolBar& Bar) const { Bar.addActions(FTools->actions()); }

void ToolMenu::addHintTo(QStatusBar& Bar) {
  FHint = new QLabel;
  FHint->setContentsMargins(6, 0, 6, 0);
  FHint->setTextFormat(Qt::PlainText);
  FHint->setAccessibleName(tr("Tool"));
  // What does not fit is cut off instead of widening the window.
  FHint->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  Bar.insertWidget(0, FHint, 3);
  FStatus = &Bar;
  connect(&Bar, &QStatusBar::messageChanged, this, [this](const QString& Message) {
    if (Message.isEmpty()) update();
  });
  update();
}

void ToolMenu::choose(Tool Mode) {
  FMeasure->interrupt();
  FWidget.setMouseMode(Mode);
  if (FStatus != nullptr) FStatus->clearMessage();
  showTool();
  FWidget.setFocus();
}

void ToolMenu::setMouseTaken(bool Taken) {
  FMouseTaken = Taken;
  // Otherwise the other tool would get nothing.
  if (Taken && tool() != Tool::Pan) choose(Tool::Pan);
  showTool();
}

// Also after another part of the program has changed the tool.
void ToolMenu::showTool() {
  for (QAction* Action : FTools->actions())
    Action->setChecked(Action->data().toInt() == static_cast<int>(tool()));
  showCursor(false);
  update();
}

void ToolMenu::showCursor(bool Pressed) {
  const bool Hand = tool() == Tool::Pan;
  if (Hand && FMouseTaken) return;
  const Qt::CursorShape Shape = Hand && Pressed ? Qt::ClosedHandCursor : RowOf(tool()).Cursor;
  if (FWidget.cursor().shape() != Shape) FWidget.setCursor(Shape);
}

void ToolMenu::update() {
  FCopyLength->setEnabled(!lengthText().isEmpty());
  FCopyArea->setEnabled(!FMeasure->areaText().isEmpty());
  FClear->setEnabled(!FMeasure->isEmpty() || !FSelection->isEmpty() || !FTrace->isEmpty());
  if (FHint == nullptr || FStatus == nullptr) return;
  const QString Result = resultText();
  const char* const Hint = RowOf(tool()).Hint;
  const QString Text = Result.isEmpty() && *Hint != 0 ? tr(Hint) : Result;
  FHint->setText(Text);
  FHint->setToolTip(Text);
  // A message takes its place for a while.
  if (FStatus->currentMessage().isEmpty()) FHint->setVisible(!Text.isEmpty());
}

// --- what the tools have found

QString ToolMenu::resultText() const {
  if (tool() == Tool::RubberBand) return FMeasure->text();
  if (tool() == Tool::MouseTrace) return FTrace->text();
  return {};
}

QString ToolMenu::lengthText() const {
  const bool Traces = tool() == Tool::MouseTrace || FMeasure->isEmpty();
  return Traces ? FTrace->totalText() : FMeasure->totalText();
}

void ToolMenu::clearResults() {
  FWidget.map().CancelMouse();
  FMeasure->clear();
  FSelection->clear();
}

void ToolMenu::zoomTo(const QRect& MapPixels) {
  TGeoMap& Map = FWidget.map();
  const double Fitting = std::min(static_cast<double>(Map.Width()) / MapPixels.width(),
                                  static_cast<double>(Map.Height()) / MapPixels.height());
  const QPoint Middle = MapPixels.center();
  const double Magnification = std::min(Fitting, MaxMagnification);
  const TSize Control = {Map.Width(), Map.Height()};
  const TViewState View =
      CenterOn({Map.TopLeft(), Magnification}, {Middle.x(), Middle.y()}, Control);
  Map.SetView(View.TopLeft, View.Magnification);
  emit viewChosen();
}

bool ToolMenu::dealsWith(const QString& Error) {
  if (tool() != Tool::ZoomBox && tool() != Tool::ZoomDrag) return false;
  const bool High = Error.endsWith(QLatin1String("Magnification factor too high"));
  if (!High && !Error.endsWith(QLatin1String("Magnification factor too small"))) return false;
  TGeoMap& Map = FWidget.map();
  if (!Map.ZoomState()) return true;  // a drag: that it goes no farther is seen
  // The corners of the box, in pixels of the map.
  const TPoint From = {Map.LastClickPosX(), Map.LastClickPosY()};
  const TPoint To = {Map.LastMousePosX(), Map.LastMousePosY()};
  Map.CancelMouse();
  Map.BringMapPixelToCenter({(From.X + To.X) / 2, (From.Y + To.Y) / 2});
  emit told(High ? tr("A map is shown at 200 % at most") : tr("A map is shown at 50 % at least"));
  emit viewChosen();
  return true;
}

// --- Esc

bool ToolMenu::busy() const {
  const TGeoMap& Map = FWidget.map();
  return Map.MouseDragging() || Map.RubberBandActive();
}

bool ToolMenu::handleEscape() {
  if (busy()) {
    FWidget.map().CancelMouse();
    FMeasure->interrupt();
    return true;
  }
  if (tool() == Tool::Pan && FMeasure->isEmpty() && FSelection->isEmpty()) return false;
  clearResults();
  choose(Tool::Pan);
  return true;
}

bool ToolMenu::eventFilter(QObject* Watched, QEvent* Event) {
  if (Event->type() == QEvent::MouseButtonPress || Event->type() == QEvent::MouseButtonRelease) {
    const bool Left = static_cast<QMouseEvent*>(Event)->buttons().testFlag(Qt::LeftButton);
    showCursor(Left);
    return false;
  }
  const bool Key = Event->type() == QEvent::KeyPress || Event->type() == QEvent::ShortcutOverride;
  if (!Key || Watched != &FWidget) return QMenu::eventFilter(Watched, Event);
  const auto* KeyEvent = static_cast<QKeyEvent*>(Event);
  if (KeyEvent->key() == Qt::Key_Backspace && tool() == Tool::RubberBand && !FMeasure->isEmpty()) {
    if (Event->type() == QEvent::KeyPress) return FMeasure->takeBack();
    Event->accept();
    return true;
  }
  if (KeyEvent->key() != Qt::Key_Escape || KeyEvent->modifiers() != Qt::NoModifier) return false;
  if (Event->type() == QEvent::KeyPress) return handleEscape();
  if (busy() || tool() != Tool::Pan || !FMeasure->isEmpty() || !FSelection->isEmpty()) {
    Event->accept();
    return true;
  }
  return false;
}

}  // namespace zav
