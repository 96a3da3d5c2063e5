// landmark.h - what a landmark is made of: a position, a symbol and a caption.
//
// Plain values. Positions are degrees, north and east positive; sizes are control pixels.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_LANDMARKS_LANDMARK_H
#define ZAV_GEOMAP_LANDMARKS_LANDMARK_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <platform/base/color.h>
#include <platform/base/date_time.h>
#include <platform/base/short_string.h>
#include <platform/host/font.h>

namespace zav {

using TLMText = TShortString<80>;
using TLMIdentifier = TShortString<15>;

enum class TLandMarkElement : uint8_t {
  lmPlus = 0,
  lmSquare = 1,
  lmTriangle = 2,
  lmCircle = 3,
  lmArrowFrom = 4,
  lmArrowTo = 5,
  lmCrossBox = 6,
  lmSpade = 7,
  lmCross = 8,
  lmUserDef = 9
};

// Display names of the shapes, indexed by TLandMarkElement.
constexpr std::array<std::string_view, 10> LMTypeNames = {
    "Plus",    "Square",   "Triangle", "Circle", "ArrowFrom",
    "ArrowTo", "CrossBox", "Spade",    "Cross",  "User-Defined"};
// The name of any value; one that is no element is user-defined.
constexpr std::string_view LMTypeName(TLandMarkElement Element) noexcept {
  const auto Index = static_cast<size_t>(Element);
  return LMTypeNames[Index < LMTypeNames.size() ? Index : LMTypeNames.size() - 1];
}

enum class TLandMarkAction : uint8_t { lmaAdd = 0, lmaRemove = 1 };

// Where the caption lies: the named side of its box is at the landmark.
enum class THorizontalAlignment : uint8_t { haLeft = 0, haRight = 1, haCenter = 2 };
enum class TVerticalAlignment : uint8_t { vaTop = 0, vaMiddle = 1, vaBottom = 2 };

struct TSymbolProperties {
  TLandMarkElement Kind = TLandMarkElement::lmCross;
  int32_t Size = 7;
  TColor FGColor = clBlue;
  TColor BGColor = clWhite;
  bool Transparent = false;  // not filled
  int32_t Direction = 0;     // degrees, arrows only
  int32_t Length = 10;       // arrows only
  friend bool operator==(const TSymbolProperties&, const TSymbolProperties&) = default;
};

struct TLMTextProperties {
  TLMText Text;
  int32_t Size = 8;  // points
  std::string FontName = "MS Sans Serif";
  TFontStyles FontStyles = 0;
  TColor FGColor = clBlack;
  TColor BGColor = clWhite;
  bool Transparent = true;  // no ground behind the text
  int32_t dx = 0;           // offset from the landmark
  int32_t dy = 8;
  int32_t Direction = 0;  // degrees, counter-clockwise
  THorizontalAlignment HAlignment = THorizontalAlignment::haCenter;
  TVerticalAlignment VAlignment = TVerticalAlignment::vaTop;
  friend bool operator==(const TLMTextProperties&, const TLMTextProperties&) = default;
};

// The values of a default-constructed landmark are those of a new map's LandMarkDefault.
struct TLandMark {
  double Latitude = 0;
  double Longitude = 0;
  double Altitude = 0;    // carried only
  uint8_t ClassFlag = 0;  // visibility, search and removal go by it
  int32_t Tag = 0;        // the user's
  TSymbolProperties SymbolProps;
  TLMTextProperties Caption;
  TLMIdentifier Identifier;
  TDateTime Time = 0;
  friend bool operator==(const TLandMark&, const TLandMark&) = default;
};

}  // namespace zav

#endif
