// SPDX-License-Identifier: MIT
#include <geomap/geo_map.h>
#include <geomap/landmarks/landmark_file.h>
#include <gtest/gtest.h>
#include <platform/base/atomic_file.h>
#include <platform/base/random.h>
#include <platform/base/read_file.h>
#include <support/failing_file_ops.h>
#include <support/temp_folder.h>

#include <cmath>
#include <filesystem>
#include <limits>

#include "../view/map_support.h"
#include "failing_memory.h"
#include "format_example.h"
#include "record_check.h"

namespace zav {
namespace {

using enum TLandMarkElement;

TLandMarkList ListOf(const std::vector<TLandMark>& LandMarks) {
  TLandMarkList List;
  for (const TLandMark& Each : LandMarks) List.Append(Each);
  return List;
}

TLandMarkList ReadFrom(const std::string& Bytes, const std::string& Id = "") {
  TMemoryStream Stream = test::StreamOf(Bytes);
  TLandMarkList List;
  EXPECT_TRUE(ReadLandMarks(Stream, Id, List)) << Bytes;
  return List;
}

std::string Root(const std::string& Id) {
  return "<gmlandmarks sig=\"Tarvoline\" vers=\"1.0\" id=\"" + Id + "\">\n";
}

TEST(LandMarkFile, ExampleOfTheFormatPage) {
  const std::string Bytes = test::ExampleOf("landmarks.md");
  TLandMark Summit;
  Summit.Latitude = 47.5391;
  Summit.Longitude = 14.5079;
  Summit.Altitude = 2335;
  Summit.ClassFlag = 3;
  Summit.Tag = -7;
  Summit.SymbolProps = {lmTriangle, 6, clRed, clWhite, false, 0, 10};
  Summit.Identifier = "oedstein";
  EncodeDateTime({2024, 2, 29, 13, 45, 1}, Summit.Time);
  Summit.Caption.Text = "Großer Ödstein, 2335 m";
  Summit.Caption.FontStyles = fsBold;
  TLandMark Other;
  Other.Latitude = 47.123456789;
  Other.Longitude = -0.5;
  Other.SymbolProps = {lmArrowFrom, 7, clBlue, clWhite, true, 45, 30};
  Other.Caption.BGColor = clYellow;
  Other.Caption.Transparent = false;
  Other.Caption.Direction = -30;
  Other.Caption.dx = 4;
  Other.Caption.dy = -4;
  Other.Caption.HAlignment = THorizontalAlignment::haRight;
  Other.Caption.VAlignment = TVerticalAlignment::vaBottom;
  Other.Caption.FontStyles = fsUnderline | fsStrikeOut;

  TTestMap T;
  TTempFolder Folder;
  WriteWholeFile(Folder / "Example.xml", Bytes);
  EXPECT_TRUE(T.Map.LoadLandMarks(Folder / "example.XML", "SUMMITS"));
  EXPECT_EQ(T.Seen.Paints, 1);
  ASSERT_EQ(T.Map.NumLandMarks(), 2);
  EXPECT_EQ(T.Map.GetLandMarkData(1), Summit);
  EXPECT_EQ(T.Map.GetLandMarkData(2), Other);
  T.Map.SaveLandmarks(Folder / "again.xml", "summits");
  EXPECT_EQ(ReadWholeTextFile(Folder / "again.xml"), Bytes);
}

TEST(LandMarkFile, EveryValueAsItsScannerReadsIt) {
  using TGet = std::function<double(const TLandMark&)>;
  struct TCase {
    const char* Attributes;
    TGet Get;
    double Expected;
  };
  const auto Lat = [](const TLandMark& M) { return M.Latitude; };
  const auto Class = [](const TLandMark& M) { return M.ClassFlag; };
  const auto Tag = [](const TLandMark& M) { return M.Tag; };
  const auto Colour = [](const TLandMark& M) { return M.SymbolProps.FGColor; };
  const auto Transparent = [](const TLandMark& M) { return M.SymbolProps.Transparent; };
  const auto Kind = [](const TLandMark& M) { return static_cast<double>(M.SymbolProps.Kind); };
  const auto Time = [](const TLandMark& M) { return M.Time; };
  const auto Styles = [](const TLandMark& M) { return M.Caption.FontStyles; };
  const auto HAl = [](const TLandMark& M) { return static_cast<double>(M.Caption.HAlignment); };
  const auto VAl = [](const TLandMark& M) { return static_cast<double>(M.Caption.VAlignment); };
  const TCase Cases[] = {
      {"LAT=\" -12,5e1x\"", Lat, -125},
      {"lat=3 lat=4", Lat, 3},
      {"a==1 lat=\"3\"", Lat, 0},
      {"unknown=\"7\" lat=\"3\"", Lat, 3},
      {"class=\"300\"", Class, 44},
      {"class=\"-1\"", Class, 255},
      {"usertag=\"4294967297\"", Tag, 1},
      {"usertag=\"-8 9\"", Tag, -8},
      {"colorfg=\"ff8000\"", Colour, 0xFF8000},
      {"colorfg=\"\"", Colour, 0},
      {"transp=\"unTRUE\"", Transparent, 1},
      {"transp=\"1\"", Transparent, 0},
      {"element=\"SPADE\"", Kind, 7},
      {"element=\"Plus\"", Kind, 8},
      {"element=\"user-defined\"", Kind, 8},
      {"element=\" spade\"", Kind, 8},
      {"date=\"19000101120000\"", Time, 2.5},
      {"date=\"19000230120000\"", Time, 0},
      {"capfst=\"01\"", Styles, fsItalic},
      {"capfst=\"x1y111\"", Styles, fsItalic | fsStrikeOut},
      {"caphal=\"1\"", HAl, 1},
      {"caphal=\"3\"", HAl, 0},
      {"capval=\"-1\"", VAl, 0},
  };
  for (const TCase& Case : Cases) {
    const TLandMarkList List = ReadFrom(Root("") + "<landmark " + Case.Attributes + "/>");
    ASSERT_EQ(List.Count(), 1) << Case.Attributes;
    EXPECT_EQ(Case.Get(List[1]), Case.Expected) << Case.Attributes;
  }
  // Nothing comes from a template.
  TLandMark Zero;
  Zero.SymbolProps = {lmCross, 0, 0, 0, false, 0, 0};
  Zero.Caption = {
      "", 0, "", 0, 0, 0, false, 0, 0, 0, THorizontalAlignment::haLeft, TVerticalAlignment::vaTop};
  EXPECT_EQ(ReadFrom(Root("") + "<landmark>")[1], Zero);
  // Texts are cut between characters.
  const std::string Long(79, 'x');
  const TLandMark Cut = ReadFrom(Root("") + "<landmark captext=\"" + Long + "ä\" id=\"" +
                                 std::string(16, 'y') + "\" capfnm=\"" + Long + "\" />")[1];
  EXPECT_EQ(Cut.Caption.Text.View(), Long);
  EXPECT_EQ(Cut.Identifier.View(), std::string(15, 'y'));
  EXPECT_EQ(Cut.Caption.FontName, Long);
}

TEST(LandMarkFile, SetsInOneFile) {
  const auto Tagged = [](int Tag) {
    return "<landmark usertag=\"" + std::to_string(Tag) + "\" />\n";
  };
  const std::string Bytes =
      "<?xml version=\"1.0\"?>\n<geomap sig=\"Tarvoline\" id=\"b\">\n</geomap>\n" + Root("a") +
      Tagged(1) + "</gmlandmarks>\n" + Root(" b ") + Tagged(2) + "<symbol name=\"x\" />\n" +
      Tagged(3) + "</gmlandmarks>\n" + "</geomap>" + Tagged(4);
  const auto TagsOf = [&](const std::string& Id) {
    std::string Tags;
    const TLandMarkList List = ReadFrom(Bytes, Id);
    for (int32_t I = 1; I <= List.Count(); ++I) Tags += std::to_string(List[I].Tag);
    return Tags;
  };
  EXPECT_EQ(TagsOf("B"), "23");
  EXPECT_EQ(TagsOf("a"), "123") << "reading goes on behind the end of the set";
  EXPECT_EQ(TagsOf(""), "123");

  // Written into one file; the list stays while there is no such set.
  TTempFolder Folder;
  TTestMap T;
  TextFile F;
  F.Rewrite(Folder / "sets.xml");
  for (const char* Id : {"one", "two"}) {
    T.Map.AddLandMark(1, 2, 3);
    T.Map.WriteLandMarksToOpenXMLFile(F, Id);
  }
  F.Close();
  T.Map.SetHighLM(1);
  T.Map.SetClassVisibility(3, false);
  T.Seen = {};
  const TLandMarkList Before = T.Map.LandMarks();
  EXPECT_FALSE(T.Map.LoadLandMarks(Folder / "none.xml", ""));
  EXPECT_FALSE(T.Map.LoadLandMarks(Folder.Path(), ""));
  EXPECT_EQ(T.Seen.Paints, 0);
  EXPECT_FALSE(T.Map.LoadLandMarks(Folder / "sets.xml", "three"));
  EXPECT_EQ(T.Seen.Paints, 1);
  EXPECT_EQ(T.Map.LandMarks(), Before);
  int Asked = 0;
  T.Map.OnLandMarkAction = [&](TGeoMap*, bool&, TLandMarkAction, const TLandMark&) { ++Asked; };
  EXPECT_TRUE(T.Map.LoadLandMarks(Folder / "sets.xml", "one"));
  EXPECT_EQ(T.Map.NumLandMarks(), 3);
  EXPECT_EQ(Asked, 0);
  EXPECT_EQ(T.Map.HighLightLandMark(), 1);
  EXPECT_FALSE(T.Map.GetClassVisibility(3));
}

// Any values, 2500 of them, come back the same.
TEST(LandMarkFile, WhatIsWrittenIsReadBack) {
  TRandom Random(9);
  const auto Any = [&] { return static_cast<int32_t>(Random.Next()); };
  const auto AnyReal = [&] {
    constexpr double Places[] = {1, 1e-3, 1e7, 1e-300, 1e300, 0};
    return (Random.NextDouble() - 0.5) * Places[Random.Next() % 6];
  };
  TLandMarkList List;
  for (int32_t I = 0; I < 2500; ++I) {
    TLandMark LM;
    LM.Latitude = AnyReal();
    LM.Longitude = AnyReal();
    LM.Altitude = I % 2 == 0 ? 100000 * I : AnyReal();
    LM.ClassFlag = static_cast<uint8_t>(I);
    LM.Tag = Any();
    LM.SymbolProps = {static_cast<TLandMarkElement>(1 + I % 8),
                      Any(),
                      static_cast<TColor>(Any()),
                      static_cast<TColor>(Any()),
                      I % 3 == 0,
                      Any(),
                      Any()};
    LM.Identifier = std::to_string(Any());
    LM.Time = std::nearbyint((Random.NextDouble() - 0.2) * 3e6);
    LM.Caption = {"<a b='c' & =\\ Ω漢 \xFF" + std::to_string(I),
                  Any(),
                  "Font > /" + std::to_string(I),
                  static_cast<TFontStyles>(I % 16),
                  static_cast<TColor>(Any()),
                  static_cast<TColor>(Any()),
                  I % 2 == 0,
                  Any(),
                  Any(),
                  Any(),
                  static_cast<THorizontalAlignment>(I % 3),
                  static_cast<TVerticalAlignment>(I / 3 % 3)};
    List.Append(LM);
  }
  TTempFolder Folder;
  SaveLandMarks(Folder / "all.xml", "all", List, "");
  const TLandMarkList Back = ReadFrom(ReadWholeTextFile(Folder / "all.xml"));
  EXPECT_EQ(Back.Allocated(), 3000);
  ASSERT_EQ(Back.Count(), 2500);
  for (int32_t I = 1; I <= 2500; ++I) ASSERT_EQ(Back[I], List[I]) << I;
  // Seconds with fractions come back to the nearest, shapes without a keyword as crosses.
  TLandMark Odd;
  Odd.Time = 45000.5 + 0.4 / 86400;
  Odd.SymbolProps.Kind = lmUserDef;
  SaveLandMarks(Folder / "odd.xml", "", ListOf({Odd}), "");
  Odd.Time = 45000.5;
  Odd.SymbolProps.Kind = lmCross;
  EXPECT_EQ(ReadFrom(ReadWholeTextFile(Folder / "odd.xml"))[1], Odd);
}

TEST(LandMarkFile, RefusesWhatItCannotHold) {
  const auto With = [](auto Change) {
    TLandMark LM;
    Change(LM);
    return LM;
  };
  struct TCase {
    TLandMark LandMark;
    const char* Reason;
  };
  const TCase Cases[] = {
      {With([](TLandMark& M) { M.Caption.Text = "a \"b\""; }), "the caption holds a double quote"},
      {With([](TLandMark& M) { M.Caption.FontName = "a\nb"; }), "the font name holds"},
      {With([](TLandMark& M) { M.Identifier = "a\r"; }), "the identifier holds"},
      {With([](TLandMark& M) { M.Latitude = std::nan(""); }), "number that is not finite"},
      {With([](TLandMark& M) { M.Altitude = std::numeric_limits<double>::infinity(); }), "finite"},
      {With([](TLandMark& M) { M.Time = 1e9; }), "the years 1 to 9999"},
      {With([](TLandMark& M) { M.Time = std::nan(""); }), "the years 1 to 9999"},
  };
  TTempFolder Folder;
  TTestMap T;
  T.Map.AddLandMark(1, 1, 1);
  T.Map.SaveLandmarks(Folder / "old.xml", "");
  const std::string Old = ReadWholeTextFile(Folder / "old.xml");
  T.Map.AddLandMark(1, 1, 1);
  for (const TCase& Case : Cases) {
    T.Map.SetLandMarkData(2, Case.LandMark);
    const std::string Error =
        ErrorOf<EZAVGeoMapError>([&] { T.Map.SaveLandmarks(Folder / "old.xml", ""); });
    EXPECT_TRUE(Error.starts_with("Component \"GeoMap1\": landmark 2: ")) << Error;
    EXPECT_NE(Error.find(Case.Reason), Error.npos) << Error;
    EXPECT_EQ(ReadWholeTextFile(Folder / "old.xml"), Old);
  }
  T.Map.RemoveLastLandMark();
  EXPECT_NE(ErrorOf<EZAVGeoMapError>([&] { T.Map.SaveLandmarks(Folder / "old.xml", "a\"b"); }), "");
  EXPECT_EQ(Folder.Names(), (std::vector<std::string>{"old.xml"}));

  // A disk that fails at any point leaves the old file whole.
  for (int32_t I = 0; I < 3000; ++I) T.Map.AddLandMark(I, I, I);
  TFailingFileOps Ops;
  const TFileOpsOverride With2(Ops);
  int Failures = 0;
  for (int Operation = 1;; ++Operation) {
    Ops.Arm(Operation);
    const std::string Error =
        ErrorOf<EInOutError>([&] { T.Map.SaveLandmarks(Folder / "old.xml", ""); });
    if (!Ops.Failed()) break;
    EXPECT_NE(Error, "") << Operation;
    EXPECT_EQ(ReadWholeTextFile(Folder / "old.xml"), Old);
    EXPECT_EQ(Folder.Names(), (std::vector<std::string>{"old.xml"}));
    ++Failures;
  }
  EXPECT_GE(Failures, 5);
  EXPECT_EQ(ReadFrom(ReadWholeTextFile(Folder / "old.xml")), T.Map.LandMarks());
}

TEST(LandMarkFile, OutOfMemoryKeepsTheLandmarks) {
  std::string Bytes = Root("");
  for (int I = 0; I < 1001; ++I) Bytes += "<landmark />\n";
  TTempFolder Folder;
  WriteWholeFile(Folder / "many.xml", Bytes);
  TTestMap T;
  T.Map.AddLandMark(1, 1, 1);
  TextFile F;
  F.Reset(Folder / "many.xml");
  const test::TNoLargeMemory Low(100000);
  EXPECT_EQ(ErrorOf<EZAVGeoMapError>([&] { T.Map.ReadLandMarksFromOpenXMLFile(F, ""); }),
            "Component \"GeoMap1\": insufficient memory");
  EXPECT_EQ(T.Map.NumLandMarks(), 1);
}

// --- any bytes -----------------------------------------------------------------------------------

TEST(LandMarkFile, DamagedFiles) {
  int Files = 0;
  for (const auto& Entry : std::filesystem::directory_iterator(ZAVGEO_CORPUS "/fuzz_landmarks")) {
    const std::string Bytes = ReadWholeTextFile(Entry.path().string());
    EXPECT_EQ(test::CheckLandMarkBytes(Bytes), "") << Entry.path();
    TRandom Random(static_cast<uint64_t>(++Files));
    for (int Round = 0; Round < 300; ++Round) {
      std::string Damaged = Bytes;
      for (uint64_t K = Random.Next() % 3; K < 3; ++K) {
        const size_t At = Random.Next() % Damaged.size();
        if (Random.Next() % 2 == 0) Damaged[At] = "\"<>/ =\0\n1-"[Random.Next() % 10];
        if (Random.Next() % 8 == 0) Damaged.erase(At, 1 + Random.Next() % 40);
        if (Damaged.empty()) break;
      }
      ASSERT_EQ(test::CheckLandMarkBytes(Damaged), "") << Damaged;
    }
  }
  EXPECT_GE(Files, 4);
}

}  // namespace
}  // namespace zav
