// export_picture.h - parts of a map as pictures: drawn with all that lies over the map, written to
// files, put on the clipboard.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_EXPORT_PICTURE_H
#define ZAV_APPS_VIEWER_EXPORT_PICTURE_H

#include <QRect>
#include <QString>
#include <QStringList>

#include <geomap/view/map_part.h>
#include <platform/raster/bitmap.h>

class QWidget;

namespace zav {

class GeoMapWidget;
class TCanvas;
class TGeoMap;

// Draws a part of the map without what the viewer draws around the map in its window.
void DrawMapPart(TGeoMap& Map, TCanvas& Canvas, const TMapPart& Part);

// The rectangle of map pixels that is in the window, cut at the map's edges; empty without a map.
QRect VisibleMapPart(const TGeoMap& Map);
// The same as it is on the screen, device pixel by device pixel.
TMapPart ViewAsPicture(GeoMapWidget& Widget);
// A rectangle of map pixels, cut at the map's edges, each map pixel one pixel of the picture.
TMapPart RectangleAsPicture(const TGeoMap& Map, const QRect& MapPixels);
TMapPart WholeMapAsPicture(const TGeoMap& Map);

// Empty when there is nothing to draw. Throws what handlers throw, and std::bad_alloc.
TBitmap DrawPicture(TGeoMap& Map, const TMapPart& Part);

// Writes a PNG, JPEG (quality 95) or BMP file by the name's extension, whole or not at all. Refuses
// the files in Protected: a picture of a map does not replace the map. Returns what went wrong,
// empty = nothing.
QString SavePicture(const TBitmap& Picture, const QString& Path, const QStringList& Protected = {});

// Asks for a name and writes the part there. Proposal is the name that is offered, with folder and
// without extension. Written receives the name, empty when the user thought better of it.
QString AskAndSavePicture(QWidget* Parent, TGeoMap& Map, const TMapPart& Part,
                          const QString& Proposal, const QStringList& Protected, QString& Written);

}  // namespace zav

#endif
