// paint_bench.cpp - a full repaint of a large map beside Qt's painter.
//
// Ours is everything: image, graticule, frame, and the copy to the window's buffer. Qt's is the
// bare stretch of the same view from 32 bits a pixel into a picture of 15. Limits: 2.5 times
// smooth, 1.5 times plain, 1 time where the scaled map is kept.
// SPDX-License-Identifier: MIT
#include <geomap/geo_map.h>
#include <support/rounds.h>
#include <support/test_host.h>

#include <QImage>
#include <QPainter>
#include <charconv>
#include <fstream>
#include <string>

using namespace zav;

namespace {

constexpr int Rounds = 61;
constexpr TSize Window = {1920, 1080};

// The columns lat, long, pixel_x, pixel_y behind a header line.
TCalibData PointsOf(const std::string& Path) {
  std::ifstream File(Path);
  std::string Line;
  std::getline(File, Line);
  TCalibData Data;
  while (std::getline(File, Line)) {
    TCalQuad& Quad = Data.CalQuads.at(static_cast<size_t>(Data.NumCalQuads++));
    const char* At = Line.data();
    const char* End = At + Line.size();
    At = std::from_chars(At, End, Quad.Latitude).ptr + 1;
    At = std::from_chars(At, End, Quad.Longitude).ptr + 1;
    At = std::from_chars(At, End, Quad.MapX).ptr + 1;
    std::from_chars(At, End, Quad.MapY);
  }
  return Data;
}

QImage Wrapped(const TBitmap& Bitmap) {
  return {Bitmap.Row(0), Bitmap.Width(), Bitmap.Height(), static_cast<qsizetype>(Bitmap.Stride()),
          QImage::Format_RGB32};
}

void DrawByQt(const QImage& From, QImage& To, const TViewState& View, bool Smooth) {
  QPainter Painter(&To);
  Painter.setRenderHint(QPainter::SmoothPixmapTransform, Smooth);
  const QRectF Source(View.TopLeft.X, View.TopLeft.Y, To.width() / View.Magnification,
                      To.height() / View.Magnification);
  Painter.drawImage(QRectF(0, 0, To.width(), To.height()), From, Source);
}

}  // namespace

int main() {
  TTestHost Host;
  TGeoMap Map(nullptr, Host);
  Map.SetSize(Window.Width, Window.Height);
  Map.SetMapImgName(ZAVGEO_SAMPLES "/maps/europe_conic.jpg");
  Map.SetCalibration(PointsOf(ZAVGEO_SAMPLES "/maps/europe_conic.points.csv"),
                     TCalibModel::cmConicConformal);
  const QImage Image = Wrapped(Map.MapBitmap());
  QImage Buffer(Window.Width, Window.Height, QImage::Format_RGB555);

  // Mode: smooth, plain, or smooth with the scaled map kept.
  const auto Versus = [&](double Magnification, bool Smooth, bool Cached) {
    Map.SetSuppressPaint(true);
    Map.SetView({40, 120}, Magnification);
    if (Magnification < 0.6) Map.SetTopLeft({0, 0});
    Map.SetAntiAlias(Smooth);
    Map.SetCacheMagLimit(Cached ? MaxCacheMagLimit : 0);
    Map.SetShowGrat(TShowGrat::sgLines);
    Map.SetSuppressPaint(false);
    std::string Title = "repaint at " + std::to_string(Magnification).substr(0, 3);
    Title += Cached ? ", scaled map kept" : Smooth ? ", smooth" : ", plain";
    const double AtMost = Cached ? 1.0 : Smooth ? 2.5 : 1.5;
    const TViewState View = Map.View();
    const auto Ours = [&] { Map.Paint(); };
    const auto Qts = [&] { DrawByQt(Image, Buffer, View, Smooth); };
    bench::Compare(Title, 1, Rounds, {{"zavgeo", Ours}, {"bare QPainter stretch", Qts, AtMost}});
  };
  for (const double Magnification : {0.5, 0.6, 1.0, 1.7, 2.0}) {
    Versus(Magnification, true, false);
    Versus(Magnification, false, false);
  }
  // Last: a cache that is there is used.
  Versus(0.5, true, true);
  Versus(0.6, true, true);
  return 0;
}
