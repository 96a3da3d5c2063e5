// drag_bench.cpp - one step of a drag over a large window beside a bare copy of its picture.
//
// A step takes the old line or box off the picture, draws the new one and shows it in the window. A
// bare copy is the same picture of 15 bits a pixel drawn into a widget at once; limit: 1.5 times
// that. For comparison: the picture copied in memory, which no window shows yet. A step of panning
// is beside a repaint of the control; limit: 1.1 times.
// SPDX-License-Identifier: MIT
#include <geomap/geo_map.h>
#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_control_window.h>
#include <support/rounds.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QWidget>
#include <cstring>
#include <string>

using namespace zav;

namespace {

constexpr int Rounds = 101;
constexpr int Steps = 10;  // a round
constexpr QSize Window = {1920, 1080};

// Draws a picture and does nothing else.
class TBareWidget final : public QWidget {
 public:
  explicit TBareWidget(const TBitmap& Picture)
      : FPicture(Picture.Row(0), Picture.Width(), Picture.Height(),
                 static_cast<qsizetype>(Picture.Stride()), QImage::Format_RGB555) {
    setAttribute(Qt::WA_OpaquePaintEvent);
  }

 protected:
  void paintEvent(QPaintEvent* /*Event*/) override { QPainter(this).drawImage(0, 0, FPicture); }

 private:
  QImage FPicture;
};

}  // namespace

int main(int Argc, char** Argv) {
  const QApplication Application(Argc, Argv);
  GeoMapWidget Widget;
  Widget.resize(Window);
  Widget.show();
  TGeoMap& Map = Widget.map();
  if (!Widget.loadMap(ZAVGEO_SAMPLES "/maps/europe_conic.xml")) return 1;
  Map.SetShowGrat(TShowGrat::sgLines);
  Map.SetConfinePan(false);
  const TBitmap Picture = static_cast<TQtControlWindow&>(Map.Window()).Buffer();
  TBareWidget Bare(Picture);
  Bare.resize(Window);
  Bare.show();
  QApplication::processEvents();
  TBitmap Copy = Picture;
  const size_t Bytes = Picture.Stride() * static_cast<size_t>(Picture.Height());

  int Step = 0;
  // The mouse goes to and fro near the far corner, eight pixels a step.
  const auto Drag = [&](TShiftState Shift) {
    for (int I = 0; I < Steps; ++I) {
      const int At = ++Step % 2 == 0 ? 8 : 0;
      Map.MouseMove(Shift, 1800 + At, 1000 - At);
    }
  };
  const auto ToWindow = [&] {
    for (int I = 0; I < Steps; ++I) Bare.repaint();
  };
  const auto InMemory = [&] {
    for (int I = 0; I < Steps; ++I) std::memcpy(Copy.Row(0), Picture.Row(0), Bytes);
  };
  const auto Versus = [&](const char* Title, TMouseActMode Mode, TShiftState Held) {
    Map.SetMouseAction(Mode);
    Map.MouseDown(TMouseButton::mbLeft, ssLeft, 100, 60);
    bench::Compare(Title, Steps, Rounds,
                   {{"zavgeo", [&] { Drag(Held); }},
                    {"bare copy to a window", ToWindow, 1.5},
                    {"bare copy in memory", InMemory}});
    Map.CancelMouse();
  };
  Versus("rubber band across the window", TMouseActMode::maRubberBand, 0);
  Versus("zoom box", TMouseActMode::maZoomBox, ssLeft);
  Versus("selection", TMouseActMode::maSelectRect, ssLeft);

  for (const double Magnification : {0.5, 1.0, 2.0}) {
    Map.SetView({40, 40}, Magnification);
    Map.SetMouseAction(TMouseActMode::maNone);
    Map.SetMouseAction(TMouseActMode::maPan);
    Map.MouseMove(ssLeft, 1000, 500);
    bench::Compare("pan at " + std::to_string(Magnification).substr(0, 3), Steps, Rounds / 3,
                   {{"zavgeo", [&] { Drag(ssLeft); }}, {"repaint of the control", [&] {
                                                          for (int I = 0; I < Steps; ++I)
                                                            Map.Paint();
                                                        }}});
  }
  return 0;
}
