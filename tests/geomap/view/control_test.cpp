// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "map_support.h"

namespace zav {
namespace {

TEST(GeoMap, StateAfterConstruction) {
  TTestHost Host;
  TGeoMap Map(nullptr, Host);
  EXPECT_EQ(Map.Width(), 500);
  EXPECT_EQ(Map.Height(), 400);
  EXPECT_EQ(Map.View(), (TViewState{{0, 0}, 1.0}));
  EXPECT_TRUE(Map.ConfinePanToMapImage());
  EXPECT_TRUE(Map.AntiAlias());
  EXPECT_TRUE(Map.GetAllowPan());
  EXPECT_FALSE(Map.SuppressPaint());
  EXPECT_EQ(Map.CacheMagLimit(), 0.6666666666666666);
  EXPECT_EQ(Map.GratLineDist(), 0);
  EXPECT_EQ(Map.UTMGridDist(), 0);
  EXPECT_EQ(Map.ShowGraticule(), TShowGrat::sgNone);
  EXPECT_EQ(Map.EmptyMsg(), "GeoMap: empty");
  EXPECT_EQ(Map.CalibModel(), TCalibModel::cmUndefined);
  EXPECT_EQ(Map.GetUTMZone(), -1);
  EXPECT_EQ(Map.MapImgFile(), "");
  EXPECT_EQ(Map.MapImgWidth(), 0);
  const TMapLook& Look = Map.Look();
  const TColor Colors[] = {Look.ColorGraticule,   Look.ColorCalibPoints, Look.ColorBackGnd,
                           Look.ColorFrame,       Look.ColorFrameDark,   Look.ColorFrameShadow,
                           Look.ColorFrameLight,  Map.MouseTraceColor(), Map.HighLightFGColor(),
                           Map.HighLightBGColor()};
  const TColor Expected[] = {0xFF0000, 0x0000FF, 0xC0C0C0, 0x000000, 0x000000,
                             0x808080, 0xFFFFFF, 0xFFFFFF, 0xFF0000, 0x00FFFF};
  for (size_t I = 0; I < std::size(Colors); ++I) EXPECT_EQ(Colors[I], Expected[I]) << I;
  EXPECT_EQ(static_cast<int>(Map.FrameStyle()), 1);
  EXPECT_TRUE(Map.MouseTraceInvert());
  EXPECT_FALSE(Map.HighLightTransparent());
  EXPECT_EQ(Map.HighLightLandMark(), 0);
  EXPECT_EQ(Map.LMRandomDisplayThreshold(), 20000);
  EXPECT_TRUE(Map.GetClassVisibility(0) && Map.GetClassVisibility(255));
  const TLandMark& LM = Map.LandMarkDefault();
  EXPECT_EQ(LM.SymbolProps,
            (TSymbolProperties{TLandMarkElement::lmCross, 7, 0xFF0000, 0xFFFFFF, false, 0, 10}));
  EXPECT_EQ(LM.Caption,
            (TLMTextProperties{"", 8, "MS Sans Serif", 0, 0x000000, 0xFFFFFF, true, 0, 8, 0,
                               THorizontalAlignment::haCenter, TVerticalAlignment::vaTop}));
  // One view in the history; the message is on the window.
  EXPECT_EQ(Map.GetZoomStackEntry(0), (TgmZoomStackEntry{0, 0, 1.0}));
  EXPECT_EQ(Map.GetZoomStackEntry(-1), TgmZoomStackEntry{});
  EXPECT_EQ(Map.InternalMapImg().PixelFormat(), TPixelFormat::pf15bit);
  EXPECT_EQ(TTestHost::WindowOf(Map).Shows.size(), 1U);
  EXPECT_EQ(TTestHost::WindowOf(Map).Buffer().Pixel(12, 12), 0U);
}

// What each operation paints: the first time, and when it is called again with the same value.
TEST(GeoMap, ConsequenceOfEverySetter) {
  using M = TGeoMap;
  struct TRow {
    const char* Name;
    int First, Again;
    std::function<void(M&)> Call;
  };
  const TRow Rows[] = {
      {"SetAntiAlias", 1, 1, [](M& m) { m.SetAntiAlias(false); }},
      {"SetColorBakGnd", 1, 1, [](M& m) { m.SetColorBakGnd(clRed); }},
      {"SetColorGratLine", 1, 1, [](M& m) { m.SetColorGratLine(clRed); }},
      {"SetColorGratPoints", 1, 1, [](M& m) { m.SetColorGratPoints(clRed); }},
      {"SetColorFrame", 1, 1, [](M& m) { m.SetColorFrame(clRed); }},
      {"SetEmptyMsg", 1, 1, [](M& m) { m.SetEmptyMsg("nothing"); }},
      {"SetFrameStyle", 1, 0, [](M& m) { m.SetFrameStyle(TFrameStyle::fsEtched); }},
      {"SetShowGrat", 1, 0, [](M& m) { m.SetShowGrat(TShowGrat::sgLines); }},
      {"SetGratLineDist", 1, 1, [](M& m) { m.SetGratLineDist(5); }},
      {"SetGratInMapZone", 1, 0, [](M& m) { m.SetGratInMapZone(true); }},
      {"SetUTMGridDist", 1, 1, [](M& m) { m.SetUTMGridDist(1000); }},
      {"SetConfinePan", 0, 0, [](M& m) { m.SetConfinePan(true); }},
      {"SetCacheMagLimit at 1", 0, 0, [](M& m) { m.SetCacheMagLimit(0.5); }},
      {"SetCacheMagLimit at 0.6", 2, 2,
       [](M& m) {
         m.SetMagnification(0.6);
         m.SetCacheMagLimit(0.1);
       }},
      {"SetMagnification", 1, 1, [](M& m) { m.SetMagnification(1.5); }},
      {"SetTopLeft", 1, 1,
       [](M& m) {
         m.SetTopLeft({7, 7});
       }},
      {"SetView", 1, 1,
       [](M& m) {
         m.SetView({3, 4}, 0.7);
       }},
      {"BringMapPixelToCenter", 1, 1,
       [](M& m) {
         m.BringMapPixelToCenter({9, 9});
       }},
      {"BringLocationToCenter", 1, 1, [](M& m) { m.BringLocationToCenter(50, 10); }},
      {"PanMapToFillWindow", 0, 0, [](M& m) { m.PanMapToFillWindow(); }},
      {"ZoomFitPage", 1, 1, [](M& m) { m.ZoomFitPage(); }},
      {"ResizeMap", 1, 1, [](M& m) { m.ResizeMap(1.5); }},
      {"ZoomStateOnStack", 0, 0, [](M& m) { m.ZoomStateOnStack(); }},
      {"ClearZoomHistory", 0, 0, [](M& m) { m.ClearZoomHistory(); }},
      {"ZoomHistory", 1, 1, [](M& m) { m.ZoomHistory(0); }},
      {"ZoomHistory of an empty place", 0, 0, [](M& m) { m.ZoomHistory(-9); }},
      {"SetAllowPan", 0, 0, [](M& m) { m.SetAllowPan(false); }},
      {"SetMouseAction", 0, 0, [](M& m) { m.SetMouseAction(TMouseActMode::maZoomBox); }},
      {"SetMouseTraceColor", 0, 0, [](M& m) { m.SetMouseTraceColor(clRed); }},
      {"ClearMouseTrace", 1, 1, [](M& m) { m.ClearMouseTrace(); }},
      {"SetClassVisibility", 1, 1, [](M& m) { m.SetClassVisibility(9, false); }},
      {"SetRandSampleLimit 1000", 0, 0, [](M& m) { m.SetRandSampleLimit(1000); }},
      {"SetRandSampleLimit 1001", 1, 0, [](M& m) { m.SetRandSampleLimit(1001); }},
      {"SetHighLM", 0, 0, [](M& m) { m.SetHighLM(1); }},
      {"SetHighLightProperties", 1, 1, [](M& m) { m.SetHighLightProperties(1, 2, true); }},
      {"SetLandMarkDefault", 0, 0, [](M& m) { m.SetLandMarkDefault({}); }},
      {"SetMapCaption", 0, 0, [](M& m) { m.SetMapCaption("c"); }},
      {"SetUTMZone", 0, 0, [](M& m) { m.SetUTMZone(33); }},
      {"SetUTMHemisphere", 0, 0, [](M& m) { m.SetUTMHemisphere(THemisphere::hemiSouth); }},
      {"SetCalibModel", 1, 1, [](M& m) { m.SetCalibModel(TCalibModel::cmBiquadraticPn); }},
      {"SetCalibration", 1, 1, [](M& m) { m.SetCalibration({}, TCalibModel::cmUTM); }},
      {"SetCalibData", 1, 1, [](M& m) { m.SetCalibData({}); }},
      {"AddCalibPoint", 1, 1, [](M& m) { m.AddCalibPoint(1, 2, 3, 4); }},
      {"RemoveCalibPoint", 1, 1, [](M& m) { m.RemoveCalibPoint(3, 4); }},
      {"RestoreLastDeletedCalPoint, none", 0, 0, [](M& m) { m.RestoreLastDeletedCalPoint(); }},
      {"RecalcCalibration", 1, 1, [](M& m) { m.RecalcCalibration(); }},
      {"CalcExtentsAndResolution", 0, 0, [](M& m) { m.CalcExtentsAndResolution(); }},
      {"ClearCalibData", 1, 1, [](M& m) { m.ClearCalibData(); }},
      {"Clear", 1, 1, [](M& m) { m.Clear(); }},
      {"SetMapBitMap", 1, 1, [](M& m) { m.SetMapBitMap(PlaceBitmap(9, 9)); }},
      {"SetMapImgName", 1, 1, [](M& m) { m.SetMapImgName("/there/is/none.jpg"); }},
      {"SetCalDatName", 1, 1, [](M& m) { m.SetCalDatName("/there/is/none.xml"); }},
      {"ConstructInternalMapImg", 0, 0, [](M& m) { m.ConstructInternalMapImg(); }},
      {"SetSize", 1, 0, [](M& m) { m.SetSize(77, 66); }},
      {"Assign", 0, 0,
       [](M& m) {
         TTestHost Host;
         m.Assign(M(nullptr, Host));
       }},
  };
  for (const TRow& Row : Rows) {
    TTestMap T(300, 200);
    T.Map.SetCalibration(PlainQuads(54, 5, 10, {{0, 0}, {400, 0}, {0, 300}}),
                         TCalibModel::cmEquiRect);
    T.Seen = {};
    Row.Call(T.Map);
    EXPECT_EQ(T.Seen.Paints, Row.First) << Row.Name;
    Row.Call(T.Map);
    EXPECT_EQ(T.Seen.Paints, Row.First + Row.Again) << Row.Name << " again";
    EXPECT_EQ(TTestHost::WindowOf(T.Map).Shows.back().size(), 1U);

    // Suppressed: none of them paints; the end of it paints once.
    T.Map.SetSuppressPaint(true);
    T.Seen = {};
    Row.Call(T.Map);
    EXPECT_EQ(T.Seen.Paints, 0) << Row.Name;
    T.Map.SetSuppressPaint(true);
    T.Map.SetSuppressPaint(false);
    T.Map.SetSuppressPaint(false);
    EXPECT_EQ(T.Seen.Paints, 1) << Row.Name;
  }
}

TEST(GeoMap, ValuesOutOfRange) {
  TTestMap T(1000, 800);
  TGeoMap& Map = T.Map;
  struct TCase {
    double Set, GratLineDist, CacheMagLimit;
  };
  for (const TCase& Case : {TCase{-5, 0, 0}, TCase{100, 60, MaxCacheMagLimit},
                            TCase{0.25, 0.25, 0.25}, TCase{std::nan(""), 0, 0}}) {
    Map.SetGratLineDist(Case.Set);
    Map.SetCacheMagLimit(Case.Set);
    EXPECT_EQ(Map.GratLineDist(), Case.GratLineDist);
    EXPECT_EQ(Map.CacheMagLimit(), Case.CacheMagLimit);
  }
  Map.SetUTMGridDist(20000000);
  EXPECT_EQ(Map.UTMGridDist(), 10000000);
  Map.SetUTMGridDist(-1);
  EXPECT_EQ(Map.UTMGridDist(), 0);
  Map.SetRandSampleLimit(1000);
  EXPECT_EQ(Map.LMRandomDisplayThreshold(), 20000);
  Map.SetHighLM(1);
  EXPECT_EQ(Map.HighLightLandMark(), 0);

  const auto Magnify = [&](double M) {
    return ErrorOf<EZAVError>([&] { Map.SetMagnification(M); });
  };
  EXPECT_EQ(Magnify(0.5), "");
  EXPECT_EQ(Magnify(2.0), "");
  EXPECT_EQ(Magnify(0.49), "Component \"GeoMap1\": Magnification factor too low");
  EXPECT_EQ(Magnify(std::nan("")), "Component \"GeoMap1\": Magnification factor too low");
  EXPECT_EQ(Magnify(2.01), "Component \"GeoMap1\": Magnification factor too high");
  EXPECT_EQ(Map.Magnification(), 2.0);
  EXPECT_NE(ErrorOf<EZAVError>([&] { Map.SetView({0, 0}, 0); }), "");

  Map.SetMouseAction(TMouseActMode::maPanVertical);
  EXPECT_FALSE(Map.GetAllowPan());
  Map.SetAllowPan(true);
  EXPECT_EQ(Map.MouseAction(), TMouseActMode::maPan);
}

TEST(GeoMap, MovingTheView) {
  TTestMap T(1000, 800);
  TGeoMap& Map = T.Map;
  Map.SetCalibration(PlainQuads(54, 5, 10, {{0, 0}, {400, 0}, {0, 300}}), TCalibModel::cmEquiRect);
  Map.SetConfinePan(false);
  Map.SetMagnification(2);
  Map.BringLocationToCenter(54 - 60, 5 + 40);  // pixel (400, 600)
  EXPECT_EQ(Map.TopLeft(), (TPoint{400 - 125, 500}));
  Map.BringLocationToCenter(90, -180);  // confined, whatever ConfinePanToMapImage says
  EXPECT_EQ(Map.TopLeft(), (TPoint{0, 0}));
  Map.SetTopLeft({-30, 5000});  // not confined
  Map.ZoomStateOnStack();
  Map.SetConfinePan(true);
  EXPECT_EQ(Map.TopLeft(), (TPoint{0, 600}));
  Map.ZoomFitPage();
  EXPECT_EQ(Map.View(), (TViewState{{0, 0}, 0.5}));
  Map.ZoomHistory(0);  // neither confined nor checked, and can be repeated
  Map.ZoomHistory(0);
  EXPECT_EQ(Map.View(), (TViewState{{-30, 5000}, 2}));
  Map.ZoomHistory(-1);
  EXPECT_EQ(Map.View(), (TViewState{{0, 0}, 1}));
  Map.SetLoading(true);
  Map.ZoomStateOnStack();
  EXPECT_EQ(Map.GetZoomStackEntry(0), (TgmZoomStackEntry{-30, 5000, 2}));

  // A position without a pixel: nothing at all.
  Map.SetCalibModel(TCalibModel::cmParabolicIp);
  T.Seen = {};
  Map.BringLocationToCenter(50, 10);
  EXPECT_EQ(T.Seen.Paints, 0);
}

TEST(GeoMap, AssignTakesAllButHandlersAndSize) {
  TTestMap From(640, 480);
  From.Map.SetSize(300, 200);
  From.Map.SetCalibration(PlainQuads(54, 5, 10, {{0, 0}, {400, 0}, {0, 300}}),
                          TCalibModel::cmEquiRect);
  From.Map.SetView({12, 13}, 0.6);
  From.Map.ZoomStateOnStack();
  From.Map.SetShowGrat(TShowGrat::sgLines);
  From.Map.SetColorBakGnd(clRed);
  From.Map.SetClassVisibility(7, false);
  From.Map.SetHighLightProperties(1, 2, true);
  From.Map.SetRandSampleLimit(5000);
  From.Map.MouseDown(TMouseButton::mbLeft, ssLeft, 60, 60);
  From.Map.OnZoomPan = [](TGeoMap*) {};

  TTestMap To;
  From.Map.AssignTo(To.Map);
  EXPECT_EQ(To.Map.Width(), 500);
  EXPECT_FALSE(To.Map.OnZoomPan);
  EXPECT_EQ(To.Map.InternalMapImg(), From.Map.InternalMapImg());
  EXPECT_EQ(To.Map.MapBitmap(), From.Map.MapBitmap());
  EXPECT_EQ(To.Map.MapImgFile(), "$unknown$");
  EXPECT_EQ(To.Map.MapImgWidth(), 640);
  EXPECT_EQ(To.Map.View(), From.Map.View());
  EXPECT_EQ(To.Map.GetZoomStackEntry(0), (TgmZoomStackEntry{12, 13, 0.6}));
  EXPECT_EQ(To.Map.Calibration(), From.Map.Calibration());
  EXPECT_EQ(To.Map.ColorBackGnd(), clRed);
  EXPECT_EQ(To.Map.ShowGraticule(), TShowGrat::sgLines);
  EXPECT_FALSE(To.Map.GetClassVisibility(7));
  EXPECT_TRUE(To.Map.HighLightTransparent());
  EXPECT_EQ(To.Map.LMRandomDisplayThreshold(), 5000);
  EXPECT_EQ(To.Map.LastClickPosX(), 112);
  EXPECT_THROW(To.Map.Assign(TComponent()), EConvertError);

  To.Map.Clear();
  EXPECT_EQ(To.Map.CalibData(), TCalibData());
  EXPECT_EQ(To.Map.CalibModel(), TCalibModel::cmUndefined);
  EXPECT_EQ(To.Map.MapImgFile(), "");
  EXPECT_EQ(To.Map.MapImgHeight(), 0);
  EXPECT_EQ(To.Map.MapBitmap().Width(), 640);
  EXPECT_EQ(To.Map.View(), From.Map.View());
}

TEST(GeoMap, CalibrationErrorsNameTheControl) {
  TTestMap T(800, 600);
  TGeoMap& Map = T.Map;
  const std::string Prefix = "Component \"GeoMap1\": ";
  EXPECT_EQ(ErrorOf<EZAVGeoMapError>([&] { Map.AddCalibPoint(1, 2, 3, 4); }),
            Prefix + "current calibration model does not support this version of AddCalibPoint");
  EXPECT_EQ(
      ErrorOf<EZAVGeoMapError>([&] { Map.RemoveCalibPoint(TGratLineKind::gtlParallel, 50, 1, 1); }),
      Prefix + "current calibration model does not support this version of RemoveCalibPoint");
  Map.SetCalibModel(TCalibModel::cmUTM);
  const auto AddUTM = [&] {
    Map.AddCalibPoint(5500000, 400000, 32, THemisphere::hemiNorth, 10, 10);
  };
  EXPECT_EQ(ErrorOf<EZAVGeoMapError>(AddUTM), Prefix + "UTM zone parameter changed");
  Map.SetUTMZone(61);
  EXPECT_EQ(Map.GetUTMZone(), -1);
  Map.SetUTMZone(32);
  AddUTM();
  EXPECT_EQ(Map.CalibData().NumCalQuads, 1);
  EXPECT_TRUE(Map.RemoveCalibPoint(0, 0));
  EXPECT_NE(ErrorOf<EZAVGeoMapError>([&] { Map.RestoreLastDeletedCalPoint(); }), "");

  Map.ClearCalibData();
  Map.SetCalibModel(TCalibModel::cmEquiRect);
  const TCalibData Plain = PlainQuads(54, 5, 10, {{0, 0}, {400, 0}, {0, 300}});
  T.Seen = {};
  for (size_t I = 0; I < 3; ++I) {
    const TCalQuad& Q = Plain.CalQuads[I];
    EXPECT_TRUE(Map.AddCalibPoint(Q.Latitude, Q.Longitude, Q.MapX, Q.MapY));
  }
  EXPECT_EQ(T.Seen.Calibrations, 3);
  // Fitted, with corners and resolution: 80 degrees by 60.
  EXPECT_NEAR(Map.CalibData().Corners[gcoBottomRight].Latit, -6, 1e-9);
  EXPECT_NEAR(Map.CalibData().Corners[gcoBottomRight].Longit, 85, 1e-9);
  EXPECT_GT(Map.CalibData().Resolution, 0);
  EXPECT_TRUE(Map.IsPositionWithinMap(0, 45));
  Map.RemoveCalibPoint(0, 290);
  Map.RestoreLastDeletedCalPoint();
  EXPECT_EQ(Map.CalibData().NumCalQuads, 3);
}

// --- handlers that change or destroy -------------------------------------------------------------

TEST(GeoMap, HandlersMayChangeTheControl) {
  TTestMap T(800, 600);
  TGeoMap& Map = T.Map;
  int Calls = 0;
  Map.OnBeforeRenderData = [&](TGeoMap* Sender, TCanvas& Canvas) {
    ++Calls;
    EXPECT_EQ(Sender, &Map);
    Sender->SetMagnification(0.6);  // would paint, and so on without end
    Sender->SetSize(50, 40);
    Sender->SetMapBitMap(PlaceBitmap(30, 20));
    Sender->OnBeforeRenderData = nullptr;
    Canvas.Brush = {clRed};
    Canvas.FillRect({100, 100, 110, 110});
  };
  Map.SetTopLeft({1, 0});
  EXPECT_EQ(Calls, 1);
  EXPECT_EQ(T.Seen.Paints, 1);
  EXPECT_EQ(Map.Magnification(), 0.6);
  // The picture is that of the moment when it was begun, with what the handler drew.
  EXPECT_EQ(Map.InternalMapImg().Pixel(105, 105), clRed);
  EXPECT_EQ(Map.InternalMapImg().Pixel(200, 105), OnPicture(PlaceColor(201, 105)));
  Map.Paint();
  EXPECT_EQ(TTestHost::WindowOf(Map).Buffer().Pixel(30, 30), OnPicture(clSilver));

  // One that throws leaves a control that paints.
  Map.OnDataRendered = [](TGeoMap*, TCanvas&) { throw std::runtime_error("of the handler"); };
  EXPECT_THROW(Map.Paint(), std::runtime_error);
  Map.OnDataRendered = nullptr;
  T.Seen = {};
  Map.Paint();
  EXPECT_EQ(T.Seen.Paints, 1);

  // An observer that takes another off the list: that one is not called any more.
  TCountingObserver Other;
  struct TRemover final : TGeoMapObserver {
    TGeoMapObserver* Other = nullptr;
    void Painted(TGeoMap& Of) override { Of.RemoveObserver(Other); }
  } Remover;
  Remover.Other = &Other;
  Map.AddObserver(&Remover);
  Map.AddObserver(&Other);
  Map.Paint();
  EXPECT_EQ(Other.Paints, 0);
}

TEST(GeoMap, HandlersMayDestroyTheControl) {
  struct TKiller final : TGeoMapObserver {
    int At = 0;
    std::function<void()> Kill;
    void ViewChanged(TGeoMap&) override { At == 1 ? Kill() : void(); }
    void CalibrationChanged(TGeoMap&) override { At == 2 ? Kill() : void(); }
    void ImageChanged(TGeoMap&) override { At == 3 ? Kill() : void(); }
    void Painted(TGeoMap&) override { At == 4 ? Kill() : void(); }
  };
  const TBitmap Image = PlaceBitmap(300, 250);
  using M = TGeoMap;
  const std::vector<std::function<void(M&)>> Operations = {
      [](M& m) { m.SetMapImgName(ZAVGEO_SAMPLES "/maps/iceland.bmp"); },
      [](M& m) { m.SetMapBitMap(PlaceBitmap(50, 50)); },
      [](M& m) { m.ResizeMap(0.5); },
      [](M& m) {
        m.SetTopLeft({3, 3});
      },
      [](M& m) {
        m.ZoomAt({5, 5}, 2);
      },
      [](M& m) {
        m.PanBy({20, 20});
      },
      [](M& m) { m.SetCalibration({}, TCalibModel::cmUTM); },
      [](M& m) { m.Clear(); },
      [](M& m) { m.SetSize(60, 60); },
      [](M& m) {
        const auto Alive = m.Life();
        m.MouseMove(ssLeft, 100, 100);
        if (!Alive.expired()) m.MouseMove(ssLeft, 90, 80);
      },
      [](M& m) { m.MouseDown(TMouseButton::mbLeft, ssLeft, 1, 1); },
      [](M& m) { m.MouseUp(TMouseButton::mbLeft, 0, 1, 1); },
  };
  int Killed = 0;
  for (int Way = 0; Way < 13; ++Way) {
    for (const auto& Operation : Operations) {
      TTestHost Host;
      TKiller Killer;
      auto Map = std::make_unique<M>(nullptr, Host);
      Map->SetSize(120, 110);
      Map->SetMapBitMap(Image);
      Map->SetView({50, 50}, 0.9);
      Killer.At = Way;
      Killer.Kill = [&] {
        ++Killed;
        Map.reset();
      };
      Map->AddObserver(&Killer);
      const auto Kill = [&Killer](auto&&...) { Killer.Kill(); };
      if (Way == 5) Map->OnBeforeRenderData = Kill;
      if (Way == 6) Map->OnDataRendered = Kill;
      if (Way == 7) Map->OnMapImageRequest = Kill;
      if (Way == 8) Map->OnDataLoading = Kill;
      if (Way == 9) Map->OnZoomPan = Kill;
      if (Way == 10) Map->OnMouseMove = Kill;
      if (Way == 11) Map->OnMouseUp = Kill;
      if (Way == 12) Map->OnResize = Kill;
      Operation(*Map);
    }
  }
  EXPECT_GE(Killed, 50);
}

}  // namespace
}  // namespace zav
