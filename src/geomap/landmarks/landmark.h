/// @file
/// landmark.h - what a landmark is made of: a position, a symbol and a caption.
///
/// Plain values. Positions are degrees, north and east positive; sizes are control pixels.
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

/// The text of a caption.
using TLMText = TShortString<80>;
/// What the user calls a landmark by.
using TLMIdentifier = TShortString<15>;

/// The shape of a symbol.
enum class TLandMarkElement : uint8_t {
  lmPlus = 0,       ///< upright cross
  lmSquare = 1,     ///< square about the position
  lmTriangle = 2,   ///< triangle about the position
  lmCircle = 3,     ///< circle
  lmArrowFrom = 4,  ///< arrow that begins at the position
  lmArrowTo = 5,    ///< arrow that ends at the position
  lmCrossBox = 6,   ///< square with its diagonals
  lmSpade = 7,      ///< lozenge on its tip
  lmCross = 8,      ///< diagonal cross
  lmUserDef = 9     ///< drawn by OnDrawLandmark
};

/// Display names of the shapes, indexed by TLandMarkElement.
constexpr std::array<std::string_view, 10> LMTypeNames = {
    "Plus",    "Square",   "Triangle", "Circle", "ArrowFrom",
    "ArrowTo", "CrossBox", "Spade",    "Cross",  "User-Defined"};
/// The name of any value; one that is no element is user-defined.
constexpr std::string_view LMTypeName(TLandMarkElement Element) noexcept {
  const auto Index = static_cast<size_t>(Element);
  return LMTypeNames[Index < LMTypeNames.size() ? Index : LMTypeNames.size() - 1];
}

/// What is about to happen to a landmark.
enum class TLandMarkAction : uint8_t {
  lmaAdd = 0,    ///< it is added
  lmaRemove = 1  ///< it is removed
};

/// Where the caption lies: the named side of its box is at the landmark.
enum class THorizontalAlignment : uint8_t {
  haLeft = 0,   ///< text to the right
  haRight = 1,  ///< text to the left
  haCenter = 2  ///< text about it
};
/// The same from top to bottom.
enum class TVerticalAlignment : uint8_t {
  vaTop = 0,     ///< text below
  vaMiddle = 1,  ///< text beside
  vaBottom = 2   ///< text above
};

/// A symbol without its place.
struct TSymbolProperties {
  TLandMarkElement Kind = TLandMarkElement::lmCross;  ///< shape
  int32_t Size = 7;                                   ///< control pixels from the middle outwards
  TColor FGColor = clBlue;                            ///< outline, and the lines of crosses
  TColor BGColor = clWhite;                           ///< inside, or the halo of crosses
  bool Transparent = false;                           ///< not filled
  int32_t Direction = 0;                              ///< degrees, arrows only
  int32_t Length = 10;                                ///< arrows only
  friend bool operator==(const TSymbolProperties&, const TSymbolProperties&) = default;
};

/// The caption of a landmark.
struct TLMTextProperties {
  TLMText Text;                            ///< empty for none
  int32_t Size = 8;                        ///< points
  std::string FontName = "MS Sans Serif";  ///< family
  TFontStyles FontStyles = 0;              ///< bold and the like
  TColor FGColor = clBlack;                ///< of the text
  TColor BGColor = clWhite;                ///< of the ground
  bool Transparent = true;                 ///< no ground behind the text
  int32_t dx = 0;                          ///< offset from the landmark
  int32_t dy = 8;                          ///< downwards, control pixels
  int32_t Direction = 0;                   ///< degrees, counter-clockwise
  THorizontalAlignment HAlignment =
      THorizontalAlignment::haCenter;                         ///< which side is at the landmark
  TVerticalAlignment VAlignment = TVerticalAlignment::vaTop;  ///< which side is at the landmark
  friend bool operator==(const TLMTextProperties&, const TLMTextProperties&) = default;
};

/// The values of a default-constructed landmark are those of a new map's LandMarkDefault.
struct TLandMark {
  double Latitude = 0;            ///< degrees
  double Longitude = 0;           ///< degrees
  double Altitude = 0;            ///< carried only
  uint8_t ClassFlag = 0;          ///< visibility, search and removal go by it
  int32_t Tag = 0;                ///< the user's
  TSymbolProperties SymbolProps;  ///< how it is drawn
  TLMTextProperties Caption;      ///< its text
  TLMIdentifier Identifier;       ///< the user's
  TDateTime Time = 0;             ///< the user's
  friend bool operator==(const TLandMark&, const TLandMark&) = default;
};

}  // namespace zav

#endif
