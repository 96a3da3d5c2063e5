// map_source.cpp - what a file on the disk has to offer as a map.
// SPDX-License-Identifier: MIT
#include "map_source.h"

#include <string>

#include <QCollator>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QRegularExpression>
#include <QSet>

#include <geomap/calibration/calib_file.h>
#include <geomap/calibration/calibration.h>
#include <geomap/view/map_image.h>
#include <platform/base/paths.h>
#include <platform/base/read_file.h>
#include <platform/codec/image_file.h>
#include <platform/qt/qt_convert.h>

#include "reason_text.h"

namespace zav {

namespace {

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(MapSource)
};

QString Native(const QString& Path) { return QDir::toNativeSeparators(Path); }

// An attribute of the calibration's opening line as it is spelled; readers of calibrations give it
// in lower case.
QString SpelledAttribute(const QString& FileText, const QString& Attribute) {
  for (const QString& Line : FileText.split(QLatin1Char('\n'))) {
    if (!Line.contains(QLatin1String("<geomap"), Qt::CaseInsensitive) ||
        !Line.contains(QLatin1String("tarvoline"), Qt::CaseInsensitive))
      continue;
    const QString Key = QLatin1Char(' ') + Attribute + QStringLiteral("=\"");
    const qsizetype Found = Line.indexOf(Key, 0, Qt::CaseInsensitive);
    if (Found < 0) return {};
    const qsizetype Begin = Found + Key.size();
    return Line.mid(Begin, Line.indexOf(QLatin1Char('"'), Begin) - Begin).trimmed();
  }
  return {};
}

QString TooLargeText(const QString& Path, QSize Size) {
  const QLocale Locale;
  return Texts::tr(
             "The image \"%1\" has %2 x %3 pixels; a map may have %4 at most. Save a smaller copy "
             "of the "
             "image, calibrate that, and open it.")
      .arg(Native(Path), Locale.toString(Size.width()), Locale.toString(Size.height()),
           Locale.toString(MaxMapPixels));
}

QString WrongKindText(const QString& Path) {
  const QString Suffix = QFileInfo(Path).suffix();
  const QString What = Suffix.isEmpty()
                           ? Texts::tr("Files without an extension")
                           : Texts::tr("Files of the kind \"%1\"").arg(Suffix.toUpper());
  return Texts::tr(
             "%1 cannot be shown: \"%2\". Maps are calibration files (.xml) and images (.jpg, "
             ".jpeg, .bmp). "
             "Save the picture as JPEG or BMP with an image editor and open that.")
      .arg(What, Native(Path));
}

// Reads the image's size from its header and says what is wrong with it, if anything.
void CheckImage(MapSource& Source) {
  const std::string Path = FromQString(Source.ImagePath);
  const TImageKind Kind = ImageKindOfName(Path);
  if (Kind == TImageKind::ikUnknown) {
    Source.Problem = WrongKindText(Source.ImagePath);
    return;
  }
  try {
    const TSize Size = ReadImageSize(Path, Kind);
    Source.ImageSize = QSize(Size.Width, Size.Height);
    if (qint64{Size.Width} * Size.Height > MaxMapPixels)
      Source.Problem = TooLargeText(Source.ImagePath, Source.ImageSize);
  } catch (const EInOutError& Error) {
    Source.Problem = LoadProblem(Source.ImagePath, ReasonText(Error.Reason()));
  } catch (const std::exception& Error) {
    Source.Problem = LoadProblem(Source.ImagePath, ReasonText(Error.what()));
  }
}

// The control looks for an image as it is named, then beside the calibration file.
void FindImage(MapSource& Source, const std::string& MapFName, const QString& Spelled) {
  if (MapFName.empty()) {
    Source.Problem =
        Texts::tr(
            "The calibration file \"%1\" names no map image. Add the image's file name to its line "
            "\"<geomap ...\" as map=\"NAME.jpg\".")
            .arg(Native(Source.Path));
    return;
  }
  Source.ImagePath = ToQString(ResolveFile(MapFName, FromQString(Source.Path)));
  if (!Source.ImagePath.isEmpty()) return;
  const QDir Folder = QFileInfo(Source.Path).dir();
  const QString Given = QString(Spelled).replace(QLatin1Char('\\'), QLatin1Char('/'));
  const QString AsGiven = QFileInfo(Given).absoluteFilePath();
  const QString Beside = Folder.absoluteFilePath(QFileInfo(Given).fileName());
  Source.Problem =
      Texts::tr(
          "The image of the map \"%1\" is missing. Looked for \"%2\" and for \"%3\". Put the image "
          "beside the calibration file and open the map again.")
          .arg(Source.Caption, Native(AsGiven), Native(Beside));
}

bool HasGraticule(const TCalibData& Data) {
  TCalibration Calibration;
  Calibration.SetData(Data, TCalibModel::cmParabolicIp);
  return Calibration.RecalcGratMat();
}

void InspectCalibration(MapSource& Source) {
  const std::string Path = FromQString(Source.Path);
  TCalibData Data;
  QString ImageName;
  try {
    const QString Text = ToQString(ReadWholeTextFile(Path));
    Source.Caption = SpelledAttribute(Text, QStringLiteral("caption"));
    ImageName = SpelledAttribute(Text, QStringLiteral("map"));
    if (Source.Caption.isEmpty()) Source.Caption = QFileInfo(Source.Path).completeBaseName();
    if (!ParseCalibData(Path, "", Data, Source.Model)) {
      Source.Kind = MapSourceKind::Other;
      Source.Problem = Texts::tr(
                           "\"%1\" is no map calibration: it has no \"<geomap\" element. Open a "
                           "calibration file "
                           "or the map's image.")
                           .arg(Native(Source.Path));
      return;
    }
    Source.Resolution = Data.Resolution;
    // The format does not tell this model from an undefined one; its graticule lines do.
    if (Source.Model == TCalibModel::cmUndefined && HasGraticule(Data))
      Source.Model = TCalibModel::cmParabolicIp;
  } catch (const EInOutError& Error) {
    Source.Problem = LoadProblem(Source.Path, ReasonText(Error.Reason()));
    return;
  } catch (const std::exception& Error) {
    Source.Problem = LoadProblem(Source.Path, ReasonText(Error.what()));
    return;
  }
  FindImage(Source, Data.MapFName, ImageName);
  if (Source.Problem.isEmpty()) CheckImage(Source);
}

}  // namespace

MapSource InspectMap(const QString& Path) {
  MapSource Source;
  const QFileInfo Info(Path);
  Source.Path = Info.absoluteFilePath();
  Source.Caption = Info.fileName();
  if (!Info.exists()) {
    Source.Problem =
        Texts::tr("There is no file \"%1\". Check its name, or choose it with File, Open.")
            .arg(Native(Source.Path));
  } else if (Info.suffix().compare(QLatin1String("xml"), Qt::CaseInsensitive) == 0) {
    Source.Kind = MapSourceKind::Calibration;
    InspectCalibration(Source);
  } else {
    Source.ImagePath = Source.Path;
    CheckImage(Source);
    if (ImageKindOfName(FromQString(Source.Path)) != TImageKind::ikUnknown)
      Source.Kind = MapSourceKind::Image;
  }
  return Source;
}

QList<MapSource> InspectFolder(const QString& Folder) {
  const QDir Dir(Folder);
  const auto Names = [&Dir](const QStringList& Filters) {
    return Dir.entryList(Filters, QDir::Files | QDir::Readable, QDir::NoSort);
  };
  QList<MapSource> Sources;
  QSet<QString> Named;
  for (const QString& Name : Names({QStringLiteral("*.xml")})) {
    MapSource Source = InspectMap(Dir.absoluteFilePath(Name));
    if (Source.Kind == MapSourceKind::Other) continue;
    Named.insert(QFileInfo(Source.ImagePath).canonicalFilePath());
    Sources.append(std::move(Source));
  }
  for (const QString& Name :
       Names({QStringLiteral("*.jpg"), QStringLiteral("*.jpeg"), QStringLiteral("*.bmp")}))
    if (const QFileInfo Info(Dir.absoluteFilePath(Name)); !Named.contains(Info.canonicalFilePath()))
      Sources.append(InspectMap(Info.absoluteFilePath()));

  // The C locale's collation knows neither case nor numbers.
  const QLocale Locale;
  QCollator Collator(Locale.language() == QLocale::C ? QLocale(QLocale::English) : Locale);
  Collator.setNumericMode(true);
  Collator.setCaseSensitivity(Qt::CaseInsensitive);
  std::stable_sort(Sources.begin(), Sources.end(),
                   [&Collator](const MapSource& A, const MapSource& B) {
                     return Collator.compare(A.Caption, B.Caption) < 0;
                   });
  return Sources;
}

QString ModelName(TCalibModel Model) {
  switch (Model) {
    case TCalibModel::cmParabolicIp:
      return Texts::tr("Parabolic interpolation");
    case TCalibModel::cmBiquadraticPn:
      return Texts::tr("Second-order polynomial");
    case TCalibModel::cmConicConformal:
      return Texts::tr("Conic");
    case TCalibModel::cmMillerCylindrical:
      return Texts::tr("Miller cylindrical");
    case TCalibModel::cmEquiRect:
      return Texts::tr("First order, degrees");
    case TCalibModel::cmUTM:
      return Texts::tr("UTM");
    case TCalibModel::cmUndefined:
      break;
  }
  return Texts::tr("Not calibrated");
}

QString LoadProblem(const QString& Path, const QString& Reason) {
  // The library says which function or control refused; that is of no use here.
  static const QRegularExpression Origin(
      QStringLiteral("^(ParseCalibData|Component \"[^\"]*\"): "));
  return Texts::tr(
             "\"%1\" cannot be used: %2. The file may be damaged or cut short; fetch it again or "
             "restore it from "
             "a copy.")
      .arg(Native(Path), QString(Reason).remove(Origin).trimmed());
}

}  // namespace zav
