// command_line.h - what the viewer is told on its command line.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_COMMAND_LINE_H
#define ZAV_APPS_VIEWER_COMMAND_LINE_H

#include <optional>

#include <QSize>
#include <QString>
#include <QStringList>

#include <geomap/calibration/calib_data.h>
#include <platform/qt/geo_map_widget.h>

#include "theme.h"

namespace zav {

struct ViewerOptions {
  QStringList Paths;  // calibration files, images and folders
  std::optional<GeoMapWidget::Graticule> Graticule;
  std::optional<double> Magnification;
  bool Fit = false;
  std::optional<TCoords> Center;
  QString Screenshot;  // file to write; empty = interactive
  std::optional<QSize> Size;
  std::optional<zav::Theme> Theme;  // nothing: as it was chosen before
};

struct CommandLine {
  ViewerOptions Options;
  QString Error;  // not empty: a usage error
  QString Text;   // not empty: help or version to print, nothing else to do
};

// Reads the arguments, the program's name first.
CommandLine ParseCommandLine(const QStringList& Arguments);

// Whether the arguments ask for a picture, help or the version, which need no display. Usable
// before there is an application object.
bool NeedsNoDisplay(int Count, const char* const* Arguments);

}  // namespace zav

#endif
