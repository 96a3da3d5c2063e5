// calib_file_test.cpp - calibration files: the page's example, round trips, damage, failing disks.
// SPDX-License-Identifier: MIT
#include <geomap/calibration/calib_file.h>

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>

#include "calibration_check.h"
#include "support/failing_file_ops.h"
#include "support/temp_folder.h"

namespace zav {
namespace {

using enum TCalibModel;
using enum TGratLineKind;
using test::BytesOf;
using test::StreamOf;

constexpr char CountReason[] =
    "specified number of calibration points and actual number does not match";

std::string ReadBytes(const std::string& Path) {
  std::ifstream File(Path, std::ios::binary);
  EXPECT_TRUE(File) << Path;
  return {std::istreambuf_iterator<char>(File), {}};
}

void WriteBytes(const std::string& Path, const std::string& Bytes) {
  std::ofstream(Path, std::ios::binary) << Bytes;
}

// The block between ```xml and ``` of the format page, with the line ends of a file.
std::string ExampleOfThePage() {
  const std::string Page = ReadBytes(ZAVGEO_SOURCE "/docs/formats/calibration.md");
  const size_t Start = Page.find("```xml\n") + 7;
  std::string Text;
  for (const char C : Page.substr(Start, Page.find("```", Start) - Start)) {
    if (C == '\n') Text += '\r';
    Text += C;
  }
  return Text;
}

TCalibData ExampleData() {
  TCalibData Data;
  Data.MapFName = "alps_utm32n.jpg";
  Data.Caption = "Alps, 1:1 Mio";
  Data.Corners = {{{48.65, 5.9}, {44.6, 6.1}, {44.6, 12}, {48.6, 12.25}}};
  Data.Resolution = 290.125;
  Data.UTMZone = 32;
  Data.NumCalLines = 1;
  Data.CalLines[0] = {gtlParallel, 47.25, 2, {{{279, 455}, {793, 454}}}};
  Data.NumCalQuads = 3;
  Data.CalQuads[0] = {5318235.614, 350812.125, 279, 169};
  Data.CalQuads[1] = {5316300.224, 500000, 793, 168};
  Data.CalQuads[2] = {5094207.25, 343850.875, 252, 941};
  return Data;
}

std::string Written(const TCalibData& Data, TCalibModel Model, const std::string& Id = "") {
  TMemoryStream Stream;
  WriteCalDataToStream(Stream, Id, Data, Model, "P: ");
  return BytesOf(Stream);
}

std::string Element(const std::string& Id, const std::string& Body,
                    const std::string& Model = "equirect") {
  return "<geomap sig=\"Tarvoline\" vers=\"1.0\" id=\"" + Id + "\" model=\"" + Model + "\" map=\"" +
         Id + ".jpg\" caption=\"\">\n" + Body + "\n</geomap>\n";
}

TEST(CalibFile, WritesAndReadsTheExampleOfThePage) {
  const std::string Want = ExampleOfThePage();
  ASSERT_GT(Want.size(), 500u);
  TTempFolder Folder;
  const std::string Path = Folder / "alps.xml";
  SaveCalData(Path, "alps", ExampleData(), cmUTM, "");
  EXPECT_EQ(ReadBytes(Path), Want);
  EXPECT_EQ(Written(ExampleData(), cmUTM, "alps"), Want);

  TCalibData Data;
  TCalibModel Model = cmUndefined;
  ASSERT_TRUE(ParseCalibData(Path, "ALPS", Data, Model));
  TCalibData Lower = ExampleData();
  Lower.Caption = "alps, 1:1 mio";
  EXPECT_EQ(Data, Lower);
  EXPECT_EQ(Model, cmUTM);
  EXPECT_THROW(ParseCalibData(Folder / "none.xml", "", Data, Model), EInOutError);

  // Without the first line, as a part of a larger file.
  TextFile F;
  F.Rewrite(Path);
  F.WriteLn("<maps>");
  WriteRawCalDataToOpenXMLFile(F, false, "alps", ExampleData(), cmUTM);
  F.Close();
  EXPECT_EQ(ReadBytes(Path), "<maps>\r\n" + Want.substr(Want.find("\r\n") + 2));
  // What was there is put back in place without an image being anywhere near.
  TCalibration C;
  ASSERT_TRUE(LoadCalibration(Path, "", C));
  EXPECT_EQ(C.Data(), Lower);
  double DX = 0, DY = 0;
  EXPECT_TRUE(C.Residual(1, DX, DY));
  EXPECT_NEAR(DX, 0, 1e-6);
}

TEST(CalibFile, RandomCalibrationsComeBack) {
  std::mt19937 Random(1);
  const auto Int = [&](int Low, int High) {
    return std::uniform_int_distribution<int>(Low, High)(Random);
  };
  const auto Double = [&] {
    return std::uniform_real_distribution<double>(-1, 1)(Random) * std::pow(10.0, Int(-8, 12));
  };
  for (int Round = 0; Round < 300; ++Round) {
    TCalibData Data;
    const auto Model = static_cast<TCalibModel>(Round % 7);
    Data.MapFName = Round % 2 == 0 ? "karte \xC3\xA4\xC3\xB6.jpg" : "";  // in lower case
    Data.Caption = "\xD0\xBC\xD0\xBE\xD1\x81\xD0\xBA\xD0\xB2\xD0\xB0 <>&='";
    for (TCoords& Corner : Data.Corners) Corner = {Double(), Double()};
    Data.Resolution = Double();
    Data.UTMZone = Round % 62 - 1;
    Data.UTMSouth = Int(0, 1) == 1;
    Data.Ellipsoid = static_cast<TGeoEllipsoid>(Round % 61);
    Data.NumCalLines = Int(0, 3) == 0 ? 25 : Int(0, 5);
    for (size_t I = 0; I < static_cast<size_t>(Data.NumCalLines); ++I) {
      TCalibLine& Line = Data.CalLines[I];
      Line = {Int(0, 1) == 0 ? gtlMeridian : gtlParallel, Double(), Int(0, 10), {}};
      for (size_t J = 0; J < static_cast<size_t>(Line.NumPoints); ++J) {
        Line.CalPoints[J] = {static_cast<int32_t>(Random()), static_cast<int32_t>(Random())};
      }
    }
    Data.NumCalQuads = Int(0, 3) == 0 ? 200 : Int(0, 9);
    for (size_t I = 0; I < static_cast<size_t>(Data.NumCalQuads); ++I) {
      Data.CalQuads[I] = {Double(), Double(), static_cast<int32_t>(Random()), Int(-9, 9999)};
    }
    TMemoryStream Stream = StreamOf(Written(Data, Model));
    TCalibData Again;
    TCalibModel ModelAgain = cmUTM;
    ASSERT_TRUE(ParseCalibData(Stream, "", Again, ModelAgain));
    EXPECT_TRUE(test::SameInFile(Data, Again)) << Round;
    EXPECT_EQ(ModelAgain, Model == cmParabolicIp ? cmUndefined : Model);
  }
}

TEST(CalibFile, TheIdChoosesAmongSeveral) {
  const std::string Bytes = "<?xml version=\"1.0\"?>\n<geomap sig=\"other\" id=\"b\">\n" +
                            Element(" a ", "<resolution>1</resolution>") +
                            "<gmlandmarks sig=\"Tarvoline\" id=\"b\"></gmlandmarks>\n" +
                            Element("B", "<resolution>2</resolution>", "UTM") +
                            Element("\xC3\x84", "<resolution>3</resolution>");
  const struct {
    const char* Id;
    double Resolution;  // 0 = not found
    const char* Map;
  } Cases[] = {{"", 1, " a .jpg"}, {"A", 1, " a .jpg"},
               {"b", 2, "b.jpg"},  {"\xC3\xA4", 3, "\xC3\xA4.jpg"},
               {"c", 0, "keep"},   {"b\"", 0, "keep"}};
  for (const auto& Case : Cases) {
    TMemoryStream Stream = StreamOf(Bytes);
    TCalibData Data;
    Data.MapFName = "keep";
    TCalibModel Model = cmConicConformal;
    EXPECT_EQ(ParseCalibData(Stream, Case.Id, Data, Model), Case.Resolution > 0) << Case.Id;
    EXPECT_EQ(Data.Resolution, Case.Resolution) << Case.Id;
    EXPECT_EQ(Data.MapFName, Case.Map);
    EXPECT_EQ(Model, Case.Resolution == 0   ? cmConicConformal
                     : Case.Resolution == 2 ? cmUTM
                                            : cmEquiRect);
  }
}

// Elements in a file that something else wrote, and what is to be found in the record.
TEST(CalibFile, ReadsWhatThePageAllows) {
  const struct {
    const char* Body;
    std::function<bool(const TCalibData&)> Holds;
  } Cases[] = {
      {"<corners>[1.5,2][3,4] x [5,6]\r[7,8.25] [9,10]</corners>",
       [](const auto& D) {
         return D.Corners == TCornerArray{{{1.5, 2}, {3, 4}, {5, 6}, {7, 8.25}}};
       }},
      {"<corners>[1,2]</corners>",
       [](const auto& D) { return D.Corners[0].Longit == 2 && D.Corners[1] == TCoords(); }},
      {"<resolution>12,5e1</resolution>", [](const auto& D) { return D.Resolution == 125; }},
      {"<utmzone>60</utmzone><utmsouth>True</utmsouth>",
       [](const auto& D) { return D.UTMZone == 60 && D.UTMSouth; }},
      {"<utmsouth>yes</utmsouth>", [](const auto& D) { return D.UTMZone == -1 && !D.UTMSouth; }},
      {"<ellipsoid>GELNAHRWAN29</ellipsoid>",
       [](const auto& D) { return D.Ellipsoid == TGeoEllipsoid::gelNahrwan29; }},
      {"<ellipsoid>gelGRS80</ellipsoid><ellipsoid>WGS</ellipsoid>",
       [](const auto& D) { return D.Ellipsoid == TGeoEllipsoid::gelWGS84; }},
      {"<!-- <resolution>3</resolution> --><unknown a=\"1\"/>\n<CALLINE NPOINTS = \"1\"\n  "
       "Value=50,5\n\ttype=\"Parallel\" >\n[ -7 , 8 ]\n</CALLINE>",
       [](const auto& D) {
         return D.Resolution == 0 && D.NumCalLines == 1 && D.CalLines[0].LineValue == 50.5 &&
                D.CalLines[0].CalPoints[0] == TPoint{-7, 8};
       }},
      {"<calline type=\"meridian\" npoints=\"0\">] [1,2]</calline>",
       [](const auto& D) { return D.NumCalLines == 1 && D.CalLines[0].NumPoints == 0; }},
      {"<calquads npoints=\"2\">[1,2,3,4][5,6,7,8]</calquads>"
       "<calquads npoints=\"1\">[9e-1,1,2.7,-3]</calquads>",
       [](const auto& D) {
         return D.NumCalQuads == 1 && D.CalQuads[0] == TCalQuad{0.9, 1, 2, -3} &&
                D.CalQuads[1] == TCalQuad();
       }}};
  for (const auto& Case : Cases) {
    TMemoryStream Stream = StreamOf(Element("", Case.Body));
    TCalibData Data;
    TCalibModel Model = cmUndefined;
    ASSERT_TRUE(ParseCalibData(Stream, "", Data, Model)) << Case.Body;
    EXPECT_TRUE(Case.Holds(Data)) << Case.Body;
  }
}

TEST(CalibFile, DamageIsTold) {
  const std::string Type = "invalid type of graticule line: type=";
  const struct {
    const char* File;
    std::string Reason;  // empty: accepted
    int Lines, Quads;    // what is read before
  } Cases[] = {{"type_unknown.xml", Type + "\"Circle\"", 1, 0},
               {"type_missing.xml", Type + "\"\"", 0, 0},
               {"line_count_low.xml", CountReason, 2, 0},
               {"line_count_high.xml", CountReason, 1, 0},
               {"line_count_huge.xml", CountReason, 1, 0},
               {"line_count_negative.xml", CountReason, 1, 0},
               {"line_count_missing.xml", CountReason, 1, 0},
               {"line_eleven_points.xml", CountReason, 1, 0},
               {"lines_26.xml", CountReason, 25, 0},
               {"quads_201.xml", CountReason, 0, 200},
               {"quads_count_low.xml", CountReason, 0, 2},
               {"quads_count_negative.xml", CountReason, 0, 0},
               {"cut_in_tag.xml", CountReason, 1, 0},
               {"junk_numbers.xml", CountReason, 0, 0},
               {"header_only.xml", "", 0, 0},
               {"nul_bytes.xml", "", 0, 1},
               {"not_utf8.xml", "", 0, 0}};
  for (const auto& Case : Cases) {
    const std::string Path = std::string(ZAVGEO_TEST_DATA "/calibration/") + Case.File;
    TCalibData Data;
    Data.UTMSouth = true;
    TCalibModel Model = cmUndefined;
    std::string Message;
    try {
      EXPECT_TRUE(ParseCalibData(Path, "", Data, Model)) << Case.File;
    } catch (const EZAVGeoMapError& Error) {
      Message = Error.what();
    }
    EXPECT_EQ(Message, Case.Reason.empty() ? "" : "ParseCalibData: " + Case.Reason) << Case.File;
    EXPECT_EQ(Data.NumCalLines, Case.Lines) << Case.File;
    EXPECT_EQ(Data.NumCalQuads, Case.Quads) << Case.File;
    EXPECT_FALSE(Data.UTMSouth);

    // The control's reader: another prefix, the same record, cleared fits.
    TCalibration C;
    C.SetModel(cmEquiRect);
    C.AddCalibPoint(1, 2, 3, 4);
    TMemoryStream Stream = StreamOf(ReadBytes(Path));
    Message.clear();
    try {
      EXPECT_TRUE(ReadCalibration(Stream, "", C, "Component \"Map1\": ").HeaderFound);
    } catch (const EZAVGeoMapError& Error) {
      Message = Error.what();
    }
    EXPECT_EQ(Message, Case.Reason.empty() ? "" : "Component \"Map1\": " + Case.Reason);
    EXPECT_EQ(C.Data(), Data) << Case.File;
    EXPECT_EQ(C.Model(), Model);
    EXPECT_FALSE(C.IsFitted());
  }
}

TEST(CalibFile, TellsWhetherTheGraticuleIsComplete) {
  std::string Body;
  for (const char* Type : {"meridian", "parallel"}) {
    for (const char* Value : {"10", "20"}) {
      Body += std::string("<calline type=\"") + Type + "\" value=\"" + Value +
              "\" npoints=\"3\">[0," + Value + "0] [" + Value + "0,100] [100,500]</calline>\n";
    }
  }
  TTempFolder Folder;
  for (const auto& [Lines, Complete] : {std::pair(Body, true), std::pair(Body.substr(90), false)}) {
    TCalibration C;
    TMemoryStream Stream = StreamOf(Element("", Lines, "parabolicip"));
    const TCalibReadResult Result = ReadCalibration(Stream, "", C, "");
    EXPECT_TRUE(Result.HeaderFound);
    EXPECT_EQ(Result.GraticuleComplete, Complete);
    EXPECT_EQ(C.GratMat().NumRows(), Complete ? 4 : 1);
    EXPECT_EQ(C.Model(), cmUndefined);
    // Programs take a complete graticule of no model for a parabolic calibration.
    WriteBytes(Folder / "map.xml", Element("", Lines, "parabolicip"));
    EXPECT_TRUE(LoadCalibration(Folder / "map.xml", "", C));
    EXPECT_EQ(C.Model(), Complete ? cmParabolicIp : cmUndefined);
    EXPECT_EQ(C.IsFitted(), Complete);
    EXPECT_FALSE(LoadCalibration(Folder / "map.xml", "other", C));
  }
}

TEST(CalibFile, RefusesWhatTheFormatCannotHold) {
  const struct {
    const char* Reason;
    std::function<void(TCalibData&, std::string&)> Spoil;
  } Cases[] = {
      {"the id holds", [](auto&, auto& Id) { Id = "a\"b"; }},
      {"the map name holds", [](auto& D, auto&) { D.MapFName = "a\nb"; }},
      {"the caption holds", [](auto& D, auto&) { D.Caption = "\r"; }},
      {"the caption holds", [](auto& D, auto&) { D.Caption = std::string(1, '\0'); }},
      {"a calibration item holds", [](auto& D, auto&) { D.CalQuads[2].Latitude = std::nan(""); }},
      {"a calibration item holds", [](auto& D, auto&) { D.CalLines[0].LineValue = HUGE_VAL; }},
      {"invalid number", [](auto& D, auto&) { D.NumCalQuads = 201; }},
      {"invalid number", [](auto& D, auto&) { D.CalLines[0].NumPoints = -1; }}};
  TTempFolder Folder;
  const std::string Path = Folder / "a.xml";
  SaveCalData(Path, "", ExampleData(), cmUTM, "");
  const std::string Before = ReadBytes(Path);
  for (const auto& Case : Cases) {
    TCalibData Data = ExampleData();
    std::string Id;
    Case.Spoil(Data, Id);
    std::string Message;
    try {
      SaveCalData(Path, Id, Data, cmUTM, "Component \"M\": ");
    } catch (const EZAVGeoMapError& Error) {
      Message = Error.what();
    }
    EXPECT_TRUE(Message.starts_with(std::string("Component \"M\": ") + Case.Reason)) << Message;
    EXPECT_EQ(ReadBytes(Path), Before);
  }
  // A corner that could not be computed is no reason to lose the points.
  TCalibData Data = ExampleData();
  Data.Corners[0] = {std::nan(""), HUGE_VAL};
  Data.Resolution = HUGE_VAL;
  EXPECT_NE(Written(Data, cmUTM).find("[0.00000,0.00000] [44.6"), std::string::npos);
  EXPECT_EQ(Written(Data, cmUTM).find("<resolution>"), std::string::npos);
}

TEST(CalibFile, AFailingDiskLeavesTheOldFileWhole) {
  TTempFolder Folder;
  const std::string Path = Folder / "a.xml";
  SaveCalData(Path, "old", ExampleData(), cmUTM, "");
  const std::string Old = ReadBytes(Path);
  TFailingFileOps Ops;
  TFileOpsOverride With(Ops);
  int Failures = 0;
  for (int N = 1; N < 100; ++N) {
    Ops.Arm(N);
    try {
      SaveCalData(Path, "new", ExampleData(), cmUTM, "");
    } catch (const EInOutError&) {
    }
    if (!Ops.Failed()) break;
    ++Failures;
    EXPECT_EQ(ReadBytes(Path), Old) << N;
    EXPECT_EQ(Folder.Names(), std::vector<std::string>{"a.xml"}) << N;
  }
  EXPECT_GE(Failures, 4);
  EXPECT_NE(ReadBytes(Path), Old);
}

TEST(CalibFile, NumbersAreTheSameUnderEveryLocale) {
  int Tried = 0;
  for (const char* Name : {"de_DE.UTF-8", "ru_RU.UTF-8", "tr_TR.UTF-8"}) {
    if (std::setlocale(LC_ALL, Name) == nullptr) continue;
    ++Tried;
    const std::string Bytes = ExampleOfThePage();
    TMemoryStream Stream = StreamOf(Bytes);
    TCalibData Data;
    TCalibModel Model = cmUndefined;
    EXPECT_TRUE(ParseCalibData(Stream, "ALPS", Data, Model)) << Name;
    EXPECT_EQ(Data.CalLines[0].LineValue, 47.25) << Name;
    Data.Caption = "Alps, 1:1 Mio";
    EXPECT_EQ(Written(Data, Model, "alps"), Bytes) << Name;
  }
  std::setlocale(LC_ALL, "C");
  if (Tried == 0) GTEST_SKIP() << "none of the locales de_DE, ru_RU and tr_TR is installed";
}

// Every seed of the fuzz target and every damaged file; and each of them cut short at any byte. A
// file and a stream give the same.
TEST(CalibFile, AnyBytesAreReadSafely) {
  int Files = 0;
  for (const char* Folder :
       {ZAVGEO_TEST_DATA "/calibration", ZAVGEO_SOURCE "/fuzz/corpus/fuzz_calibration"}) {
    for (const auto& Entry : std::filesystem::directory_iterator(Folder)) {
      ++Files;
      const std::string Bytes = ReadBytes(Entry.path().string());
      for (size_t Size = 0; Size <= Bytes.size(); ++Size) {
        const std::string Fault = test::CheckCalibrationBytes(Bytes.substr(0, Size));
        EXPECT_EQ(Fault, "") << Entry.path() << " cut at " << Size;
      }
    }
  }
  EXPECT_GT(Files, 20);
}

}  // namespace
}  // namespace zav
