// graticule_menu.cpp - the menu of what is drawn over the map.
// SPDX-License-Identifier: MIT
#include "graticule_menu.h"

#include <utility>

#include <QAction>
#include <QActionGroup>
#include <QColorDialog>
#include <QInputDialog>
#include <QLocale>
#include <QPixmap>
#include <QSettings>

#include "sharp_pixmap.h"
#include "view_layout.h"

namespace zav {

namespace {

constexpr double CustomSpacing = -1;

using Kind = GraticuleMenu::Kind;

bool IsUtmKind(Kind Shown) { return Shown == Kind::UtmGrid || Shown == Kind::PointsAndUtmGrid; }

// "20'", "1 degree" and so on; spacings are whole seconds at least.
QString SpacingText(double Degrees) {
  if (Degrees <= 0) return GraticuleMenu::tr("&Automatic");
  const QLocale Locale;
  if (Degrees < 1.0 / 60 - 1e-9) return Locale.toString(Degrees * 3600, 'g', 6) + QLatin1Char('"');
  if (Degrees < 1 - 1e-9) return Locale.toString(Degrees * 60, 'g', 6) + QLatin1Char('\'');
  return Locale.toString(Degrees, 'g', 6) + QChar(0x00b0);
}

QString GridSpacingText(int Metres) {
  if (Metres <= 0) return GraticuleMenu::tr("&Automatic");
  if (Metres % 1000 == 0) return GraticuleMenu::tr("%1 km").arg(QLocale().toString(Metres / 1000));
  return GraticuleMenu::tr("%1 m").arg(QLocale().toString(Metres));
}

// Checks the action whose data is Value, else the last one, "custom".
void CheckByData(const QActionGroup& Group, double Value) {
  for (QAction* Action : Group.actions())
    if (Action->data().toDouble() == Value) return Action->setChecked(true);
  Group.actions().constLast()->setChecked(true);
}

QAction* AddChoice(QMenu& Menu, QActionGroup& Group, const QString& Text, const QVariant& Data) {
  QAction* Action = Menu.addAction(Text);
  Action->setCheckable(true);
  Action->setData(Data);
  Group.addAction(Action);
  return Action;
}

QIcon SwatchIcon(const QColor& Color) {
  QPixmap Swatch = SharpPixmap({16, 16});
  Swatch.fill(Color);
  return {Swatch};
}

}  // namespace

GraticuleMenu::GraticuleMenu(GeoMapWidget& Widget, QWidget* Parent)
    : QMenu(tr("&Graticule"), Parent),
      FWidget(Widget),
      FKinds(new QActionGroup(this)),
      FSpacings(new QActionGroup(this)),
      FGridSpacings(new QActionGroup(this)) {
  addKinds();
  addSeparator();
  addSpacings();
  addGridSpacings();
  addSeparator();
  addColors();
  setKind(FWidget.showGraticule());
  updateForMap();
}

void GraticuleMenu::addKinds() {
  for (const auto& [Shown, Text] :
       {std::pair{Kind::NoGraticule, tr("&None")},
        std::pair{Kind::Points, tr("Calibration &Points")}, std::pair{Kind::Lines, tr("&Lines")},
        std::pair{Kind::PointsAndLines, tr("Points &and Lines")},
        std::pair{Kind::UtmGrid, tr("&UTM Grid")},
        std::pair{Kind::PointsAndUtmGrid, tr("Points and UTM &Grid")}}) {
    const int Number = static_cast<int>(Shown);
    AddChoice(*this, *FKinds, Text, Number)
        ->setShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_0 + Number)));
  }
  connect(FKinds, &QActionGroup::triggered, this,
          [this](QAction* Action) { setKind(static_cast<Kind>(Action->data().toInt())); });
}

void GraticuleMenu::setKind(Kind Shown) {
  CheckByData(*FKinds, static_cast<int>(Shown));
  FWidget.setShowGraticule(Shown);
}

void GraticuleMenu::addSpacings() {
  QMenu* Menu = addMenu(tr("&Spacing of the Graticule"));
  for (const double Degrees :
       {0.0, 1.0 / 60, 5.0 / 60, 10.0 / 60, 0.25, 0.5, 1.0, 2.0, 5.0, 10.0, 15.0, 30.0})
    AddChoice(*Menu, *FSpacings, SpacingText(Degrees), Degrees);
  AddChoice(*Menu, *FSpacings, tr("&Other..."), CustomSpacing);
  connect(FSpacings, &QActionGroup::triggered, this, [this](QAction* Action) {
    const double Degrees = Action->data().toDouble();
    Degrees == CustomSpacing ? askSpacing() : setSpacing(Degrees);
  });
  setSpacing(0);
}

void GraticuleMenu::setSpacing(double Degrees) {
  FSpacing = Degrees;
  CheckByData(*FSpacings, Degrees);
  QAction* Other = FSpacings->actions().constLast();
  Other->setText(Other->isChecked() ? tr("&Other (%1)...").arg(SpacingText(Degrees))
                                    : tr("&Other..."));
  if (Degrees > 0)
    FWidget.setGraticuleSpacing(Degrees);
  else
    updateForView();
}

void GraticuleMenu::askSpacing() {
  bool Ok = false;
  const double Old = FSpacing > 0 ? FSpacing : FWidget.graticuleSpacing();
  const double Degrees = QInputDialog::getDouble(parentWidget(), tr("Spacing of the Graticule"),
                                                 tr("Degrees:"), Old, 1.0 / 3600, 60, 6, &Ok);
  setSpacing(Ok ? Degrees : FSpacing);
}

void GraticuleMenu::addGridSpacings() {
  QMenu* Menu = addMenu(tr("Spacing of the UTM G&rid"));
  for (const int Metres : {0, 100, 1000, 5000, 10000, 50000, 100000})
    AddChoice(*Menu, *FGridSpacings, GridSpacingText(Metres), Metres);
  AddChoice(*Menu, *FGridSpacings, tr("&Other..."), CustomSpacing);
  connect(FGridSpacings, &QActionGroup::triggered, this, [this](QAction* Action) {
    const int Metres = Action->data().toInt();
    Metres < 0 ? askGridSpacing() : setGridSpacing(Metres);
  });
  setGridSpacing(FWidget.utmGridSpacing());
}

void GraticuleMenu::setGridSpacing(int Metres) {
  FWidget.setUtmGridSpacing(Metres);
  CheckByData(*FGridSpacings, Metres);
  QAction* Other = FGridSpacings->actions().constLast();
  Other->setText(Other->isChecked() ? tr("&Other (%1)...").arg(GridSpacingText(Metres))
                                    : tr("&Other..."));
}

void GraticuleMenu::askGridSpacing() {
  bool Ok = false;
  const int Metres =
      QInputDialog::getInt(parentWidget(), tr("Spacing of the UTM Grid"), tr("Metres:"),
                           std::max(1, FWidget.utmGridSpacing()), 1, 10000000, 1, &Ok);
  setGridSpacing(Ok ? Metres : FWidget.utmGridSpacing());
}

void GraticuleMenu::addColors() {
  addColor(tr("&Color of the Lines..."), &GeoMapWidget::graticuleColor,
           &GeoMapWidget::setGraticuleColor);
  addColor(tr("Color of the P&oints..."), &GeoMapWidget::calibrationPointColor,
           &GeoMapWidget::setCalibrationPointColor);
  addColor(tr("Color of the &Background..."), &GeoMapWidget::backgroundColor,
           &GeoMapWidget::setBackgroundColor);
}

void GraticuleMenu::addColor(const QString& Name, QColor (GeoMapWidget::*Get)() const,
                             void (GeoMapWidget::*Set)(const QColor&)) {
  QAction* Action = addAction(Name);
  const auto ShowColor = [this, Action, Get] { Action->setIcon(SwatchIcon((FWidget.*Get)())); };
  connect(this, &QMenu::aboutToShow, Action, ShowColor);
  connect(Action, &QAction::triggered, this, [this, Get, Set] {
    const QColor Color = QColorDialog::getColor((FWidget.*Get)(), parentWidget());
    if (Color.isValid()) (FWidget.*Set)(Color);
  });
}

void GraticuleMenu::updateForMap() {
  const bool IsUtm = FWidget.calibrationModel() == GeoMapWidget::CalibrationModel::Utm;
  for (QAction* Action : FKinds->actions())
    if (IsUtmKind(static_cast<Kind>(Action->data().toInt()))) Action->setEnabled(IsUtm);
  updateForView();
}

void GraticuleMenu::updateForView() {
  if (FSpacing > 0) return;
  const double Spacing =
      GraticuleSpacing(FWidget.map().CalibData().Resolution, FWidget.magnification());
  if (Spacing != FWidget.graticuleSpacing()) FWidget.setGraticuleSpacing(Spacing);
}

void GraticuleMenu::load(const QSettings& Settings) {
  const auto Color = [&Settings](const char* Key, const QColor& Default) {
    const auto Value = Settings.value(Key).value<QColor>();
    return Value.isValid() ? Value : Default;
  };
  FWidget.setGraticuleColor(Color("graticule/lineColor", FWidget.graticuleColor()));
  FWidget.setCalibrationPointColor(Color("graticule/pointColor", FWidget.calibrationPointColor()));
  FWidget.setBackgroundColor(Color("graticule/backgroundColor", FWidget.backgroundColor()));
  setSpacing(qBound(0.0, Settings.value("graticule/spacing", 0.0).toDouble(), 60.0));
  setGridSpacing(qBound(0, Settings.value("graticule/gridSpacing", 0).toInt(), 10000000));
  setKind(static_cast<Kind>(qBound(0, Settings.value("graticule/kind", 0).toInt(), 5)));
}

void GraticuleMenu::save(QSettings& Settings) const {
  Settings.setValue("graticule/lineColor", FWidget.graticuleColor());
  Settings.setValue("graticule/pointColor", FWidget.calibrationPointColor());
  Settings.setValue("graticule/backgroundColor", FWidget.backgroundColor());
  Settings.setValue("graticule/spacing", FSpacing);
  Settings.setValue("graticule/gridSpacing", FWidget.utmGridSpacing());
  Settings.setValue("graticule/kind", static_cast<int>(FWidget.showGraticule()));
}

}  // namespace zav
