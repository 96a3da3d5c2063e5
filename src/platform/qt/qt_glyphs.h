/// @file
/// qt_glyphs.h - pictures of buttons and cursors, drawn as strokes for the pixels that they have.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_QT_QT_GLYPHS_H
#define ZAV_PLATFORM_QT_QT_GLYPHS_H

#include <cstdint>

#include <QCursor>

#include <platform/base/api.h>
#include <platform/host/widgets.h>

class QColor;
class QPainter;
class QRectF;

namespace zav {

/// Fills a square with the glyph of a button.
ZAVGEO_API void DrawGlyph(QPainter& Painter, const QRectF& Square, TGlyph Glyph,
                          const QColor& Color);

/// The cursor of a number that TControlWindow::SetCursor takes: crGeoZoom and crGeoHand are drawn,
/// white with a dark edge, for Ratio device pixels a pixel; crHandPoint is the desktop's; any other
/// is the ordinary arrow.
ZAVGEO_API QCursor MakeCursor(int32_t Number, double Ratio);

}  // namespace zav

#endif
