// calib_file_writer.cpp - writing of calibration files.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include <geomap/calibration/calib_file.h>
#include <geomap/landmarks/xml_records.h>
#include <platform/base/text.h>
#include <platform/base/text_format.h>

namespace zav {
namespace {

// Indexed by TCalibModel. These words are in files: do not change them.
constexpr std::array<std::string_view, 7> ModelKeywords{
    "parabolicip", "biquadraticpn", "conicconformal", "millercylindrical",
    "equirect",    "utm",           "undefined"};

std::string Degrees(double Value) { return FormatFixedNumber(Value, 1, 5); }

// A corner that the model could not compute must not make the file unreadable.
std::string Corner(double Value) { return Degrees(std::isfinite(Value) ? Value : 0); }

void CheckText(const std::string& Text, const char* What, const std::string& ErrorPrefix) {
  if (IsRecordText(Text)) return;
  throw EZAVGeoMapError(ErrorPrefix + What +
                        " holds a double quote, a line break or a NUL, which a calibration file "
                        "cannot store");
}

void CheckNumber(double Value, const std::string& ErrorPrefix) {
  if (std::isfinite(Value)) return;
  throw EZAVGeoMapError(ErrorPrefix +
                        "a calibration item holds a number that is not finite, which a calibration "
                        "file cannot store");
}

void CheckStorable(const std::string& Id, const TCalibData& Data, const std::string& ErrorPrefix) {
  CheckText(Id, "the id", ErrorPrefix);
  CheckText(Data.MapFName, "the map name", ErrorPrefix);
  CheckText(Data.Caption, "the caption", ErrorPrefix);
  bool CountsValid = Data.NumCalLines >= 0 && Data.NumCalLines <= MaxCalLines &&
                     Data.NumCalQuads >= 0 && Data.NumCalQuads <= MaxCalQuads;
  for (int32_t I = 0; CountsValid && I < Data.NumCalLines; ++I) {
    const TCalibLine& Line = Data.CalLines[static_cast<size_t>(I)];
    CountsValid = Line.NumPoints >= 0 && Line.NumPoints <= MaxCalLinePoints;
    CheckNumber(Line.LineValue, ErrorPrefix);
  }
  if (!CountsValid) throw EZAVGeoMapError(ErrorPrefix + "invalid number of calibration items");
  for (int32_t I = 0; I < Data.NumCalQuads; ++I) {
    CheckNumber(Data.CalQuads[static_cast<size_t>(I)].Latitude, ErrorPrefix);
    CheckNumber(Data.CalQuads[static_cast<size_t>(I)].Longitude, ErrorPrefix);
  }
}

// The element under construction.
class TElementText {
 public:
  void Line(std::string_view Text) { FText.append(Text).append("\r\n"); }

  void Value(std::string_view Tag, std::string_view Content) {
    FText.append("<").append(Tag).append(">").append(Content);
    FText.append("</").append(Tag).append(">\r\n");
  }

  std::string Take() { return std::move(FText); }

 private:
  std::string FText;
};

void AppendHead(TElementText& Text, const TCalibData& Data) {
  Text.Line("<corners>");
  std::string Corners;
  for (const TCoords& Each : Data.Corners) {
    Corners += "[" + Corner(Each.Latit) + "," + Corner(Each.Longit) + "] ";
  }
  Text.Line(Corners);
  Text.Line("</corners>");
  if (Data.Resolution > 0 && std::isfinite(Data.Resolution)) {
    Text.Value("resolution", FormatFixedNumber(Data.Resolution, 1, 3));
  }
  // Zone 60 is left out on purpose: programs that read these files have always taken it as not set.
  if (Data.UTMZone >= 1 && Data.UTMZone < 60) {
    Text.Value("utmzone", IntegerText(Data.UTMZone));
    Text.Value("utmsouth", BoolToText(Data.UTMSouth, 0));
  }
  const auto Ellipsoid = static_cast<size_t>(Data.Ellipsoid);
  Text.Value("ellipsoid", GeoEllipsoidId[Ellipsoid < NumGeoEllipsoids ? Ellipsoid : 0]);
}

void AppendLine(TElementText& Text, const TCalibLine& Line) {
  const bool IsParallel = Line.LineType == TGratLineKind::gtlParallel;
  Text.Line(std::string("<calline type=\"") + (IsParallel ? "parallel" : "meridian") +
            "\" value=\"" + ShortestNumber(Line.LineValue) + "\" npoints=\"" +
            IntegerText(Line.NumPoints) + "\">");
  std::string Points;
  for (int32_t I = 0; I < Line.NumPoints; ++I) {
    const TPoint P = Line.CalPoints[static_cast<size_t>(I)];
    Points += "[" + IntegerText(P.X) + "," + IntegerText(P.Y) + "] ";
  }
  Text.Line(Points);
  Text.Line("</calline>");
}

void AppendQuads(TElementText& Text, const TCalibData& Data) {
  Text.Line("<calquads npoints=\"" + IntegerText(Data.NumCalQuads) + "\">");
  std::string Points;
  for (int32_t I = 0; I < Data.NumCalQuads; ++I) {
    const TCalQuad& Quad = Data.CalQuads[static_cast<size_t>(I)];
    Points += "[" + Degrees(Quad.Latitude) + "," + Degrees(Quad.Longitude) + "," +
              IntegerText(Quad.MapX) + "," + IntegerText(Quad.MapY) + "] ";
  }
  Text.Line(Points);
  Text.Line("</calquads>");
}

// The whole element in memory, so that a refused text or number leaves nothing behind.
std::string ElementText(bool WithHeader, const std::string& Id, const TCalibData& Data,
                        TCalibModel Model, const std::string& ErrorPrefix) {
  CheckStorable(Id, Data, ErrorPrefix);
  TElementText Text;
  if (WithHeader) Text.Line("<?xml version=\"1.0\"?>");
  Text.Line("");
  Text.Line("<!-- TGeoMap Calibration / Tarvoline -->");
  Text.Line("<geomap sig=\"Tarvoline\" vers=\"1.0\" id=\"" + Id + "\" model=\"" +
            std::string(CalibModelKeyword(Model)) + "\" map=\"" + Data.MapFName + "\" caption=\"" +
            Data.Caption + "\">");
  AppendHead(Text, Data);
  for (int32_t I = 0; I < Data.NumCalLines; ++I) {
    AppendLine(Text, Data.CalLines[static_cast<size_t>(I)]);
  }
  if (Data.NumCalQuads > 0) AppendQuads(Text, Data);
  Text.Line("</geomap>");
  return Text.Take();
}

}  // namespace

std::string_view CalibModelKeyword(TCalibModel Model) noexcept {
  return ModelKeywords[std::min(static_cast<size_t>(Model), ModelKeywords.size() - 1)];
}

std::optional<TCalibModel> FindCalibModel(std::string_view Keyword) noexcept {
  for (size_t I = 0; I < ModelKeywords.size(); ++I) {
    if (SameText(ModelKeywords[I], Keyword)) return static_cast<TCalibModel>(I);
  }
  return std::nullopt;
}

void WriteRawCalDataToOpenXMLFile(TextFile& F, bool WithHeader, const std::string& Id,
                                  const TCalibData& Data, TCalibModel Model,
                                  const std::string& ErrorPrefix) {
  F.Write(ElementText(WithHeader, Id, Data, Model, ErrorPrefix));
}

void WriteCalDataToStream(TStream& S, const std::string& Id, const TCalibData& Data,
                          TCalibModel Model, const std::string& ErrorPrefix) {
  const std::string Text = ElementText(true, Id, Data, Model, ErrorPrefix);
  S.Write(Text.data(), Text.size());
}

void SaveCalData(const std::string& FileName, const std::string& Id, const TCalibData& Data,
                 TCalibModel Model, const std::string& ErrorPrefix) {
  WriteWholeFile(FileName, ElementText(true, Id, Data, Model, ErrorPrefix));
}

}  // namespace zav
