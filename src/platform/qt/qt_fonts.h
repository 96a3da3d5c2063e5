/// @file
/// qt_fonts.h - text as masks of coverage, by Qt's fonts.
///
/// Texts look the same on every machine: the faces are built into the library (see
/// fonts/README.md), with full hinting, no kerning and no smoothing. Only characters that those
/// faces lack (Chinese, Arabic, ...) come from whichever installed face has them.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_QT_QT_FONTS_H
#define ZAV_PLATFORM_QT_QT_FONTS_H

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

#include <QFont>
#include <QRawFont>
#include <QString>

#include <platform/base/api.h>
#include <platform/host/font.h>

namespace zav {

/// One thread at a time. A family that is not installed, and "MS Sans Serif", is drawn with the
/// built-in face. Bytes that are no UTF-8 are shown as Windows-1252, control characters as blanks.
class ZAVGEO_API TQtFontEngine final : public TFontEngine {
 public:
  /// Throws EZAVError when there is no QGuiApplication, without which Qt has no fonts.
  TSize TextExtent(const TFont& Font, std::string_view Text) override;
  /// An area of more than 32 million pixels (an absurd size) gives an empty mask. Throws as
  /// TextExtent does.
  TTextMask RenderText(const TFont& Font, std::string_view Text) override;

 private:
  struct TFace {
    QFont Exact;   // this face alone, so that no other one can change a pixel
    QFont Merged;  // with installed faces for what this one lacks
    QRawFont Raw;  // tells what this one lacks
  };

  const TFace& FaceOf(const TFont& Font, bool Smooth);
  const QFont& FontFor(const TFont& Font, bool Smooth, const QString& Text);
  static TTextMask Draw(const QFont& Font, int32_t Direction, const QString& Text);

  std::map<std::string, TFace> FFaces;
  // Captions are drawn again and again; keyed by font and text. Emptied when it is full.
  std::unordered_map<std::string, TTextMask> FMasks;
  size_t FMaskBytes = 0;
};

/// The face of a font for pages: the same faces, as outlines without hinting. Sizes are pixels of
/// the page as they are pixels of the screen (8 points are 10.7). Throws EZAVError when there is no
/// QGuiApplication.
ZAVGEO_API QFont PageFont(const TFont& Font);
/// Text as it is drawn: one line, no tabs, control characters as blanks.
ZAVGEO_API QString PrintableText(std::string_view Text);

}  // namespace zav

#endif
