// atlas_sources.h - the maps of a folder or a list as an atlas: their order, and what is missing.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_ATLAS_SOURCES_H
#define ZAV_APPS_VIEWER_ATLAS_SOURCES_H

#include <QList>
#include <QString>

#include "map_source.h"

namespace zav {

// The extension of the files that name the maps of an atlas, with its dot.
inline constexpr const char* AtlasListExtension = ".zavatlas";

bool IsAtlasList(const QString& Path);

// The maps that a list names, those that are not there with a Problem. Throws EInOutError when it
// cannot be read.
QList<MapSource> InspectAtlasList(const QString& Path);

// The least detailed maps first; those whose resolution is not known last, in their order.
void SortByScale(QList<MapSource>& Sources);

// "290 m/pixel"; empty when it is not known.
QString ResolutionText(double MetresPerPixel);

// Which of the maps cannot be shown and why, in a few lines for people; empty when all can.
QString MissingText(const QList<MapSource>& Sources);

}  // namespace zav

#endif
