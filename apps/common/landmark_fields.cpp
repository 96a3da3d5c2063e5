// landmark_fields.cpp - see landmark_fields.h.
// SPDX-License-Identifier: MIT
#include "common/landmark_fields.h"

#include <array>
#include <cmath>
#include <limits>
#include <span>

#include <geomap/landmarks/xml_records.h>
#include <platform/base/text.h>
#include <platform/base/text_format.h>
#include <platform/base/text_scan.h>

#include "common/table_row.h"

namespace zav {

namespace {

using enum TLandMarkField;

constexpr std::array<TColumn, NumLandMarkFields> Columns{{
    {"name|caption|label|title", true},
    {"lat|latitude"},
    {"long|lon|lng|longitude"},
    {"alt|altitude|elevation|height", true},
    {"class", true},
    {"tag", true},
    {"id|identifier", true},
    {"time|date", true},
    {"symbol", true},
    {"symbol_size", true},
    {"symbol_color", true},
    {"symbol_fill", true},
    {"symbol_filled", true},
    {"symbol_direction", true},
    {"symbol_length", true},
    {"caption_size", true},
    {"caption_font", true},
    {"caption_style", true},
    {"caption_color", true},
    {"caption_ground", true},
    {"caption_filled", true},
    {"caption_dx", true},
    {"caption_dy", true},
    {"caption_direction", true},
    {"caption_halign", true},
    {"caption_valign", true},
}};

constexpr std::array<std::string_view, 3> HAlignments = {"left", "right", "center"};
constexpr std::array<std::string_view, 3> VAlignments = {"top", "middle", "bottom"};

struct TStyleName {
  TFontStyles Style;
  std::string_view Name;
};
constexpr std::array<TStyleName, 4> StyleNames{
    {{fsBold, "bold"}, {fsItalic, "italic"}, {fsUnderline, "underline"}, {fsStrikeOut, "strike"}}};

// --- values

std::string Quoted(std::string_view Text) { return "\"" + std::string(Text) + "\""; }

double RealOf(std::string_view What, const std::string& Text, bool DecimalComma, double Low,
              double High) {
  const auto Value = ParseNumber(Text, DecimalComma);
  if (!Value) throw ELineError(std::string(What) + " " + Quoted(Text) + " is not a number");
  if (*Value < Low || *Value > High) {
    throw ELineError(std::string(What) + " " + Text + " is outside " + ShortestNumber(Low) + ".." +
                     ShortestNumber(High));
  }
  return *Value;
}

int32_t IntegerOf(std::string_view What, const std::string& Text, int32_t Low, int32_t High) {
  const double Value = RealOf(What, Text, false, Low, High);
  if (Value != std::floor(Value)) {
    throw ELineError(std::string(What) + " " + Text + " is no whole number");
  }
  return static_cast<int32_t>(Value);
}

bool FlagOf(std::string_view What, const std::string& Text) {
  for (const std::string_view Yes : {"true", "yes", "1"})
    if (SameText(Text, Yes)) return true;
  for (const std::string_view No : {"false", "no", "0"})
    if (SameText(Text, No)) return false;
  throw ELineError(std::string(What) + " " + Quoted(Text) + " is neither true nor false");
}

TColor ColorOf(std::string_view What, const std::string& Text) {
  int32_t Pos = 2;
  const uint32_t Value = ScanHex(Text, Pos);
  if (Text.size() != 7 || Text[0] != '#' || Pos != 8) {
    throw ELineError(std::string(What) + " " + Quoted(Text) + " is not of the form #RRGGBB");
  }
  return RgbColor(static_cast<uint8_t>(Value >> 16), static_cast<uint8_t>(Value >> 8),
                  static_cast<uint8_t>(Value));
}

std::string ColorText(TColor Color) {
  return "#" + Hex(static_cast<uint32_t>(RedOf(Color)) << 16 |
                       static_cast<uint32_t>(GreenOf(Color)) << 8 | BlueOf(Color),
                   6);
}

size_t ChoiceOf(std::string_view What, const std::string& Text,
                std::span<const std::string_view> Choices) {
  std::string All;
  for (size_t I = 0; I < Choices.size(); ++I) {
    if (SameText(Text, Choices[I])) return I;
    All.append(I == 0 ? "" : ", ").append(LowerCase(Choices[I]));
  }
  throw ELineError(std::string(What) + " " + Quoted(Text) + " is none of " + All);
}

TFontStyles StylesOf(const std::string& Text) {
  TFontStyles Styles = 0;
  for (std::string_view Rest = TrimBlanks(Text); !Rest.empty();) {
    const std::string Word(Rest.substr(0, Rest.find(' ')));
    Rest = TrimBlanks(Rest.substr(Word.size()));
    bool Known = false;
    for (const TStyleName& Each : StyleNames) {
      if (!SameText(Word, Each.Name)) continue;
      Styles = static_cast<TFontStyles>(Styles | Each.Style);
      Known = true;
    }
    if (!Known && !SameText(Word, "plain"))
      throw ELineError("caption_style " + Quoted(Word) +
                       " is none of plain, bold, italic, underline, strike");
  }
  return Styles;
}

std::string StylesText(TFontStyles Styles) {
  std::string Text;
  for (const TStyleName& Each : StyleNames) {
    if ((Styles & Each.Style) == 0) continue;
    if (!Text.empty()) Text += ' ';
    Text += Each.Name;
  }
  return Text.empty() ? "plain" : Text;
}

const std::string& RecordText(std::string_view What, const std::string& Text) {
  if (IsRecordText(Text)) return Text;
  throw ELineError(std::string(What) +
                   " holds a double quote or a line break, which a landmark file cannot store");
}

// False when it is cut.
template <size_t N>
bool SetText(TShortString<N>& Target, std::string_view What, const std::string& Text) {
  Target = RecordText(What, Text);
  return Text.size() <= N;
}

constexpr int32_t Least = std::numeric_limits<int32_t>::min();
constexpr int32_t Most = std::numeric_limits<int32_t>::max();

}  // namespace

const TColumn& LandMarkColumn(TLandMarkField Field) { return Columns[static_cast<size_t>(Field)]; }

std::string_view LandMarkFieldName(TLandMarkField Field) {
  const std::string_view Names = LandMarkColumn(Field).Names;
  return Names.substr(0, Names.find('|'));
}

std::optional<TLandMarkField> FindLandMarkField(std::string_view Name) {
  for (size_t I = 0; I < NumLandMarkFields; ++I) {
    const auto Field = static_cast<TLandMarkField>(I);
    if (SameText(Name, LandMarkFieldName(Field))) return Field;
  }
  return std::nullopt;
}

// --- times

std::string TimeText(TDateTime Time) {
  if (Time == 0) return {};
  const TDateTimeParts P = DecodeDateTime(Time);
  std::string Text;
  const auto Put = [&](int32_t Value, size_t Digits, const char* Before) {
    const std::string Number = IntegerText(Value);
    Text.append(Before).append(Digits - std::min(Digits, Number.size()), '0').append(Number);
  };
  Put(P.Year, 4, "");
  Put(P.Month, 2, "-");
  Put(P.Day, 2, "-");
  Put(P.Hour, 2, " ");
  Put(P.Minute, 2, ":");
  Put(P.Second, 2, ":");
  return Text;
}

std::optional<TDateTime> ParseTime(std::string_view Text) {
  Text = TrimBlanks(Text);
  if (Text.empty()) return 0.0;
  for (const std::string_view Format : {"yyyy-mm-dd HH:MM:SS", "yyyy-mm-ddTHH:MM:SS",
                                        "yyyy-mm-dd HH:MM", "yyyy-mm-ddTHH:MM", "yyyy-mm-dd"}) {
    if (Text.size() != Format.size()) continue;
    int32_t Pos = 1;
    const TDateTime Time = ScanDateTime(Text, Format, Pos);
    const bool Read = Pos == static_cast<int32_t>(Text.size()) + 1;
    // The one time that is 0 itself, and means that there is none.
    if (Time != 0 || (Read && Text.substr(0, 10) == "1899-12-30")) return Time;
  }
  return std::nullopt;
}

// --- fields

std::string LandMarkFieldText(const TLandMark& LandMark, TLandMarkField Field) {
  const TSymbolProperties& Symbol = LandMark.SymbolProps;
  const TLMTextProperties& Caption = LandMark.Caption;
  const auto Flag = [](bool Value) { return std::string(Value ? "true" : "false"); };
  switch (Field) {
    case lfName:
      return Caption.Text.Text();
    case lfLat:
      return PlainNumber(LandMark.Latitude);
    case lfLong:
      return PlainNumber(LandMark.Longitude);
    case lfAltitude:
      return PlainNumber(LandMark.Altitude);
    case lfClass:
      return IntegerText(LandMark.ClassFlag);
    case lfTag:
      return IntegerText(LandMark.Tag);
    case lfId:
      return LandMark.Identifier.Text();
    case lfTime:
      return TimeText(LandMark.Time);
    case lfSymbol:
      return LowerCase(LMTypeName(Symbol.Kind));
    case lfSymbolSize:
      return IntegerText(Symbol.Size);
    case lfSymbolColor:
      return ColorText(Symbol.FGColor);
    case lfSymbolFill:
      return ColorText(Symbol.BGColor);
    case lfSymbolFilled:
      return Flag(!Symbol.Transparent);
    case lfSymbolDirection:
      return IntegerText(Symbol.Direction);
    case lfSymbolLength:
      return IntegerText(Symbol.Length);
    case lfCaptionSize:
      return IntegerText(Caption.Size);
    case lfCaptionFont:
      return Caption.FontName;
    case lfCaptionStyle:
      return StylesText(Caption.FontStyles);
    case lfCaptionColor:
      return ColorText(Caption.FGColor);
    case lfCaptionGround:
      return ColorText(Caption.BGColor);
    case lfCaptionFilled:
      return Flag(!Caption.Transparent);
    case lfCaptionDX:
      return IntegerText(Caption.dx);
    case lfCaptionDY:
      return IntegerText(Caption.dy);
    case lfCaptionDirection:
      return IntegerText(Caption.Direction);
    case lfCaptionHAlign:
      return std::string(HAlignments[static_cast<size_t>(Caption.HAlignment)]);
    case lfCaptionVAlign:
      return std::string(VAlignments[static_cast<size_t>(Caption.VAlignment)]);
  }
  return {};
}

bool SetLandMarkField(TLandMark& LandMark, TLandMarkField Field, const std::string& Text,
                      bool DecimalComma) {
  const std::string_view What = LandMarkFieldName(Field);
  TSymbolProperties& Symbol = LandMark.SymbolProps;
  TLMTextProperties& Caption = LandMark.Caption;
  const auto Integer = [&] { return IntegerOf(What, Text, Least, Most); };
  const auto Real = [&](double Largest) {
    return RealOf(What, Text, DecimalComma, -Largest, Largest);
  };
  switch (Field) {
    case lfName:
      return SetText(Caption.Text, What, Text);
    case lfLat:
      LandMark.Latitude = Real(90);
      break;
    case lfLong:
      LandMark.Longitude = Real(360);
      break;
    case lfAltitude:
      LandMark.Altitude = Real(1e9);
      break;
    case lfClass:
      LandMark.ClassFlag = static_cast<uint8_t>(IntegerOf(What, Text, 0, 255));
      break;
    case lfTag:
      LandMark.Tag = Integer();
      break;
    case lfId:
      return SetText(LandMark.Identifier, What, Text);
    case lfTime: {
      const auto Time = ParseTime(Text);
      if (!Time) throw ELineError("time " + Quoted(Text) + " is not of the form 2024-02-29 13:45");
      LandMark.Time = *Time;
      break;
    }
    case lfSymbol:
      Symbol.Kind = static_cast<TLandMarkElement>(ChoiceOf(What, Text, LMTypeNames));
      break;
    case lfSymbolSize:
      Symbol.Size = Integer();
      break;
    case lfSymbolColor:
      Symbol.FGColor = ColorOf(What, Text);
      break;
    case lfSymbolFill:
      Symbol.BGColor = ColorOf(What, Text);
      break;
    case lfSymbolFilled:
      Symbol.Transparent = !FlagOf(What, Text);
      break;
    case lfSymbolDirection:
      Symbol.Direction = Integer();
      break;
    case lfSymbolLength:
      Symbol.Length = Integer();
      break;
    case lfCaptionSize:
      Caption.Size = Integer();
      break;
    case lfCaptionFont:
      Caption.FontName = RecordText(What, Text);
      break;
    case lfCaptionStyle:
      Caption.FontStyles = StylesOf(Text);
      break;
    case lfCaptionColor:
      Caption.FGColor = ColorOf(What, Text);
      break;
    case lfCaptionGround:
      Caption.BGColor = ColorOf(What, Text);
      break;
    case lfCaptionFilled:
      Caption.Transparent = !FlagOf(What, Text);
      break;
    case lfCaptionDX:
      Caption.dx = Integer();
      break;
    case lfCaptionDY:
      Caption.dy = Integer();
      break;
    case lfCaptionDirection:
      Caption.Direction = Integer();
      break;
    case lfCaptionHAlign:
      Caption.HAlignment = static_cast<THorizontalAlignment>(ChoiceOf(What, Text, HAlignments));
      break;
    case lfCaptionVAlign:
      Caption.VAlignment = static_cast<TVerticalAlignment>(ChoiceOf(What, Text, VAlignments));
      break;
  }
  return true;
}

}  // namespace zav
