// import_copy.h - scans that cannot be maps as they are: a smaller copy, or one in another format.
//
// Copies are written beside the original under names that no file has yet; originals stay.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_IMPORT_COPY_H
#define ZAV_APPS_VIEWER_IMPORT_COPY_H

#include <optional>

#include <QSize>
#include <QString>

#include "map_source.h"

namespace zav {

struct ImportOffer {
  QString Source;       // the image
  QString Calibration;  // its calibration, empty = none
  QSize Size;           // of the image
  QSize NewSize;        // of the copy
  QString NewImage;
  QString NewCalibration;  // empty when there is no calibration
  QString Text;            // says what is wrong and what can be done, for people
  QString Answer;          // the button's text
};

// What can be done about a source with a problem; nothing when it has none, or none of this kind.
std::optional<ImportOffer> OfferImport(const MapSource& Source);

struct ImportResult {
  QString Problem;  // empty = done
  QString Path;     // what to open
};

// Writes the copy with its calibration: points, names and all that the viewer knows of them, at
// their places in the smaller image. Where it fails no new file is left.
ImportResult WriteImport(const ImportOffer& Offer);

}  // namespace zav

#endif
