// tool_selection.cpp - see tool_selection.h.
// SPDX-License-Identifier: MIT
#include "tool_selection.h"

#include <algorithm>
#include <utility>

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

#include <platform/qt/geo_map_widget.h>

#include "tool_length.h"
#include "tool_overlay.h"

namespace zav {

namespace {

constexpr int SmallestSide = 2;  // map pixels; less is a click
constexpr int Gap = 6;

// The corner behind the last pixel.
QPoint EndOf(const QRect& Rectangle) { return Rectangle.bottomRight() + QPoint(1, 1); }

}  // namespace

SelectionTool::SelectionTool(GeoMapWidget& Widget, ToolOverlay& Overlay, TextAt Text)
    : QFrame(&Widget),
      FWidget(Widget),
      FOverlay(Overlay),
      FTextAt(std::move(Text)),
      FSize(new QLabel(this)) {
  setCursor(Qt::ArrowCursor);
  setFocusPolicy(Qt::NoFocus);
  setAccessibleName(tr("Selected rectangle"));
  FSize->setContentsMargins(4, 0, 4, 0);
  auto* Layout = new QHBoxLayout(this);
  Layout->setContentsMargins(4, 3, 4, 3);
  Layout->setSpacing(2);
  Layout->addWidget(FSize);
  connect(addButton(tr("Copy Corners"), tr("Copy the corners as text, written like the position in "
                                           "the status bar")),
          &QAbstractButton::clicked, this, [this] { emit copyText(cornersText()); });
  connect(addButton(tr("Save as Picture..."), tr("Save this part of the map as a picture")),
          &QAbstractButton::clicked, this, [this] { emit saveRectangle(*FRectangle); });
  connect(addButton(tr("Zoom"), tr("Fill the window with it")), &QAbstractButton::clicked, this,
          [this] { emit zoomTo(*FRectangle); });
  connect(addButton(tr("Close"), tr("Select nothing (Esc)")), &QAbstractButton::clicked, this,
          &SelectionTool::clear);
  connect(&Widget, &GeoMapWidget::pixelsSelected, this, &SelectionTool::select);
  connect(&Widget, &GeoMapWidget::viewChanged, this, &SelectionTool::place);
  Widget.installEventFilter(this);
  hide();
}

QAbstractButton* SelectionTool::addButton(const QString& Text, const QString& Tip) {
  auto* Button = new QToolButton(this);
  Button->setText(Text);
  Button->setToolTip(Tip);
  Button->setAutoRaise(true);
  Button->setFocusPolicy(Qt::NoFocus);
  layout()->addWidget(Button);
  return Button;
}

bool SelectionTool::eventFilter(QObject* Watched, QEvent* Event) {
  if (Event->type() == QEvent::Resize) place();
  return QFrame::eventFilter(Watched, Event);
}

void SelectionTool::paintEvent(QPaintEvent* /*Event*/) {
  QPainter Painter(this);
  Painter.fillRect(rect(), palette().window());
  Painter.setPen(palette().color(QPalette::Mid));
  Painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void SelectionTool::clear() {
  FRectangle.reset();
  FOverlay.setRectangle(FRectangle);
  hide();
  emit changed();
}

void SelectionTool::select(QPoint From, QPoint To) {
  clear();
  const QPoint TopLeft(std::min(From.x(), To.x()), std::min(From.y(), To.y()));
  const QRect Dragged(TopLeft, QSize(std::abs(To.x() - From.x()), std::abs(To.y() - From.y())));
  if (Dragged.width() < SmallestSide || Dragged.height() < SmallestSide) return;
  const TGeoMap& Map = FWidget.map();
  const QRect Part = Dragged & QRect(0, 0, Map.MapImgWidth(), Map.MapImgHeight());
  if (Part.isEmpty()) return emit refused(tr("That rectangle lies beside the map."));
  FRectangle = Part;
  FOverlay.setRectangle(FRectangle);
  FSize->setText(sizeText());
  FSize->setToolTip(cornersText());
  adjustSize();
  show();
  raise();
  place();
  emit changed();
}

QString SelectionTool::cornersText() const {
  if (!FRectangle) return {};
  return FTextAt(FRectangle->topLeft()) + QLatin1Char('\n') + FTextAt(EndOf(*FRectangle));
}

// Across the middle, because the edges of a map are of different lengths on the ground.
QString SelectionTool::sizeText() const {
  if (!FRectangle) return {};
  const TGeoMap& Map = FWidget.map();
  const double Resolution = Map.CalibData().Resolution;
  const QRectF Area(*FRectangle);
  const QPointF Middle = Area.center();
  const MapLength Across =
      LengthBetween(Map, {Area.left(), Middle.y()}, {Area.right(), Middle.y()});
  const MapLength Down = LengthBetween(Map, {Middle.x(), Area.top()}, {Middle.x(), Area.bottom()});
  if (!Across.Metres || !Down.Metres)
    return tr("%1 x %2 pixels").arg(FRectangle->width()).arg(FRectangle->height());
  return tr("%1 x %2").arg(LengthText(Across, Resolution), LengthText(Down, Resolution));
}

// Below the rectangle, else above it, else in it; inside the window as far as it goes.
void SelectionTool::place() {
  if (!FRectangle) return;
  const QPoint From = FOverlay.controlOf(FRectangle->topLeft()).toPoint();
  const QPoint To = FOverlay.controlOf(EndOf(*FRectangle)).toPoint();
  int Top = To.y() + Gap;
  if (Top + height() > FWidget.height()) Top = From.y() - Gap - height();
  if (Top < 0) Top = std::min(To.y(), FWidget.height()) - Gap - height();
  const int Left = std::min(To.x() - width(), FWidget.width() - width());
  move(std::max(0, Left), std::clamp(Top, 0, std::max(0, FWidget.height() - height())));
}

}  // namespace zav
