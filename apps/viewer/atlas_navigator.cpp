// atlas_navigator.cpp - see atlas_navigator.h.
// SPDX-License-Identifier: MIT
#include "atlas_navigator.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineF>
#include <QMouseEvent>
#include <QToolTip>
#include <QWheelEvent>

#include <platform/base/rounding.h>
#include <platform/qt/qt_convert.h>

#include "atlas_sources.h"

namespace zav {

namespace {

constexpr int UnitsPerNotch = 120;
constexpr double NearOutline = 6;  // control pixels

double Distance(QPointF P, const QLineF& Line) {
  const QPointF Along = Line.p2() - Line.p1();
  const double Square = QPointF::dotProduct(Along, Along);
  const double At =
      Square > 0 ? std::clamp(QPointF::dotProduct(P - Line.p1(), Along) / Square, 0.0, 1.0) : 0;
  return QLineF(P, Line.p1() + Along * At).length();
}

}  // namespace

AtlasNavigator::AtlasNavigator(GeoAtlasWidget& Widget, std::function<QString(int Index)> TitleOf,
                               QObject* Parent)
    : QObject(Parent), FWidget(Widget), FTitleOf(std::move(TitleOf)) {
  Widget.mapWidget().installEventFilter(this);
}

void AtlasNavigator::setClicks(bool On) { FClicks = On; }

int AtlasNavigator::mapFrom(const TCoords& Position, int Direction) const {
  const TGeoAtlas& Atlas = FWidget.atlas();
  const double Now = Atlas.ShownResolution();
  return Direction > 0
             ? Atlas.Maps().Finer(Position.Latit, Position.Longit, Now, Atlas.MinResDiff())
             : Atlas.Maps().Coarser(Position.Latit, Position.Longit, Now);
}

std::optional<AtlasPlace> AtlasNavigator::placeAt(QPointF Control) const {
  const TViewState& View = map().View();
  // Of the pixel's middle, in pixels of the map counted by their middles.
  const auto MapPixel = [&](double Pixel, int32_t Origin) {
    return Origin + (Pixel + 0.5) / View.Magnification - 0.5;
  };
  AtlasPlace Place{{}, Control};
  if (!map().Calibration().ToGeo(MapPixel(Control.x(), View.TopLeft.X),
                                 MapPixel(Control.y(), View.TopLeft.Y), Place.Position))
    return std::nullopt;
  return Place;
}

// --- arriving on another map

double AtlasNavigator::metresOnScreen() const {
  return map().CalibData().Resolution / map().Magnification();
}

void AtlasNavigator::arriveUnder(const AtlasPlace& Place, double MetresOnScreen) {
  double X = 0;
  double Y = 0;
  if (!map().Calibration().ToPixel(Place.Position.Latit, Place.Position.Longit, X, Y)) return;
  double Magnification = map().CalibData().Resolution / MetresOnScreen;
  if (!std::isfinite(Magnification)) Magnification = 1;
  Magnification = std::clamp(Magnification, MinMagnification, MaxMagnification);
  const auto Origin = [&](double MapPixel, double Control) {
    return RoundHalfEven(MapPixel + 0.5 - (Control + 0.5) / Magnification);
  };
  map().SetView({Origin(X, Place.Control.x()), Origin(Y, Place.Control.y())}, Magnification);
}

void AtlasNavigator::arriveInTheMiddle(const TCoords& Position) {
  map().SetView(map().TopLeft(), 1);
  map().BringLocationToCenter(Position.Latit, Position.Longit);
}

// --- events

bool AtlasNavigator::atLimit(int Direction) const {
  const double Now = map().Magnification();
  return Direction > 0 ? Now >= MaxMagnification : Now <= MinMagnification;
}

// Whether the wheel has left the map's own limits; then the map's widget gets nothing of it.
bool AtlasNavigator::wheel(QPointF Control, int Units) {
  const int Direction = Units > 0 ? 1 : -1;
  const std::optional<AtlasPlace> Place = placeAt(Control);
  const int Index = Place && atLimit(Direction) ? mapFrom(Place->Position, Direction) : 0;
  if (Index == 0) {
    FWheelUnits = 0;
    return false;
  }
  if (Units * FWheelUnits < 0) FWheelUnits = 0;
  FWheelUnits += Units;
  if (std::abs(FWheelUnits) < UnitsPerNotch) return true;
  FWheelUnits = 0;
  emit wheeled(Index, *Place);
  return true;
}

bool AtlasNavigator::press(QPointF Control, int Direction) {
  const std::optional<AtlasPlace> Place = placeAt(Control);
  const int Index = Place ? mapFrom(Place->Position, Direction) : 0;
  if (Index == 0)
    emit nothingThere(Direction);
  else
    emit clicked(Index, *Place);
  return true;
}

// The names of the maps whose outlines are near.
QString AtlasNavigator::captionAt(QPointF Control) const {
  const TGeoAtlas& Atlas = FWidget.atlas();
  if (!Atlas.MapOutlineVisible()) return {};
  QStringList Names;
  for (int i = 1; i <= FWidget.mapCount(); ++i) {
    if (i == Atlas.ListItemIndex() + 1) continue;
    const std::vector<TPoint> Outline = Atlas.OutlineOf(i);
    for (size_t k = 1; k < Outline.size(); ++k) {
      const QLineF Side(ToQPoint(Outline[k - 1]), ToQPoint(Outline[k]));
      if (Distance(Control, Side) > NearOutline) continue;
      const QString Scale = ResolutionText(Atlas.GetMapDef(i).Resolution);
      const QString Name = FTitleOf(i);
      Names << (Scale.isEmpty() ? Name : QStringLiteral("%1, %2").arg(Name, Scale));
      break;
    }
  }
  return Names.join(QLatin1Char('\n'));
}

bool AtlasNavigator::eventFilter(QObject* Watched, QEvent* Event) {
  if (FWidget.mapCount() == 0) return false;
  switch (Event->type()) {
    case QEvent::Wheel: {
      const auto* Wheel = static_cast<QWheelEvent*>(Event);
      const int Units =
          Wheel->angleDelta().isNull() ? Wheel->pixelDelta().y() : Wheel->angleDelta().y();
      if (Units == 0 || !wheel(ToQPoint(PixelAt(Wheel->position())), Units)) return false;
      Event->accept();
      return true;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
      const auto* Mouse = static_cast<QMouseEvent*>(Event);
      const bool Left = Mouse->button() == Qt::LeftButton;
      if (!FClicks || (!Left && Mouse->button() != Qt::RightButton)) return false;
      return press(ToQPoint(PixelAt(Mouse->position())), Left ? 1 : -1);
    }
    case QEvent::MouseButtonRelease:
      return FClicks;
    case QEvent::ContextMenu:
      return FClicks &&
             static_cast<QContextMenuEvent*>(Event)->reason() == QContextMenuEvent::Mouse;
    case QEvent::MouseMove: {
      const auto* Mouse = static_cast<QMouseEvent*>(Event);
      const QString Caption =
          Mouse->buttons() == Qt::NoButton ? captionAt(Mouse->position()) : QString();
      if (Caption.isEmpty())
        QToolTip::hideText();
      else
        QToolTip::showText(Mouse->globalPosition().toPoint() + QPoint(12, 12), Caption,
                           &FWidget.mapWidget());
      return false;
    }
    case QEvent::KeyPress:
      if (!FClicks || static_cast<QKeyEvent*>(Event)->key() != Qt::Key_Escape) return false;
      emit givenUp();
      return true;
    default:
      return QObject::eventFilter(Watched, Event);
  }
}

}  // namespace zav
