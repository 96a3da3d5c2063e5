// Landmarks on a map: a click asks for a name and adds one, if the program allows it.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QInputDialog>

#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_convert.h>

int main(int argc, char** argv) {
  QApplication App(argc, argv);
  zav::GeoMapWidget Widget;
  Widget.resize(1000, 700);
  Widget.loadMap(argc > 1 ? argv[1] : "europe_conic.xml");
  Widget.zoomToFit();
  zav::TGeoMap& Map = Widget.map();

  // How new landmarks look.
  zav::TLandMark Look;
  Look.SymbolProps.Kind = zav::TLandMarkElement::lmCircle;
  Look.SymbolProps.FGColor = zav::clRed;
  Look.Caption.Size = 10;
  Map.SetLandMarkDefault(Look);
  Map.AddLandMark(48.2085, 16.3731, 171, "Vienna", 10, zav::clBlack);

  // The program has a say: nothing south of 40 degrees.
  Map.OnLandMarkAction = [](zav::TGeoMap*, bool& Allowed, zav::TLandMarkAction Action,
                            const zav::TLandMark& LandMark) {
    if (Action == zav::TLandMarkAction::lmaAdd) Allowed = LandMark.Latitude >= 40;
  };
  QObject::connect(&Widget, &zav::GeoMapWidget::clicked, &Widget, [&](QPoint At) {
    const zav::TPoint Pixel = Map.ControlToMapImage({At.x(), At.y()});
    zav::TCoords Position;
    if (!Map.Calibration().ToGeo(Pixel.X, Pixel.Y, Position)) return;
    const QString Name = QInputDialog::getText(&Widget, "Landmark", "Name:");
    if (Name.isEmpty()) return;
    Map.AddLandMark(Position.Latit, Position.Longit, 0, zav::FromQString(Name), 10, zav::clBlack);
  });
  Widget.show();
  return QApplication::exec();
}
