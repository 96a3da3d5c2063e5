// landmark_bench.cpp - landmarks: symbols and captions beside Qt's painter, a million of them
// beside a plain vector and beside the few that are in view.
//
// Each group tells its limit; an argument (crosses, captions, models, adding) runs one. Qt draws on
// 32 bits a pixel, which it does fastest; ours on 15.
// SPDX-License-Identifier: MIT
#include <geomap/calibration/calib_file.h>
#include <geomap/geo_map.h>
#include <geomap/landmarks/symbol_drawing.h>
#include <geomap/landmarks/symbol_stamps.h>
#include <geomap/view/passes.h>
#include <platform/base/random.h>
#include <platform/qt/qt_fonts.h>
#include <platform/raster/raster_canvas.h>
#include <support/rounds.h>
#include <support/test_host.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <string>
#include <vector>

using namespace zav;

namespace {

constexpr int Rounds = 21;
constexpr TSize Window = {1920, 1080};
constexpr int32_t NumInView = 20000;
constexpr int32_t Million = 1000000;

int32_t Below(TRandom& Random, int32_t Limit) {
  return static_cast<int32_t>(Random.Next() % static_cast<uint64_t>(Limit));
}

std::vector<TPoint> PlacesInWindow(int32_t Count) {
  TRandom Random(1);
  std::vector<TPoint> Places;
  for (int32_t I = 0; I < Count; ++I) {
    Places.push_back({1 + Below(Random, Window.Width - 1), 1 + Below(Random, Window.Height - 1)});
  }
  return Places;
}

// The lines of a filled cross of size S about (X, Y): first the halo's 18.
std::vector<QLine> LinesOfCross(int X, int Y, int S) {
  std::vector<QLine> Lines;
  for (int DX = -1; DX <= 1; ++DX) {
    for (int DY = -1; DY <= 1; ++DY) {
      Lines.emplace_back(X + DX - S, Y + DY - S, X + DX + S, Y + DY + S);
      Lines.emplace_back(X + DX + S, Y + DY - S, X + DX - S, Y + DY + S);
    }
  }
  Lines.emplace_back(X - S, Y - S, X + S, Y + S);
  Lines.emplace_back(X - S, Y + S, X + S, Y - S);
  return Lines;
}

void DrawCrossesByQt(QImage& Image, const std::vector<TPoint>& Places, int S) {
  QPainter Painter(&Image);
  const QPen Halo(Qt::white);
  const QPen Cross(Qt::blue);
  for (const TPoint& P : Places) {
    const std::vector<QLine> Lines = LinesOfCross(P.X, P.Y, S);
    Painter.setPen(Halo);
    Painter.drawLines(Lines.data(), 18);
    Painter.setPen(Cross);
    Painter.drawLines(Lines.data() + 18, 2);
  }
}

void CompareCrosses() {
  const std::vector<TPoint> Places = PlacesInWindow(NumInView);
  const TSymbolProperties Cross = TLandMark().SymbolProps;
  TBitmap Picture(Window.Width, Window.Height, TPixelFormat::pf15bit);
  TRasterCanvas Canvas(Picture);
  TSymbolStamps Stamps;
  QImage Image(Window.Width, Window.Height, QImage::Format_RGB32);
  const auto Stamp = [&] {
    for (const TPoint& P : Places) Stamps.Draw(Picture, P, Cross, 1);
  };
  const auto Draw = [&] {
    for (const TPoint& P : Places) DrawLandMarkSymbolOnCanvas(Canvas, P.X, P.Y, Cross);
  };
  const auto Qts = [&] { DrawCrossesByQt(Image, Places, Cross.Size); };
  bench::Compare("a filled cross of size 7", Places.size(), Rounds,
                 {{"kept as a stamp", Stamp}, {"drawn", Draw}, {"QPainter lines", Qts, 1.0 / 15}});

  TTestHost Host;
  TGeoMap Map(nullptr, Host);
  Map.SetSize(Window.Width, Window.Height);
  Map.SetMapBitMap(TBitmap(2000, 1500, TPixelFormat::pf32bit));
  TCalibData Data;
  Data.NumCalQuads = 3;
  Data.CalQuads[1] = {0, 20, 2000, 0};
  Data.CalQuads[2] = {-15, 0, 0, 1500};
  Map.SetCalibration(Data, TCalibModel::cmEquiRect);
  Map.SetSuppressPaint(true);
  Map.SetView({0, 0}, 0.6);
  for (const TPoint& P : Places) Map.AddLandMark(-P.Y / 60.0, P.X / 60.0, 0);
  Map.SetSuppressPaint(false);
  bench::Compare(
      "a frame of 20000 crosses", 1, Rounds,
      {{"repaint", [&] { Map.Paint(); }}, {"QPainter lines of the crosses", Qts, 1.0 / 12}});
}

void CompareCaptions() {
  const std::vector<TPoint> Places = PlacesInWindow(2000);
  TBitmap Picture(Window.Width, Window.Height, TPixelFormat::pf15bit);
  TQtFontEngine Fonts;
  TRasterCanvas Canvas(Picture, &Fonts);
  TRenderScene Scene;
  Scene.Control = Window;
  TCalibData Data;
  Data.NumCalQuads = 3;
  Data.CalQuads[1] = {0, 20, 2000, 0};
  Data.CalQuads[2] = {-15, 0, 0, 1500};
  Scene.Calibration.SetData(Data, TCalibModel::cmEquiRect);
  for (size_t I = 0; I < Places.size(); ++I) {
    TLandMark LandMark;
    LandMark.Latitude = -Places[I].Y / 100.0;
    LandMark.Longitude = Places[I].X / 100.0;
    LandMark.SymbolProps.Kind = TLandMarkElement::lmUserDef;
    LandMark.Caption.Text = "Landmark " + std::to_string(I);
    Scene.LandMarks.List.Append(LandMark);
  }
  TLandMarkCache Cache;
  QImage Image(Window.Width, Window.Height, QImage::Format_RGB32);
  const auto Ours = [&] { DrawLandMarks(Scene, Cache, Canvas, Canvas, nullptr); };
  const auto Qts = [&] {
    QPainter Painter(&Image);
    QFont Font(QStringLiteral("Liberation Sans"));
    Font.setPixelSize(11);
    Painter.setFont(Font);
    for (size_t I = 0; I < Places.size(); ++I) {
      Painter.drawText(Places[I].X, Places[I].Y,
                       QString::fromStdString("Landmark " + std::to_string(I)));
    }
  };
  bench::Compare("a caption, measured and centred", Places.size(), Rounds,
                 {{"zavgeo", Ours}, {"QPainter::drawText", Qts, 1}});
}

void CompareAdding() {
  TTestHost Host;
  TGeoMap Map(nullptr, Host);
  Map.SetSuppressPaint(true);
  std::vector<TLandMark> Records;
  const TLandMark Template;
  const auto Ours = [&] {
    Map.RemoveAllLandMarks();
    for (int32_t I = 0; I < Million; ++I) Map.AddLandMark(I * 1e-5, I * 1e-4, I);
  };
  const auto Fill = [&](bool Reserve) {
    std::vector<TLandMark>().swap(Records);  // gives its memory back, as ours does
    if (Reserve) Records.reserve(Million);
    for (int32_t I = 0; I < Million; ++I) {
      TLandMark LandMark = Template;
      LandMark.Latitude = I * 1e-5;
      LandMark.Longitude = I * 1e-4;
      LandMark.Altitude = I;
      Records.push_back(LandMark);
    }
  };
  bench::Compare("adding one of a million landmarks", Million, 3,
                 {{"zavgeo", Ours}, {"vector", [&] { Fill(false); }, 3}, {"vector, reserved", [&] {
                                                                            Fill(true);
                                                                          }}});
  const auto Remove = [&](int32_t Count) {
    return [&Map, Count] {
      Map.RemoveAllLandMarks();
      for (int32_t I = 0; I < Count; ++I) Map.AddLandMark(I % 1000, I % 77, 0);
      Map.RemoveLandMark(500, 40, -1, 250);
    };
  };
  const auto Only = [&](int32_t Count) {
    return [&Map, Count] {
      Map.RemoveAllLandMarks();
      for (int32_t I = 0; I < Count; ++I) Map.AddLandMark(I % 1000, I % 77, 0);
    };
  };
  bench::Compare("filling, and removing half by radius (linear)", 1, 3,
                 {{"1000000, removed", Remove(Million)},
                  {"1000000, filled only", Only(Million)},
                  {"500000, removed", Remove(Million / 2)},
                  {"500000, filled only", Only(Million / 2)}});
}

// A map of a model, whose view holds NumInView of the landmarks.
struct TFilledMap {
  TTestHost Host;
  TGeoMap Map{nullptr, Host};
  int32_t Step = 0;

  TFilledMap(const std::string& Name, int32_t Count) {
    Map.SetSuppressPaint(true);
    Map.SetConfinePan(false);
    Map.SetSize(Window.Width, Window.Height);
    Map.LoadCalDataFromXML(ZAVGEO_SAMPLES "/maps/" + Name + ".xml", "");
    if (Map.CalibModel() == TCalibModel::cmUndefined) {
      Map.SetCalibModel(TCalibModel::cmParabolicIp);
    }
    Map.SetView({100, 100}, 2);
    TRandom Random(3);
    // Those in view are spread evenly over the list.
    const int32_t Every = Count / NumInView;
    for (int32_t I = 0; I < Count;) {
      const TPoint P = {Below(Random, Map.MapImgWidth()), Below(Random, Map.MapImgHeight())};
      const bool InView = P.X > 120 && P.X < 1030 && P.Y > 120 && P.Y < 620;
      const bool Near = P.X > 90 && P.X < 1080 && P.Y > 90 && P.Y < 660;
      if (InView != (I % Every == 0) || (Near && !InView)) continue;
      TCoords Position;
      if (!Map.Calibration().ToGeo(P.X, P.Y, Position)) continue;
      Map.AddLandMark(Position.Latit, Position.Longit, 0);
      ++I;
    }
    Map.SetSuppressPaint(false);
  }
  // Each picture shows another view, so that no view can be kept.
  void Paint() {
    ++Step;
    Map.SetTopLeft({100 + Step % 7, 100 + Step % 5});
  }
};

void CompareModels() {
  for (const char* Name : {"australia_laea", "iberia_bonne", "europe_conic", "world_miller",
                           "world_equirect", "alps_utm32n"}) {
    TFilledMap Few(Name, NumInView);
    TFilledMap Many(Name, Million);
    bench::Compare(std::string("panning a million landmarks, ") + Name, 1, Rounds,
                   {{"1000000, 20000 in view", [&] { Many.Paint(); }},
                    {"these 20000 only", [&] { Few.Paint(); }, 3}});
    Many.Map.SetRandSampleLimit(50000000);
    bench::Compare(std::string("the same, none thinned out, ") + Name, 1, Rounds,
                   {{"1000000, 20000 in view", [&] { Many.Paint(); }},
                    {"these 20000 only", [&] { Few.Paint(); }, 3}});
  }
}

}  // namespace

int main(int Argc, char** Argv) {
  const QGuiApplication Application(Argc, Argv);
  const std::string Only = Argc > 1 ? Argv[1] : "";
  if (Only.empty() || Only == "crosses") CompareCrosses();
  if (Only.empty() || Only == "captions") CompareCaptions();
  if (Only.empty() || Only == "models") CompareModels();
  if (Only.empty() || Only == "adding") CompareAdding();
  return 0;
}
