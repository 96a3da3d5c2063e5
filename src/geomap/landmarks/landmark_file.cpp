// landmark_file.cpp - see landmark_file.h.
// SPDX-License-Identifier: MIT
#include <geomap/landmarks/landmark_file.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include <geomap/landmarks/record_attributes.h>
#include <platform/base/text.h>
#include <platform/base/text_format.h>
#include <platform/base/text_scan.h>

namespace zav {
namespace {

// The attributes in the order in which they are written. The names are in files: do not change
// them.
enum TField : size_t {
  Lat,
  Long,
  Alti,
  Class,
  UserTag,
  ColorFG,
  ColorBG,
  Size,
  Transp,
  Dir,
  Leng,
  Element,
  Id,
  Date,
  CapText,
  CapSize,
  CapFnm,
  CapFGCol,
  CapBGCol,
  CapTransp,
  CapDir,
  CapDx,
  CapDy,
  CapHAl,
  CapVAl,
  CapFSt
};
constexpr std::array<std::string_view, 26> FieldNames = {
    "lat",     "long",    "alti",   "class",    "usertag",  "colorfg",   "colorbg",
    "size",    "transp",  "dir",    "leng",     "element",  "id",        "date",
    "captext", "capsize", "capfnm", "capfgcol", "capbgcol", "captransp", "capdir",
    "capdx",   "capdy",   "caphal", "capval",   "capfst"};

constexpr std::string_view DateFormat = "yyyymmddHHMMSS";

constexpr std::array<TFontStyles, 4> StylesInOrder = {fsBold, fsItalic, fsUnderline, fsStrikeOut};

// --- reading

TFontStyles StylesOf(std::string_view Digits) noexcept {
  TFontStyles Styles = 0;
  for (size_t I = 0; I < std::min(Digits.size(), StylesInOrder.size()); ++I) {
    if (Digits[I] == '1') Styles = static_cast<TFontStyles>(Styles | StylesInOrder[I]);
  }
  return Styles;
}

// The ordinal 0, 1 or 2 of an alignment.
template <typename TAlignment>
TAlignment AlignmentOf(int32_t Ordinal) noexcept {
  return static_cast<TAlignment>(Ordinal >= 0 && Ordinal <= 2 ? Ordinal : 0);
}

TLandMark LandMarkOf(const TRecordAttributes& A) {
  TLandMark LM;
  LM.Latitude = A.Real(Lat);
  LM.Longitude = A.Real(Long);
  LM.Altitude = A.Real(Alti);
  LM.ClassFlag = static_cast<uint8_t>(A.Integer(Class) & 0xFF);
  LM.Tag = A.Integer(UserTag);
  LM.SymbolProps = {A.Element(Element), A.Integer(Size), A.Color(ColorFG), A.Color(ColorBG),
                    A.Flag(Transp),     A.Integer(Dir),  A.Integer(Leng)};
  LM.Identifier = A.Text(Id);
  int32_t Pos = 1;
  LM.Time = ScanDateTime(A.Text(Date), DateFormat, Pos);
  LM.Caption = {A.Text(CapText),
                A.Integer(CapSize),
                A.Text(CapFnm),
                StylesOf(A.Text(CapFSt)),
                A.Color(CapFGCol),
                A.Color(CapBGCol),
                A.Flag(CapTransp),
                A.Integer(CapDx),
                A.Integer(CapDy),
                A.Integer(CapDir),
                AlignmentOf<THorizontalAlignment>(A.Integer(CapHAl)),
                AlignmentOf<TVerticalAlignment>(A.Integer(CapVAl))};
  return LM;
}

TXmlTag NextTag(TextFile& F, std::string& Attributes, std::string& Contents) {
  return ReadNextTagInTextFile(F, Attributes, Contents);
}
TXmlTag NextTag(TStream& S, std::string& Attributes, std::string& Contents) {
  return ReadNextTagInStream(S, Attributes, Contents);
}

template <typename TSource>
bool ReadFrom(TSource& Source, std::string_view DataID, TLandMarkList& List) {
  std::string Text;
  if (!FindRootLine(Source, TXmlTag::GmLandmarks, DataID, Text)) return false;
  TLandMarkList Read;
  TRecordAttributes Attributes(FieldNames);
  std::string Contents;
  for (;;) {
    const TXmlTag Tag = NextTag(Source, Text, Contents);
    if (Tag == TXmlTag::EndGeomap || Tag == TXmlTag::Invalid) break;
    if (Tag != TXmlTag::Landmark) continue;
    Attributes.Read(Text);
    Read.Append(LandMarkOf(Attributes));
  }
  List = std::move(Read);
  return true;
}

// --- writing

std::string DateText(TDateTime Time) {
  const TDateTimeParts P = DecodeDateTime(Time);
  std::string Text;
  const auto Put = [&](int32_t Value, size_t Digits) {
    const std::string Number = IntegerText(Value);
    Text.append(Digits - std::min(Digits, Number.size()), '0').append(Number);
  };
  Put(P.Year, 4);
  for (const int32_t Value : {P.Month, P.Day, P.Hour, P.Minute, P.Second}) Put(Value, 2);
  return Text;
}

// What cannot be told as a date comes back as the parts of 0, which is only right near 0.
bool HasDate(TDateTime Time) noexcept {
  return std::fabs(Time) < 1 || !(DecodeDateTime(Time) == TDateTimeParts());
}

void CheckStorable(const TLandMark& LM, const std::string& Prefix) {
  CheckRecordText(LM.Identifier.View(), Prefix, "the identifier");
  CheckRecordText(LM.Caption.Text.View(), Prefix, "the caption");
  CheckRecordText(LM.Caption.FontName, Prefix, "the font name");
  if (!std::isfinite(LM.Latitude) || !std::isfinite(LM.Longitude) || !std::isfinite(LM.Altitude)) {
    throw EZAVGeoMapError(Prefix +
                          "the position holds a number that is not finite, which the file cannot "
                          "store");
  }
  if (!HasDate(LM.Time)) {
    throw EZAVGeoMapError(Prefix + "the time is outside of the years 1 to 9999");
  }
}

void CheckStorable(const std::string& DataID, const TLandMarkList& List,
                   const std::string& ErrorPrefix) {
  CheckRecordText(DataID, ErrorPrefix, "the id");
  for (int32_t Index = 1; Index <= List.Count(); ++Index) {
    const TLandMark& LM = List[Index];
    CheckStorable(LM, ErrorPrefix + "landmark " + IntegerText(Index) + ": ");
  }
}

void PutLine(TRecordLine& Line, const TLandMark& LM) {
  const TSymbolProperties& Symbol = LM.SymbolProps;
  const TLMTextProperties& Caption = LM.Caption;
  const auto Name = [](TField Field) { return FieldNames[Field]; };
  Line.Begin(TXmlTag::Landmark);
  Line.Real(Name(Lat), LM.Latitude);
  Line.Real(Name(Long), LM.Longitude);
  Line.Real(Name(Alti), LM.Altitude);
  Line.Integer(Name(Class), LM.ClassFlag);
  Line.Integer(Name(UserTag), LM.Tag);
  Line.Color(Name(ColorFG), Symbol.FGColor);
  Line.Color(Name(ColorBG), Symbol.BGColor);
  Line.Integer(Name(Size), Symbol.Size);
  Line.Flag(Name(Transp), Symbol.Transparent);
  Line.Integer(Name(Dir), Symbol.Direction);
  Line.Integer(Name(Leng), Symbol.Length);
  Line.Text(Name(Element), LowerCase(LMTypeName(Symbol.Kind)));
  Line.Text(Name(Id), LM.Identifier.View());
  Line.Text(Name(Date), DateText(LM.Time));
  Line.Text(Name(CapText), Caption.Text.View());
  Line.Integer(Name(CapSize), Caption.Size);
  Line.Text(Name(CapFnm), Caption.FontName);
  Line.Color(Name(CapFGCol), Caption.FGColor);
  Line.Color(Name(CapBGCol), Caption.BGColor);
  Line.Flag(Name(CapTransp), Caption.Transparent);
  Line.Integer(Name(CapDir), Caption.Direction);
  Line.Integer(Name(CapDx), Caption.dx);
  Line.Integer(Name(CapDy), Caption.dy);
  Line.Integer(Name(CapHAl), static_cast<int32_t>(Caption.HAlignment));
  Line.Integer(Name(CapVAl), static_cast<int32_t>(Caption.VAlignment));
  std::string Styles;
  for (const TFontStyles Style : StylesInOrder) Styles += (Caption.FontStyles & Style) ? '1' : '0';
  Line.Text(Name(CapFSt), Styles);
}

// Put(Text) writes.
template <typename TPut>
void WriteTo(const TPut& Put, const std::string& DataID, const TLandMarkList& List,
             const std::string& ErrorPrefix) {
  CheckStorable(DataID, List, ErrorPrefix);
  Put(RecordRootLine(TXmlTag::GmLandmarks, DataID));
  TRecordLine Line;
  for (int32_t Index = 1; Index <= List.Count(); ++Index) {
    PutLine(Line, List[Index]);
    Put(Line.End());
  }
  Put("</gmlandmarks>\r\n");
}

}  // namespace

bool ReadLandMarks(TextFile& F, std::string_view DataID, TLandMarkList& List) {
  return ReadFrom(F, DataID, List);
}

bool ReadLandMarks(TStream& S, std::string_view DataID, TLandMarkList& List) {
  return ReadFrom(S, DataID, List);
}

void WriteLandMarks(TextFile& F, const std::string& DataID, const TLandMarkList& List,
                    const std::string& ErrorPrefix) {
  WriteTo([&](std::string_view Text) { F.Write(Text); }, DataID, List, ErrorPrefix);
}

void WriteLandMarks(TStream& S, const std::string& DataID, const TLandMarkList& List,
                    const std::string& ErrorPrefix) {
  WriteTo([&](std::string_view Text) { S.Write(Text.data(), Text.size()); }, DataID, List,
          ErrorPrefix);
}

void SaveLandMarks(const std::string& FileName, const std::string& DataID,
                   const TLandMarkList& List, const std::string& ErrorPrefix) {
  TextFile F;
  F.Rewrite(FileName);
  F.WriteLn("<?xml version=\"1.0\"?>");
  F.WriteLn("<!-- TGeoMap Landmarks / Tarvoline -->");
  WriteLandMarks(F, DataID, List, ErrorPrefix);
  F.Close();
}

}  // namespace zav
