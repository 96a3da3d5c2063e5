// SPDX-License-Identifier: MIT
#include <geomap/geo_map.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "../view/map_support.h"
#include "failing_memory.h"

namespace zav {
namespace {

using enum TLandMarkElement;
using enum TLandMarkAction;
constexpr int32_t Every = -1;

// A map of ten pixels a degree from (0, 0), latitudes going south.
struct TLandMarkMap : TTestMap {
  TLandMarkMap() : TTestMap(300, 200) {
    Map.SetSize(300, 200);
    Map.SetCalibration(PlainQuads(0, 0, 10, {{0, 0}, {290, 0}, {0, 190}}), TCalibModel::cmEquiRect);
    Seen = {};
  }
  // Landmarks on a line, tagged 1 to Count.
  void AddLine(int32_t Count) {
    Map.SetSuppressPaint(true);
    for (int32_t I = 1; I <= Count; ++I) {
      TLandMark LandMark;
      LandMark.Tag = I;
      Map.SetLandMarkDefault(LandMark);
      Map.AddLandMark(-5, I, 0);
    }
    Map.SetSuppressPaint(false);
    Seen = {};
  }
};

TEST(GeoMapLandMarks, EveryWayOfAdding) {
  TLandMarkMap T;
  TGeoMap& Map = T.Map;
  TLandMark Template;
  Template.Latitude = 99;
  Template.ClassFlag = 4;
  Template.Tag = 5;
  Template.SymbolProps = {lmSpade, 1, 2, 3, true, 4, 5};
  Template.Caption.Text = "template";
  Template.Caption.dx = 17;
  Template.Identifier = "T";
  Template.Time = 7;
  Map.SetLandMarkDefault(Template);
  const TLMIdentifier Id = "a name of 20 letters";  // cut to 15
  const std::string Long(100, 'x');

  std::vector<TLandMark> Expected(5, Template);
  for (TLandMark& Each : Expected) {
    Each.Latitude = -1;
    Each.Longitude = 2;
    Each.Altitude = 3;
  }
  for (const size_t I : {1, 3, 4}) {
    Expected[I].Identifier = "a name of 20 le";
    Expected[I].Time = 8;
  }
  for (const size_t I : {2, 3}) {
    Expected[I].Caption.Text = std::string(80, 'x');
    Expected[I].Caption.Size = 9;
    Expected[I].Caption.FGColor = clLime;
  }
  Expected[4].ClassFlag = 255;
  Expected[4].Tag = -1;
  Expected[4].SymbolProps = {lmArrowTo, 11, 12, 13, false, 14, 15};

  std::vector<TLandMark> Asked;
  Map.OnLandMarkAction = [&](TGeoMap* Sender, bool& Allowed, TLandMarkAction Action,
                             const TLandMark& LandMark) {
    EXPECT_EQ(Sender, &Map);
    EXPECT_TRUE(Allowed);
    EXPECT_EQ(Action, lmaAdd);
    Asked.push_back(LandMark);
    Allowed = Asked.size() <= 5;
  };
  for (int Round = 0; Round < 2; ++Round) {
    Map.AddLandMark(-1, 2, 3);
    Map.AddLandMark(-1, 2, 3, Id, 8);
    Map.AddLandMark(-1, 2, 3, Long, 9, clLime);
    Map.AddLandMark(-1, 2, 3, Id, 8, Long, 9, clLime);
    Map.AddLandMark(-1, 2, 3, lmArrowTo, 255, Id, 8, -1, 12, 13, 11, false, 14, 15);
  }
  // The second round was refused, and nothing was painted for it.
  EXPECT_EQ(Map.NumLandMarks(), 5);
  EXPECT_EQ(T.Seen.Paints, 5);
  ASSERT_EQ(Asked.size(), 10U);
  for (int32_t I = 0; I < 5; ++I) {
    EXPECT_EQ(Map.GetLandMarkData(I + 1), Expected[static_cast<size_t>(I)]) << I;
    EXPECT_EQ(Asked[static_cast<size_t>(I)], Expected[static_cast<size_t>(I)]) << I;
  }
  EXPECT_EQ(Map.GetLandMarkData(0), TLandMark());
  EXPECT_EQ(Map.GetLandMarkData(6), TLandMark());
}

// What each operation paints, asks and returns on four landmarks and on none.
TEST(GeoMapLandMarks, ConsequencesOfEveryOperation) {
  using M = TGeoMap;
  struct TRow {
    const char* Name;
    int32_t Result, Left, Paints, Asked, PaintsOnNone;
    std::function<int32_t(M&)> Call;
  };
  const TRow Rows[] = {
      {"index", 2, 3, 1, 1, 0, [](M& m) { return m.RemoveLandMark(2); }},
      {"bad index", 0, 4, 1, 0, 0, [](M& m) { return m.RemoveLandMark(5); }},
      {"index 0", 0, 4, 1, 0, 0, [](M& m) { return m.RemoveLandMark(0); }},
      {"position", 0, 3, 1, 1, 0, [](M& m) { return m.RemoveLandMark(-5, 2, Every); }},
      {"position, no such class", 0, 4, 1, 0, 0, [](M& m) { return m.RemoveLandMark(-5, 2, 9); }},
      {"radius", 3, 1, 1, 3, 0, [](M& m) { return m.RemoveLandMark(-5, 2, Every, 1.5); }},
      {"radius 0", 0, 4, 1, 0, 0, [](M& m) { return m.RemoveLandMark(-5, 2, Every, 0); }},
      {"rectangle", 2, 2, 1, 2, 0,
       [](M& m) {
         return m.RemoveLandMark(TRectDouble{1, -4, 4, -6}, Every);
       }},
      {"last", 0, 3, 1, 1, 1, [](M& m) { return m.RemoveLastLandMark(), 0; }},
      {"all", 0, 0, 1, 0, 1, [](M& m) { return m.RemoveAllLandMarks(), 0; }},
      {"class", 0, 0, 1, 4, 0, [](M& m) { return m.RemoveAllLandMarks(uint8_t{0}), 0; }},
      {"other class", 0, 4, 1, 0, 0, [](M& m) { return m.RemoveAllLandMarks(uint8_t{1}), 0; }},
      {"data", 0, 4, 1, 0, 0, [](M& m) { return m.SetLandMarkData(4, {}), 0; }},
      {"data of 0", 0, 4, 0, 0, 0, [](M& m) { return m.SetLandMarkData(0, {}), 0; }},
      {"data of 5", 0, 4, 0, 0, 0, [](M& m) { return m.SetLandMarkData(5, {}), 0; }},
      {"find", 3, 4, 0, 0, 0, [](M& m) { return m.FindLandMark(0, 3.2, Every); }},
      {"highlight", 0, 4, 1, 0, 1, [](M& m) { return m.SetHighLM(2), 0; }},
      {"highlight -5", 0, 4, 1, 0, 1, [](M& m) { return m.SetHighLM(-5), 0; }},
      {"highlight 5", 0, 4, 1, 0, 1, [](M& m) { return m.SetHighLM(5), 0; }},
      {"highlight as it is", 0, 4, 0, 0, 1, [](M& m) { return m.SetHighLM(3), 0; }},
      {"list", 0, 0, 1, 0, 1, [](M& m) { return m.SetLandMarks({}), 0; }},
      {"template", 0, 4, 0, 0, 0, [](M& m) { return m.SetLandMarkDefault({}), 0; }},
      {"seed", 0, 4, 0, 0, 0, [](M& m) { return m.SetThinningSeed(3), 0; }},
  };
  for (const TRow& Row : Rows) {
    for (const bool Refused : {false, true}) {
      TLandMarkMap T;
      T.AddLine(4);
      T.Map.SetHighLM(3);
      T.Seen = {};
      int32_t Asked = 0;
      T.Map.OnLandMarkAction = [&](TGeoMap*, bool& Allowed, TLandMarkAction Action,
                                   const TLandMark&) {
        EXPECT_EQ(Action, lmaRemove);
        Allowed = !Refused;
        ++Asked;
      };
      const bool Stays = Refused && Row.Asked > 0;
      EXPECT_EQ(Row.Call(T.Map), Stays ? 0 : Row.Result) << Row.Name;
      EXPECT_EQ(T.Map.NumLandMarks(), Stays ? 4 : Row.Left) << Row.Name;
      EXPECT_EQ(T.Seen.Paints, Row.Paints) << Row.Name;
      EXPECT_EQ(Asked, Row.Asked) << Row.Name;

      T.Map.SetHighLM(3);
      T.Map.RemoveAllLandMarks();  // the highlight's number stays
      T.Seen = {};
      Row.Call(T.Map);
      EXPECT_EQ(T.Seen.Paints, Row.PaintsOnNone) << Row.Name << " on none";
    }
  }
}

TEST(GeoMapLandMarks, OutOfMemory) {
  TLandMarkMap T;
  T.AddLine(1000);
  T.Map.SetSuppressPaint(true);
  {
    const test::TNoLargeMemory Low(100000);
    EXPECT_EQ(ErrorOf<EZAVGeoMapError>([&] { T.Map.AddLandMark(1, 1, 1); }),
              "Component \"GeoMap1\": insufficient memory");
  }
  EXPECT_EQ(T.Map.NumLandMarks(), 1000);
  T.Map.AddLandMark(1, 1, 1);
  EXPECT_EQ(T.Map.LandMarks().Allocated(), 2000);
}

// --- handlers ------------------------------------------------------------------------------------

TEST(GeoMapLandMarks, HandlersMayDestroyTheMap) {
  const std::vector<std::function<void(TGeoMap&)>> Calls = {
      [](TGeoMap& m) { m.AddLandMark(-5, 5, 0); },
      [](TGeoMap& m) { m.RemoveLandMark(2); },
      [](TGeoMap& m) { m.RemoveLandMark(-5, 2, Every); },
      [](TGeoMap& m) { m.RemoveLandMark(-5, 2, Every, 2); },
      [](TGeoMap& m) {
        m.RemoveLandMark(TRectDouble{0, 0, 9, -9}, Every);
      },
      [](TGeoMap& m) { m.RemoveLastLandMark(); },
      [](TGeoMap& m) { m.RemoveAllLandMarks(uint8_t{0}); },
      [](TGeoMap& m) { m.Paint(); },
      [](TGeoMap& m) { m.SetHighLM(1); },
  };
  for (size_t I = 0; I < Calls.size(); ++I) {
    for (int At = 1; At <= 5; ++At) {
      auto T = std::make_unique<TLandMarkMap>();
      TTestHost Host;
      auto Map = std::make_unique<TGeoMap>(nullptr, Host);
      Map->Assign(T->Map);
      for (int32_t K = 1; K <= 4; ++K) Map->AddLandMark(-5, K, 0);
      int Count = 0;
      const auto Destroy = [&Count, &Map, At] {
        if (++Count == At) Map.reset();
      };
      Map->OnLandMarkAction = [Destroy](TGeoMap*, bool&, TLandMarkAction, const TLandMark& LM) {
        Destroy();
        EXPECT_EQ(LM.Latitude, -5);
      };
      Map->OnDrawLandmark = [Destroy](TGeoMap*, bool&, TCanvas& Canvas, TPoint,
                                      const TLandMark& LM) {
        Destroy();
        Canvas.LineTo(5, 5);
        EXPECT_EQ(LM.Latitude, -5);
      };
      Calls[I](*Map);
    }
  }
}

TEST(GeoMapLandMarks, DrawingHandlersSeeWhatWasThereWhenThePictureBegan) {
  TLandMarkMap T;
  T.AddLine(3);
  TGeoMap& Map = T.Map;
  std::string Order;
  Map.OnDrawLandmark = [&](TGeoMap* Sender, bool& Handled, TCanvas&, TPoint At,
                           const TLandMark& LandMark) {
    EXPECT_EQ(Sender, &Map);
    EXPECT_FALSE(Handled);
    EXPECT_EQ(At, (TPoint{10 * LandMark.Tag, 50}));
    Order += std::to_string(LandMark.Tag);
    Handled = LandMark.Tag == 2;
    Map.RemoveLandMark(1);
    Map.SetLandMarkData(1, {});
    Map.AddLandMark(-1, 1, 0);
    Map.SetClassVisibility(0, false);
    Map.Paint();
    Order += std::to_string(LandMark.Tag);
  };
  T.Seen = {};
  Map.Paint();
  EXPECT_EQ(Order, "112233");
  EXPECT_EQ(T.Seen.Paints, 1);
  const TBitmap& Picture = Map.InternalMapImg();
  // The built-in cross of the first and third is there, the second was handled.
  EXPECT_EQ(Picture.Pixel(12, 52), OnPicture(clBlue));
  EXPECT_EQ(Picture.Pixel(32, 52), OnPicture(clBlue));
  EXPECT_NE(Picture.Pixel(22, 52), OnPicture(clBlue));
  EXPECT_EQ(Map.NumLandMarks(), 3);
}

// --- pictures ------------------------------------------------------------------------------------

// Whatever changes, the picture is that of a map which never had another state.
TEST(GeoMapLandMarks, NothingThatIsKeptOutlivesAChange) {
  TLandMarkMap Other;
  Other.AddLine(7);
  TLandMarkMap T;
  T.AddLine(2300);
  TGeoMap& Map = T.Map;
  const TLandMarkList All = Map.LandMarks();
  const std::vector<std::pair<const char*, std::function<void()>>> Changes = {
      {"calibration",
       [&] {
         Map.SetCalibration(PlainQuads(0, 0, 12, {{0, 0}, {290, 0}, {0, 190}}),
                            TCalibModel::cmEquiRect);
       }},
      {"position", [&] { Map.SetLandMarkData(3, {}); }},
      {"adding", [&] { Map.AddLandMark(-9, 9, 0, "caption", 8, clRed); }},
      {"removing", [&] { Map.RemoveLandMark(5); }},
      {"removing many", [&] { Map.RemoveLandMark(-5, 7, Every, 3); }},
      {"class", [&] { Map.SetClassVisibility(0, false); }},
      {"class again", [&] { Map.SetClassVisibility(0, true); }},
      {"undo", [&] { Map.SetLandMarks(All); }},
      {"clear", [&] { Map.RemoveAllLandMarks(); }},
      {"another map",
       [&] {
         Map.Assign(Other.Map);
         Map.Paint();
       }},
      {"another list", [&] { Map.SetLandMarks(All); }},
      {"view",
       [&] {
         Map.SetView({20, 10}, 1.5);
       }},
  };
  TBitmap Last = Map.InternalMapImg();
  for (const auto& [Name, Change] : Changes) {
    Change();
    TTestMap Fresh(300, 200);
    Fresh.Map.SetSize(300, 200);
    Fresh.Map.Assign(Map);
    Fresh.Map.Paint();
    EXPECT_EQ(Map.InternalMapImg(), Fresh.Map.InternalMapImg()) << Name;
    EXPECT_NE(Map.InternalMapImg(), Last) << Name << " changes the picture";
    Last = Map.InternalMapImg();
  }
}

TEST(GeoMapLandMarks, AssignTakesLandMarksAndLeavesTheSourceAlone) {
  TLandMarkMap From;
  From.AddLine(1500);
  From.Map.SetHighLM(3);
  From.Map.SetClassVisibility(9, false);
  TLandMark Template;
  Template.Tag = 77;
  From.Map.SetLandMarkDefault(Template);
  TLandMarkMap To;
  To.Map.AddLandMark(1, 1, 1);
  To.Map.Assign(From.Map);
  EXPECT_EQ(To.Map.LandMarks(), From.Map.LandMarks());
  EXPECT_EQ(To.Map.LandMarks().Allocated(), 2000);
  EXPECT_EQ(To.Map.LandMarkDefault().Tag, 77);
  EXPECT_EQ(To.Map.HighLightLandMark(), 3);
  EXPECT_FALSE(To.Map.GetClassVisibility(9));
  To.Map.RemoveLandMark(1);
  To.Map.SetLandMarkData(2, {});
  To.Map.SetClassVisibility(9, true);
  EXPECT_EQ(From.Map.GetLandMarkData(1).Tag, 1);
  EXPECT_EQ(From.Map.GetLandMarkData(2).Tag, 2);
  EXPECT_EQ(From.Map.NumLandMarks(), 1500);
  EXPECT_FALSE(From.Map.GetClassVisibility(9));
  EXPECT_EQ(From.Map.HighLightLandMark(), 3);
}

// The same seed gives the same pictures; otherwise each leaves out others.
TEST(GeoMapLandMarks, ThinnedPicturesCanBeRepeated) {
  TLandMarkMap T;
  T.Map.SetSuppressPaint(true);
  for (int32_t I = 0; I < 1200; ++I) {
    const int32_t Column = I / 40;
    T.Map.AddLandMark(-1 - I % 40 * 0.4, 1 + Column * 0.9, 0);
  }
  T.Map.SetRandSampleLimit(1001);
  T.Map.SetSuppressPaint(false);
  std::vector<TBitmap> Pictures;
  for (int Round = 0; Round < 2; ++Round) {
    T.Map.SetThinningSeed(11);
    for (int I = 0; I < 3; ++I) {
      T.Map.Paint();
      Pictures.push_back(T.Map.InternalMapImg());
    }
  }
  EXPECT_EQ(Pictures[0], Pictures[3]);
  EXPECT_EQ(Pictures[2], Pictures[5]);
  EXPECT_NE(Pictures[0], Pictures[1]);
}

}  // namespace
}  // namespace zav
