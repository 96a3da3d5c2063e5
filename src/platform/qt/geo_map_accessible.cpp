// geo_map_accessible.cpp - see geo_map_accessible.h.
// SPDX-License-Identifier: MIT
#include <platform/qt/geo_map_accessible.h>

#include <algorithm>
#include <exception>
#include <utility>

#include <QLocale>
#include <QPointer>

#include <geobasics/position_text.h>
#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_convert.h>

namespace zav {

namespace {

constexpr int32_t MostLookedAt = 100000;  // landmarks, of those that may be seen
constexpr int SmallestRect = 8;
const QString SpeakerName = QStringLiteral("zavgeo-map-speaker");

// Empty for what is not on the globe.
QString TextOf(const TCoords& Position) try {
  return ToQString(PositionToText({Position.Latit, Position.Longit}, TNotation::ntDegrees, 5));
} catch (const std::exception&) {
  return {};
}

// Knows what was told last.
class MapSpeaker final : public QObject {
  Q_OBJECT

 public:
  explicit MapSpeaker(GeoMapWidget& Widget) : QObject(&Widget), FWidget(Widget) {
    setObjectName(SpeakerName);
    connect(&Widget, &GeoMapWidget::mousePositionChanged, this,
            [this](QPointF, double Lat, double Long, bool Valid) {
              FText = Valid ? TextOf({Lat, Long}) : QString();
              QAccessibleValueChangeEvent Event(&FWidget, FText);
              QAccessible::updateAccessibility(&Event);
            });
    connect(&Widget, &GeoMapWidget::viewChanged, this,
            [this] { tell(QAccessible::DescriptionChanged); });
    connect(&Widget, &GeoMapWidget::calibrationChanged, this, [this] { tellAll(); });
    connect(&Widget, &GeoMapWidget::mapChanged, this, [this] { tellAll(); });
  }

  const QString& text() const { return FText; }

 private:
  void tell(QAccessible::Event Kind) {
    QAccessibleEvent Event(&FWidget, Kind);
    QAccessible::updateAccessibility(&Event);
  }
  void tellAll() {
    tell(QAccessible::NameChanged);
    tell(QAccessible::DescriptionChanged);
  }

  GeoMapWidget& FWidget;
  QString FText;
};

// A landmark. It may be removed, or the map, while a reader holds this.
class LandmarkAccessible final : public QAccessibleInterface {
 public:
  LandmarkAccessible(GeoMapWidget* Widget, int32_t Number) : FWidget(Widget), FNumber(Number) {}

  int32_t number() const { return FNumber; }
  bool isValid() const override {
    return FWidget != nullptr && FNumber <= FWidget->map().NumLandMarks();
  }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override {
    return FWidget == nullptr ? nullptr : QAccessible::queryAccessibleInterface(FWidget);
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  void setText(QAccessible::Text, const QString&) override {}
  QAccessible::Role role() const override { return QAccessible::Graphic; }
  QRect rect() const override {
    auto* Map = static_cast<GeoMapAccessible*>(parent());
    return Map == nullptr || !isValid() ? QRect() : Map->landmarkRect(FNumber);
  }
  QAccessible::State state() const override {
    QAccessible::State State;
    State.readOnly = true;
    State.invalid = !isValid();
    State.offscreen = rect().isEmpty();
    return State;
  }
  QString text(QAccessible::Text Kind) const override {
    if (!isValid()) return {};
    const TLandMark& Landmark = FWidget->map().LandMarks()[FNumber];
    if (Kind == QAccessible::Description) return TextOf({Landmark.Latitude, Landmark.Longitude});
    if (Kind != QAccessible::Name) return {};
    for (const std::string_view Text : {Landmark.Caption.Text.View(), Landmark.Identifier.View()})
      if (!Text.empty()) return ToQString(Text);
    return GeoMapWidget::tr("Landmark %1").arg(FNumber);
  }

 private:
  QPointer<GeoMapWidget> FWidget;
  int32_t FNumber;
};

QAccessibleInterface* MakeInterface(const QString& /*ClassName*/, QObject* Object) {
  auto* Widget = qobject_cast<GeoMapWidget*>(Object);
  return Widget == nullptr ? nullptr : new GeoMapAccessible(Widget);
}

}  // namespace

void FollowForAccessibility(GeoMapWidget& Widget) {
  static const bool Installed = [] {
    QAccessible::installFactory(MakeInterface);
    return true;
  }();
  static_cast<void>(Installed);
  new MapSpeaker(Widget);
}

GeoMapAccessible::GeoMapAccessible(GeoMapWidget* Widget)
    : QAccessibleWidget(Widget, QAccessible::Canvas) {}

GeoMapAccessible::~GeoMapAccessible() {
  for (const auto& [Number, Id] : FChildren) QAccessible::deleteAccessibleInterface(Id);
}

// Nullptr while the widget is being destroyed, too.
GeoMapWidget* GeoMapAccessible::mapWidget() const { return qobject_cast<GeoMapWidget*>(object()); }

// --- texts

QString GeoMapAccessible::text(QAccessible::Text Kind) const {
  const GeoMapWidget* Map = mapWidget();
  if (Map == nullptr) return QAccessibleWidget::text(Kind);
  switch (Kind) {
    case QAccessible::Name:
      if (!Map->accessibleName().isEmpty()) return Map->accessibleName();
      return Map->caption().isEmpty() ? GeoMapWidget::tr("Map") : Map->caption();
    case QAccessible::Description:
      return Map->accessibleDescription().isEmpty() ? description() : Map->accessibleDescription();
    case QAccessible::Value: {
      const auto* Speaker = Map->findChild<QObject*>(SpeakerName, Qt::FindDirectChildrenOnly);
      return Speaker == nullptr ? QString() : static_cast<const MapSpeaker*>(Speaker)->text();
    }
    default:
      return QAccessibleWidget::text(Kind);
  }
}

// "Alps, 50 %, middle at 46.5 N 8.25 E".
QString GeoMapAccessible::description() const {
  const GeoMapWidget& Map = *mapWidget();
  if (Map.imageFile().isEmpty() && Map.map().MapImgWidth() == 0)
    return GeoMapWidget::tr("No map is open");
  const TViewState& View = Map.map().View();
  QString Text = GeoMapWidget::tr("%1 %").arg(QLocale().toString(View.Magnification * 100, 'f', 0));
  if (!Map.caption().isEmpty()) Text = Map.caption() + QStringLiteral(", ") + Text;
  TCoords Middle;
  const double X = View.TopLeft.X + Map.width() / 2 / View.Magnification;
  const double Y = View.TopLeft.Y + Map.height() / 2 / View.Magnification;
  if (!Map.map().Calibration().ToGeo(X, Y, Middle)) return Text;
  return GeoMapWidget::tr("%1, middle at %2").arg(Text, TextOf(Middle));
}

// --- landmarks

QRect GeoMapAccessible::landmarkRect(int32_t Number) const {
  const GeoMapWidget* Widget = mapWidget();
  if (Widget == nullptr) return {};
  const TGeoMap& Map = Widget->map();
  if (Number < 1 || Number > Map.NumLandMarks()) return {};
  const TLandMark& Landmark = Map.LandMarks()[Number];
  double X = 0;
  double Y = 0;
  if (!Map.GetClassVisibility(Landmark.ClassFlag) ||
      !Map.Calibration().ToPixel(Landmark.Latitude, Landmark.Longitude, X, Y))
    return {};
  const TViewState& View = Map.View();
  const QPointF At((X - View.TopLeft.X) * View.Magnification,
                   (Y - View.TopLeft.Y) * View.Magnification);
  if (!QRectF(Widget->rect()).contains(At)) return {};
  const int Half = std::clamp(Landmark.SymbolProps.Size, SmallestRect, 100);
  const QPoint Middle = At.toPoint();
  const QRect Square(Middle.x() - Half, Middle.y() - Half, 2 * Half + 1, 2 * Half + 1);
  const QRect Seen = Square & Widget->rect();
  return {Widget->mapToGlobal(Seen.topLeft()), Seen.size()};
}

const std::vector<int32_t>& GeoMapAccessible::seen() const {
  const GeoMapWidget* Widget = mapWidget();
  if (Widget == nullptr) {
    FSeen.clear();
    FSeenKnown = false;
    return FSeen;
  }
  const TGeoMap& Map = Widget->map();
  TClassVisibility Classes;
  for (size_t i = 0; i < Classes.size(); ++i)
    Classes[i] = Map.GetClassVisibility(static_cast<uint8_t>(i));
  // Copies of a list share it, so that comparing with it costs nothing while nothing has changed.
  if (FSeenKnown && FSeenView == Map.View() && FSeenSize == Widget->size() &&
      FSeenClasses == Classes && FSeenList == Map.LandMarks())
    return FSeen;
  FSeen.clear();
  FSeenView = Map.View();
  FSeenSize = Widget->size();
  FSeenClasses = Classes;
  FSeenList = Map.LandMarks();
  FSeenKnown = true;
  const int32_t Last = std::min(Map.NumLandMarks(), MostLookedAt);
  for (int32_t Number = 1; Number <= Last && FSeen.size() < MostLandmarks; ++Number)
    if (!landmarkRect(Number).isEmpty()) FSeen.push_back(Number);
  return FSeen;
}

int GeoMapAccessible::childCount() const {
  return QAccessibleWidget::childCount() + static_cast<int>(seen().size());
}

QAccessibleInterface* GeoMapAccessible::child(int Index) const {
  const int Widgets = QAccessibleWidget::childCount();
  if (Index < Widgets) return QAccessibleWidget::child(Index);
  const std::vector<int32_t>& Seen = seen();
  const auto Place = static_cast<size_t>(Index - Widgets);
  if (Place >= Seen.size()) return nullptr;
  const int32_t Number = Seen[Place];
  const auto Found = FChildren.find(Number);
  if (Found != FChildren.end()) return QAccessible::accessibleInterface(Found->second);
  auto* New = new LandmarkAccessible(mapWidget(), Number);
  FChildren[Number] = QAccessible::registerAccessibleInterface(New);
  return New;
}

QAccessibleInterface* GeoMapAccessible::childAt(int X, int Y) const {
  const int Widgets = QAccessibleWidget::childCount();
  // The last one is drawn above the others.
  for (int Index = childCount() - 1; Index >= Widgets; --Index) {
    QAccessibleInterface* Landmark = child(Index);
    if (Landmark != nullptr && Landmark->rect().contains(X, Y)) return Landmark;
  }
  return QAccessibleWidget::childAt(X, Y);
}

int GeoMapAccessible::indexOfChild(const QAccessibleInterface* Child) const {
  const auto* Landmark = dynamic_cast<const LandmarkAccessible*>(Child);
  if (Landmark == nullptr) return QAccessibleWidget::indexOfChild(Child);
  const std::vector<int32_t>& Seen = seen();
  const auto Found = std::find(Seen.begin(), Seen.end(), Landmark->number());
  if (Found == Seen.end()) return -1;
  return QAccessibleWidget::childCount() + static_cast<int>(Found - Seen.begin());
}

}  // namespace zav

#include "geo_map_accessible.moc"
