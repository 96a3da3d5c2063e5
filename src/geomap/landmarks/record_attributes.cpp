// record_attributes.cpp - see record_attributes.h.
// SPDX-License-Identifier: MIT
#include <geomap/landmarks/record_attributes.h>

#include <algorithm>
#include <array>
#include <cmath>

#include <geomap/errors.h>
#include <platform/base/paths.h>
#include <platform/base/text.h>
#include <platform/base/text_format.h>
#include <platform/base/text_scan.h>

namespace zav {
namespace {

// These words are in files: do not change them.
constexpr std::array<std::string_view, 8> Keywords = {"cross",     "square",  "triangle", "circle",
                                                      "arrowfrom", "arrowto", "crossbox", "spade"};
constexpr std::array<TLandMarkElement, 9> ElementsOfKeywords = {
    TLandMarkElement::lmCross,  // not found
    TLandMarkElement::lmCross,    TLandMarkElement::lmSquare,    TLandMarkElement::lmTriangle,
    TLandMarkElement::lmCircle,   TLandMarkElement::lmArrowFrom, TLandMarkElement::lmArrowTo,
    TLandMarkElement::lmCrossBox, TLandMarkElement::lmSpade};

constexpr double LargestWithDecimals = 1e9;

}  // namespace

// --- reading -------------------------------------------------------------------------------------

// Expected is where the attribute stands in files that this library writes.
size_t TRecordAttributes::PlaceOf(std::string_view Name, size_t Expected) const noexcept {
  if (Expected < FNames.size() && FNames[Expected] == Name) return Expected;
  for (size_t I = 0; I < FNames.size(); ++I) {
    if (SameText(FNames[I], Name)) return I;
  }
  return FNames.size();
}

void TRecordAttributes::Read(std::string_view TagText) {
  for (std::string& Value : FValues) Value.clear();
  std::fill(FFound.begin(), FFound.end(), false);
  size_t Expected = 0;
  for (int32_t Pos = 1; NextAttribute(TagText, Pos, FName, FValue) == 0;) {
    const size_t Place = PlaceOf(FName, Expected);
    if (Place == FNames.size() || FFound[Place]) continue;
    FFound[Place] = true;
    FValues[Place].swap(FValue);
    Expected = Place + 1;
  }
}

int32_t TRecordAttributes::Integer(size_t Index) const noexcept {
  int32_t Pos = 1;
  return ScanInteger(FValues[Index], Pos);
}

double TRecordAttributes::Real(size_t Index) const {
  int32_t Pos = 1;
  return ScanFloat(FValues[Index], true, 3, Pos);
}

TColor TRecordAttributes::Color(size_t Index) const noexcept {
  int32_t Pos = 1;
  return ScanHex(FValues[Index], Pos);
}

bool TRecordAttributes::Flag(size_t Index) const {
  return LowerCase(FValues[Index]).find("true") != std::string::npos;
}

TLandMarkElement TRecordAttributes::Element(size_t Index) const {
  constexpr auto Last = static_cast<int32_t>(Keywords.size()) - 1;
  const int32_t Found = StringIx(LowerCase(FValues[Index]), Keywords, Last);
  return ElementsOfKeywords[static_cast<size_t>(Found)];
}

// --- writing -------------------------------------------------------------------------------------

void TRecordLine::Begin(TXmlTag Tag) {
  FText = "<";
  FText += XmlTagName(Tag);
}

void TRecordLine::Text(std::string_view Name, std::string_view Value) {
  FText += ' ';
  FText += Name;
  FText += "=\"";
  FText += Value;
  FText += '"';
}

void TRecordLine::Integer(std::string_view Name, int64_t Value) { Text(Name, IntegerText(Value)); }

void TRecordLine::Real(std::string_view Name, double Value) {
  if (std::fabs(Value) < LargestWithDecimals) {
    const std::string Fixed = FormatFixedNumber(Value, 1, 5);
    int32_t Pos = 1;
    if (ScanFloat(Fixed, false, 1, Pos) == Value) return Text(Name, Fixed);
  }
  Text(Name, ShortestNumber(Value));
}

void TRecordLine::Color(std::string_view Name, TColor Value) { Text(Name, Hex(Value, 8)); }

void TRecordLine::Flag(std::string_view Name, bool Value) { Text(Name, BoolToText(Value, 0)); }

std::string_view TRecordLine::End() {
  FText += " />\r\n";
  return FText;
}

std::string RecordRootLine(TXmlTag Root, std::string_view DataID) {
  std::string Line = "<";
  Line.append(XmlTagName(Root)).append(" sig=\"").append(XmlSignature);
  return Line.append("\" vers=\"1.0\" id=\"").append(DataID).append("\">\r\n");
}

bool OpenRecordFile(TextFile& F, const std::string& Name) {
  const std::string Path = ResolveFile(Name);
  if (Path.empty()) return false;
  try {
    F.Reset(Path);
  } catch (const EInOutError&) {
    return false;
  }
  return true;
}

void CheckRecordText(std::string_view Text, const std::string& Prefix, std::string_view What) {
  if (IsRecordText(Text)) return;
  throw EZAVGeoMapError(Prefix + std::string(What) +
                        " holds a double quote, a line break or a NUL, which the file cannot "
                        "store");
}

}  // namespace zav
