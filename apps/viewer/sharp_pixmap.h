// sharp_pixmap.h - pictures made by the program that are sharp on every screen.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_SHARP_PIXMAP_H
#define ZAV_APPS_VIEWER_SHARP_PIXMAP_H

#include <QGuiApplication>
#include <QPixmap>

namespace zav {

// Of so many logical pixels, with as many pixels as the finest screen has there; transparent.
inline QPixmap SharpPixmap(QSize Size) {
  const double Ratio = qGuiApp->devicePixelRatio();
  QPixmap Pixmap((QSizeF(Size) * Ratio).toSize());
  Pixmap.setDevicePixelRatio(Ratio);
  Pixmap.fill(Qt::transparent);
  return Pixmap;
}

}  // namespace zav

#endif
