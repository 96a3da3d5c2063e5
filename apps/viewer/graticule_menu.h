// graticule_menu.h - the menu of what is drawn over the map: graticule, grid, points, spacing,
// colours.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_GRATICULE_MENU_H
#define ZAV_APPS_VIEWER_GRATICULE_MENU_H

#include <QMenu>

#include <platform/qt/geo_map_widget.h>

class QAction;
class QActionGroup;
class QSettings;

namespace zav {

class GraticuleMenu final : public QMenu {
  Q_OBJECT

 public:
  using Kind = GeoMapWidget::Graticule;

  // The widget must outlive the menu.
  explicit GraticuleMenu(GeoMapWidget& Widget, QWidget* Parent = nullptr);

  void setKind(Kind Shown);
  // To be called when another map is shown, and when the view has changed: the automatic spacing
  // follows the magnification.
  void updateForMap();
  void updateForView();

  void load(const QSettings& Settings);
  void save(QSettings& Settings) const;

 private:
  void addKinds();
  void addSpacings();
  void addGridSpacings();
  void addColors();
  void addColor(const QString& Name, QColor (GeoMapWidget::*Get)() const,
                void (GeoMapWidget::*Set)(const QColor&));
  void setSpacing(double Degrees);
  void setGridSpacing(int Metres);
  void askSpacing();
  void askGridSpacing();

  GeoMapWidget& FWidget;
  QActionGroup* FKinds;
  QActionGroup* FSpacings;
  QActionGroup* FGridSpacings;
  double FSpacing = 0;  // degrees, 0 = automatic
};

}  // namespace zav

#endif
