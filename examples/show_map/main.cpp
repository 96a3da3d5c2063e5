// A window with a map, and the position under the mouse in its status bar.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QMainWindow>
#include <QStatusBar>

#include <platform/qt/geo_map_widget.h>

int main(int argc, char** argv) {
  QApplication App(argc, argv);
  QMainWindow Window;
  auto* Map = new zav::GeoMapWidget(&Window);
  Window.setCentralWidget(Map);
  QStatusBar* Status = Window.statusBar();
  QObject::connect(Map, &zav::GeoMapWidget::errorOccurred, Status,
                   [Status](const QString& Text) { Status->showMessage(Text); });
  QObject::connect(Map, &zav::GeoMapWidget::mousePositionChanged, Status,
                   [Status](QPointF, double Latitude, double Longitude, bool Valid) {
                     Status->showMessage(
                         Valid ? QStringLiteral("%1, %2").arg(Latitude).arg(Longitude) : QString());
                   });
  Map->setShowGraticule(zav::GeoMapWidget::Graticule::Lines);
  Map->setGraticuleSpacing(10);
  Window.resize(1000, 700);
  Window.show();
  Map->loadMap(argc > 1 ? argv[1] : "europe_conic.xml");
  Map->zoomToFit();
  return QApplication::exec();
}
