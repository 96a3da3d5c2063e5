// Prints the middle of a map on A4 at 1 : 20,000,000, as a PDF with real lines and text.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QPageLayout>

#include <geomap/geo_map.h>
#include <platform/qt/qt_host.h>
#include <platform/qt/qt_printer.h>

int main(int argc, char** argv) {
  QApplication App(argc, argv);
  zav::TQtHost Host;
  zav::TGeoMap Map(nullptr, Host);  // a map needs no window
  Map.LoadCalDataFromXML(argc > 1 ? argv[1] : "europe_conic.xml", "");
  Map.SetShowGrat(zav::TShowGrat::sgLines);
  Map.SetGratLineDist(10);
  const QPageLayout Page(QPageSize(QPageSize::A4), QPageLayout::Landscape,
                         QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter);
  zav::TPdfPrinter Printer(argc > 2 ? argv[2] : "map.pdf", Page);
  Host.SetPrinter(&Printer);
  Printer.BeginDoc("A map");
  const int32_t Width = Map.MapImgWidth();
  const int32_t Height = Map.MapImgHeight();
  Map.CopyToOpenPrinter({Width / 4, Height / 4, Width * 3 / 4, Height * 3 / 4}, 20000000, 0, 0);
  Printer.EndDoc();
  return 0;
}
