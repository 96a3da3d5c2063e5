// atlas_sources.cpp - see atlas_sources.h.
// SPDX-License-Identifier: MIT
#include "atlas_sources.h"

#include <algorithm>

#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>

#include <geoatlas/atlas_list.h>
#include <platform/qt/qt_convert.h>

namespace zav {

namespace {

constexpr int MostNamed = 4;  // of the maps that cannot be shown, so that the message stays small

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(AtlasSources)
};

QString WhyNot(const MapSource& Source) {
  if (!QFileInfo::exists(Source.Path)) return Texts::tr("the file is missing");
  if (Source.Kind == MapSourceKind::Calibration && Source.ImagePath.isEmpty())
    return Texts::tr("its image is missing");
  return Texts::tr("damaged or of another kind");
}

}  // namespace

bool IsAtlasList(const QString& Path) {
  return Path.endsWith(QLatin1String(AtlasListExtension), Qt::CaseInsensitive);
}

QList<MapSource> InspectAtlasList(const QString& Path) {
  QList<MapSource> Sources;
  for (const std::string& File : ReadAtlasList(FromQString(Path)))
    Sources.append(InspectMap(ToQString(File)));
  return Sources;
}

void SortByScale(QList<MapSource>& Sources) {
  std::stable_sort(Sources.begin(), Sources.end(), [](const MapSource& A, const MapSource& B) {
    return A.Resolution > B.Resolution;
  });
}

QString ResolutionText(double MetresPerPixel) {
  if (!(MetresPerPixel > 0)) return {};
  const int Decimals = MetresPerPixel < 10 ? 1 : 0;
  return Texts::tr("%1 m/pixel").arg(QLocale().toString(MetresPerPixel, 'f', Decimals));
}

QString MissingText(const QList<MapSource>& Sources) {
  QStringList Lines;
  qsizetype Count = 0;
  for (const MapSource& Source : Sources) {
    if (Source.Problem.isEmpty()) continue;
    if (++Count <= MostNamed)
      Lines << Texts::tr("\"%1\": %2").arg(QFileInfo(Source.Path).fileName(), WhyNot(Source));
  }
  if (Count == 0) return {};
  if (Count > MostNamed)
    Lines << Texts::tr("and %n more", nullptr, static_cast<int>(Count - MostNamed));
  return Texts::tr("%n of %1 maps cannot be shown; the list of maps tells why. %2", nullptr,
                   static_cast<int>(Count))
      .arg(QString::number(Sources.size()), Lines.join(QStringLiteral("; ")));
}

}  // namespace zav
