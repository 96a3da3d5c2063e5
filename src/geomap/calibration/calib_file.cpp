// calib_file.cpp - reading of calibration files.
//
// One reader for text files and streams, for records and for calibrations.
// SPDX-License-Identifier: MIT
#include <geomap/calibration/calib_file.h>

#include <geomap/landmarks/xml_records.h>
#include <platform/base/text.h>
#include <platform/base/text_scan.h>

namespace zav {
namespace {

// Where the opening line and the tags come from.
class TSource {
 public:
  virtual ~TSource() = default;
  virtual bool FindRoot(const std::string& Id, std::string& RootLine) = 0;
  virtual TXmlTag NextTag(std::string& Attributes, std::string& Content) = 0;
};

class TFileSource final : public TSource {
 public:
  explicit TFileSource(TextFile& F) : FFile(F) {}
  bool FindRoot(const std::string& Id, std::string& RootLine) override {
    return FindRootLine(FFile, TXmlTag::Geomap, Id, RootLine);
  }
  TXmlTag NextTag(std::string& Attributes, std::string& Content) override {
    return ReadNextTagInTextFile(FFile, Attributes, Content);
  }

 private:
  TextFile& FFile;
};

class TStreamSource final : public TSource {
 public:
  explicit TStreamSource(TStream& S) : FStream(S) {}
  bool FindRoot(const std::string& Id, std::string& RootLine) override {
    return FindRootLine(FStream, TXmlTag::Geomap, Id, RootLine);
  }
  TXmlTag NextTag(std::string& Attributes, std::string& Content) override {
    return ReadNextTagInStream(FStream, Attributes, Content);
  }

 private:
  TStream& FStream;
};

// The numbers of one "[...]" group, separated by commas. A missing one is 0.
class TGroup {
 public:
  explicit TGroup(std::string_view Text) : FText(Text) {}

  double Float() {
    const double Value = ScanFloat(FText, true, 1, FPos);
    SkipComma();
    return Value;
  }

  int32_t Integer() {
    const int32_t Value = ScanInteger(FText, FPos);
    SkipComma();
    return Value;
  }

 private:
  void SkipComma() {
    const size_t Comma = FText.find(',');
    FText.remove_prefix(Comma == std::string_view::npos ? FText.size() : Comma + 1);
    FPos = 1;
  }

  std::string_view FText;
  int32_t FPos = 1;
};

// Takes the next group from Content: only while a "[" stands before a "]".
bool NextGroup(std::string_view& Content, std::string_view& Group) {
  const size_t Open = Content.find('[');
  const size_t Close = Content.find(']');
  if (Open == std::string_view::npos || Close == std::string_view::npos || Close < Open) {
    return false;
  }
  Group = Content.substr(Open + 1, Close - Open - 1);
  Content.remove_prefix(Close + 1);
  return true;
}

double WholeFloat(std::string_view Text) {
  int32_t Pos = 1;
  return ScanFloat(Text, true, 3, Pos);
}

int32_t WholeInteger(std::string_view Text) {
  int32_t Pos = 1;
  return ScanInteger(Text, Pos);
}

// Reads one element into a record.
class TElementReader {
 public:
  TElementReader(TSource& Source, const std::string& ErrorPrefix, TCalibData& Data,
                 TCalibModel& Model)
      : FSource(Source), FErrorPrefix(ErrorPrefix), FData(Data), FModel(Model) {}

  // Looks for the opening line; model, map name and caption are taken from it.
  bool FindHeader(const std::string& Id);
  // Clears the record and fills it up to the closing tag.
  void ReadBody();

 private:
  [[noreturn]] void Fail(const std::string& Reason) const {
    throw EZAVGeoMapError(FErrorPrefix + Reason);
  }
  [[noreturn]] void FailCount() const {
    Fail("specified number of calibration points and actual number does not match");
  }
  void ReadCorners(std::string_view Content);
  void ReadLine(const std::string& Attributes, std::string_view Content);
  void ReadQuads(const std::string& Attributes, std::string_view Content);

  TSource& FSource;
  const std::string& FErrorPrefix;
  TCalibData& FData;
  TCalibModel& FModel;
};

bool TElementReader::FindHeader(const std::string& Id) {
  std::string RootLine;  // in lower case
  if (!FSource.FindRoot(Id, RootLine)) return false;
  constexpr std::string_view Root = "<geomap";
  const std::string Attributes = RootLine.substr(RootLine.find(Root) + Root.size());
  const auto Model = FindCalibModel(FindAttribute(Attributes, "model"));
  // Programs that read these files have never known this keyword.
  const bool Known = Model.has_value() && *Model != TCalibModel::cmParabolicIp;
  FModel = Known ? *Model : TCalibModel::cmUndefined;
  FData.MapFName = FindAttribute(Attributes, "map");
  FData.Caption = FindAttribute(Attributes, "caption");
  return true;
}

void TElementReader::ReadBody() {
  TCalibData Cleared;
  Cleared.MapFName = FData.MapFName;
  Cleared.Caption = FData.Caption;
  FData = Cleared;
  std::string Attributes;
  std::string Content;
  for (;;) {
    switch (FSource.NextTag(Attributes, Content)) {
      case TXmlTag::EndGeomap:
      case TXmlTag::Invalid:
        return;
      case TXmlTag::Corners:
        ReadCorners(Content);
        break;
      case TXmlTag::Resolution:
        FData.Resolution = WholeFloat(Content);
        break;
      case TXmlTag::UtmZone:
        FData.UTMZone = WholeInteger(Content);
        break;
      case TXmlTag::UtmSouth:
        FData.UTMSouth = LowerCase(Content) == "true";
        break;
      case TXmlTag::Ellipsoid:
        FData.Ellipsoid = GeoEllipsoidFromId(Content);
        break;
      case TXmlTag::CalLine:
        ReadLine(Attributes, Content);
        break;
      case TXmlTag::CalQuads:
        ReadQuads(Attributes, Content);
        break;
      default:
        break;
    }
  }
}

void TElementReader::ReadCorners(std::string_view Content) {
  FData.Corners = {};
  std::string_view Text;
  for (size_t K = 0; K < FData.Corners.size() && NextGroup(Content, Text); ++K) {
    TGroup Group(Text);
    FData.Corners[K].Latit = Group.Float();
    FData.Corners[K].Longit = Group.Float();
  }
}

void TElementReader::ReadLine(const std::string& Attributes, std::string_view Content) {
  if (FData.NumCalLines >= MaxCalLines) FailCount();
  const std::string Type = FindAttribute(Attributes, "type");
  const bool IsParallel = SameText(Type, "parallel");
  if (!IsParallel && !SameText(Type, "meridian")) {
    Fail("invalid type of graticule line: type=\"" + Type + "\"");
  }
  TCalibLine& Line = FData.CalLines[static_cast<size_t>(FData.NumCalLines++)];
  Line.LineType = IsParallel ? TGratLineKind::gtlParallel : TGratLineKind::gtlMeridian;
  Line.LineValue = WholeFloat(FindAttribute(Attributes, "value"));
  std::string_view Text;
  while (NextGroup(Content, Text)) {
    if (Line.NumPoints >= MaxCalLinePoints) FailCount();
    TGroup Group(Text);
    TPoint& P = Line.CalPoints[static_cast<size_t>(Line.NumPoints++)];
    P.X = Group.Integer();
    P.Y = Group.Integer();
  }
  if (Line.NumPoints != WholeInteger(FindAttribute(Attributes, "npoints"))) FailCount();
}

void TElementReader::ReadQuads(const std::string& Attributes, std::string_view Content) {
  FData.NumCalQuads = 0;
  FData.CalQuads = {};
  std::string_view Text;
  while (NextGroup(Content, Text)) {
    if (FData.NumCalQuads >= MaxCalQuads) FailCount();
    TGroup Group(Text);
    TCalQuad& Quad = FData.CalQuads[static_cast<size_t>(FData.NumCalQuads++)];
    Quad.Latitude = Group.Float();
    Quad.Longitude = Group.Float();
    Quad.MapX = Group.Integer();
    Quad.MapY = Group.Integer();
  }
  if (FData.NumCalQuads != WholeInteger(FindAttribute(Attributes, "npoints"))) FailCount();
}

bool ParseFrom(TSource& Source, const std::string& Id, TCalibData& Data, TCalibModel& Model) {
  const std::string ErrorPrefix = "ParseCalibData: ";
  TElementReader Reader(Source, ErrorPrefix, Data, Model);
  if (!Reader.FindHeader(Id)) return false;
  Reader.ReadBody();
  return true;
}

TCalibReadResult ReadFrom(TSource& Source, const std::string& Id, TCalibration& Calibration,
                          const std::string& ErrorPrefix) {
  TCalibData Data;
  TCalibModel Model = TCalibModel::cmUndefined;
  TElementReader Reader(Source, ErrorPrefix, Data, Model);
  if (!Reader.FindHeader(Id)) return {};
  try {
    Reader.ReadBody();
  } catch (...) {
    Calibration.SetDataUnfitted(Data, Model);
    throw;
  }
  Calibration.SetDataUnfitted(Data, Model);
  return {true, Calibration.RecalcGratMat()};
}

}  // namespace

bool ParseCalibData(const std::string& FileName, const std::string& Id, TCalibData& Data,
                    TCalibModel& Model) {
  TextFile F;
  F.Reset(FileName);
  TFileSource Source(F);
  return ParseFrom(Source, Id, Data, Model);
}

bool ParseCalibData(TMemoryStream& S, const std::string& Id, TCalibData& Data, TCalibModel& Model) {
  TStreamSource Source(S);
  return ParseFrom(Source, Id, Data, Model);
}

TCalibReadResult ReadCalibration(TextFile& F, const std::string& Id, TCalibration& Calibration,
                                 const std::string& ErrorPrefix) {
  TFileSource Source(F);
  return ReadFrom(Source, Id, Calibration, ErrorPrefix);
}

TCalibReadResult ReadCalibration(TStream& S, const std::string& Id, TCalibration& Calibration,
                                 const std::string& ErrorPrefix) {
  TStreamSource Source(S);
  return ReadFrom(Source, Id, Calibration, ErrorPrefix);
}

bool LoadCalibration(const std::string& FileName, const std::string& Id,
                     TCalibration& Calibration) {
  TextFile F;
  F.Reset(FileName);
  const TCalibReadResult Result = ReadCalibration(F, Id, Calibration, FileName + ": ");
  if (!Result.HeaderFound) return false;
  const bool Parabolic =
      Calibration.Model() == TCalibModel::cmUndefined && Result.GraticuleComplete;
  const TCalibData Data = Calibration.Data();
  Calibration.SetData(Data, Parabolic ? TCalibModel::cmParabolicIp : Calibration.Model());
  return true;
}

}  // namespace zav
