/// @file
/// qt_convert.h - this library's values as Qt's, and back.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_QT_QT_CONVERT_H
#define ZAV_PLATFORM_QT_QT_CONVERT_H

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include <QColor>
#include <QPoint>
#include <QRegion>
#include <QString>

#include <platform/base/api.h>
#include <platform/base/color.h>
#include <platform/base/geometry.h>
#include <platform/host/control.h>

namespace zav {

/// Bytes that are no UTF-8 are read as Windows-1252.
ZAVGEO_API QString ToQString(std::string_view Text);
/// As UTF-8.
inline std::string FromQString(const QString& Text) { return Text.toStdString(); }

/// Opaque.
inline QColor ToQColor(TColor Color) { return {RedOf(Color), GreenOf(Color), BlueOf(Color)}; }
/// The opacity is dropped.
ZAVGEO_API TColor FromQColor(const QColor& Color);

/// The same pixel.
inline QPoint ToQPoint(TPoint Point) { return {Point.X, Point.Y}; }
/// The same pixel.
inline TPoint FromQPoint(QPoint Point) { return {Point.x(), Point.y()}; }
/// The control pixel that holds a position within a widget.
ZAVGEO_API TPoint PixelAt(QPointF Position);

/// The pixels of all areas.
ZAVGEO_API QRegion ToQRegion(std::span<const TRect> Areas);

/// Nothing for buttons that controls do not know.
ZAVGEO_API std::optional<TMouseButton> ToMouseButton(Qt::MouseButton Button);
/// The keys and buttons that controls know; others are left out.
ZAVGEO_API TShiftState ToShiftState(Qt::KeyboardModifiers Modifiers, Qt::MouseButtons Buttons);

}  // namespace zav

#endif
