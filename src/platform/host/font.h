/// @file
/// font.h - fonts, and the interface through which the host measures text and turns it into pixels.
///
/// Colour, drawing mode and placing are the canvas's; the host gives a mask of coverage only.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_HOST_FONT_H
#define ZAV_PLATFORM_HOST_FONT_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <platform/base/api.h>
#include <platform/base/color.h>
#include <platform/base/geometry.h>

namespace zav {

/// A set of text styles, one bit each.
using TFontStyles = uint8_t;
constexpr TFontStyles fsBold = 1;       ///< heavy
constexpr TFontStyles fsItalic = 2;     ///< slanted
constexpr TFontStyles fsUnderline = 4;  ///< a line below
constexpr TFontStyles fsStrikeOut = 8;  ///< a line through

/// A font as it is asked for; a host takes the nearest that it has.
struct TFont {
  std::string Name = "MS Sans Serif";  ///< family
  /// Points at 96 dots per inch. Real, because a target of high resolution enlarges it.
  double Size = 8;
  TFontStyles Styles = 0;  ///< fsBold and the like
  TColor Color = clBlack;  ///< of the text
  /// Degrees, counter-clockwise from the reading direction. Turned text is smoothed.
  int32_t Direction = 0;
  friend bool operator==(const TFont&, const TFont&) = default;
};

/// A piece of text as coverage, 0 (none) to 255 (full), row by row.
struct TTextMask {
  /// Where the mask's top left pixel lies, from the top left corner of the (unturned) text box,
  /// about which the text is turned. May be negative, because glyphs overhang.
  int32_t Left = 0;
  int32_t Top = 0;                ///< downwards
  int32_t Width = 0;              ///< columns of Coverage
  int32_t Height = 0;             ///< rows of Coverage
  std::vector<uint8_t> Coverage;  ///< Width * Height bytes
};

/// Measures and rasterises text (UTF-8). One object serves all canvases of a host.
class ZAVGEO_API TFontEngine {
 public:
  virtual ~TFontEngine() = default;

  /// Advance width and line height of the text in pixels, as if it were not turned.
  virtual TSize TextExtent(const TFont& Font, std::string_view Text) = 0;

  /// The text's pixels, turned by Font.Direction. Unturned text has coverage 0 or 255 only.
  virtual TTextMask RenderText(const TFont& Font, std::string_view Text) = 0;
};

}  // namespace zav

#endif
