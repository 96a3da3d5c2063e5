// import_copy.cpp - scans that cannot be maps as they are.
// SPDX-License-Identifier: MIT
#include "import_copy.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include <geomap/view/map_image.h>
#include <platform/base/errors.h>
#include <platform/codec/image_file.h>
#include <platform/qt/qt_convert.h>
#include <platform/qt/qt_image_file.h>

#include "calib_document.h"
#include "common/reduced_copy.h"
#include "reason_text.h"

namespace zav {

namespace {

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(ImportCopy)
};
QString Native(const QString& Path) { return QDir::toNativeSeparators(Path); }
TSize ToSize(QSize Size) { return {Size.width(), Size.height()}; }
qint64 PixelsOf(QSize Size) { return qint64{Size.width()} * Size.height(); }

QString SizeText(QSize Size) {
  const QLocale Locale;
  return Texts::tr("%1 x %2").arg(Locale.toString(Size.width()), Locale.toString(Size.height()));
}

// The size of a picture that the library does not read itself; empty when nobody does.
QSize QtImageSize(const QString& Path) {
  try {
    const TSize Size = ReadQtImageSize(FromQString(Path));
    return {Size.Width, Size.Height};
  } catch (const EZAVError&) {
    return {};
  }
}

bool IsMapImage(const QString& Path) {
  return ImageKindOfName(FromQString(Path)) != TImageKind::ikUnknown;
}

TBitmap ReadScan(const QString& Path) {
  const std::string File = FromQString(Path);
  const TImageKind Kind = ImageKindOfName(File);
  return Kind == TImageKind::ikUnknown ? LoadQtImage(File) : LoadImageFile(File, Kind);
}

// Names for image and calibration that no file has: those of the originals with the ending, and a
// number if need be.
void ChooseNames(ImportOffer& Offer, const QString& Ending) {
  const QFileInfo Image(Offer.Source);
  const QFileInfo Calibration(Offer.Calibration);
  for (int Number = 1;; ++Number) {
    const QString Tail = Number == 1 ? Ending : Ending + QStringLiteral("_%1").arg(Number);
    Offer.NewImage = Image.dir().filePath(Image.completeBaseName() + Tail + QStringLiteral(".jpg"));
    if (!Offer.Calibration.isEmpty())
      Offer.NewCalibration = Calibration.dir().filePath(Calibration.completeBaseName() + Tail +
                                                        QStringLiteral(".xml"));
    // A calibration without ending would have its original's name.
    if (!QFileInfo::exists(Offer.NewImage) && !QFileInfo::exists(Offer.NewCalibration)) return;
  }
}

void WriteOfferText(ImportOffer& Offer, bool Convert) {
  const bool Reduce = Offer.NewSize != Offer.Size;
  const QString Why =
      Reduce
          ? Texts::tr("The image \"%1\" has %2 pixels; a map may have %3 at most.")
                .arg(Native(Offer.Source), SizeText(Offer.Size), QLocale().toString(MaxMapPixels))
          : Texts::tr("Files of the kind \"%1\" cannot be shown as they are: \"%2\".")
                .arg(QFileInfo(Offer.Source).suffix().toUpper(), Native(Offer.Source));
  const QString Copy = Reduce
                           ? Texts::tr("A smaller copy of %1 pixels").arg(SizeText(Offer.NewSize))
                           : Texts::tr("A copy as JPEG");
  const QString What =
      Offer.Calibration.isEmpty()
          ? Texts::tr("%1 can be written beside it: \"%2\". The original stays as it is.")
                .arg(Copy, QFileInfo(Offer.NewImage).fileName())
          : Texts::tr(
                "%1 can be written beside it, with its calibration: \"%2\", \"%3\". The originals "
                "stay as they are.")
                .arg(Copy, QFileInfo(Offer.NewImage).fileName(),
                     QFileInfo(Offer.NewCalibration).fileName());
  Offer.Text = Why + QLatin1Char(' ') + What;
  Offer.Answer = Reduce && !Convert ? Texts::tr("Write Smaller Copy") : Texts::tr("Write Copy");
}

// The calibration for the copy. Names and switched-off points come along.
QString WriteCalibration(const ImportOffer& Offer) {
  CalibDocument Document;
  QString Problem = Document.load(Offer.Calibration);
  for (int Index = 0; Problem.isEmpty() && Index < Document.itemCount(); ++Index) {
    const CalibItem& Item = Document.item(Index);
    Document.moveItem(Item.Id, ReducedPixel(Item.Pixel, ToSize(Offer.Size), ToSize(Offer.NewSize)));
  }
  if (Problem.isEmpty()) Problem = Document.setImage(Offer.NewImage);
  if (Problem.isEmpty()) Problem = Document.saveAs(Offer.NewCalibration);
  return Problem;
}

}  // namespace

std::optional<ImportOffer> OfferImport(const MapSource& Source) {
  if (Source.Problem.isEmpty() || !QFileInfo::exists(Source.ImagePath)) return std::nullopt;
  const bool Convert = !IsMapImage(Source.ImagePath);
  ImportOffer Offer;
  Offer.Source = Source.ImagePath;
  Offer.Size = Convert ? QtImageSize(Source.ImagePath) : Source.ImageSize;
  if (Offer.Size.isEmpty() || PixelsOf(Offer.Size) > MaxDecodablePixels) return std::nullopt;
  if (!Convert && PixelsOf(Offer.Size) <= MaxMapPixels) return std::nullopt;
  if (Source.Kind == MapSourceKind::Calibration) Offer.Calibration = Source.Path;
  const TSize Size = ToSize(Offer.Size);
  const TSize Small = ReducedSize(Size, LongestForMap(Size));
  Offer.NewSize = QSize(Small.Width, Small.Height);
  ChooseNames(Offer, Small == Size ? QString() : QStringLiteral("_small"));
  WriteOfferText(Offer, Convert);
  return Offer;
}

ImportResult WriteImport(const ImportOffer& Offer) {
  ImportResult Result;
  try {
    const TBitmap Scan = ReadScan(Offer.Source);
    const bool Reduce = Offer.NewSize != Offer.Size;
    SaveJpegFile(FromQString(Offer.NewImage),
                 Reduce ? ReducedBitmap(Scan, ToSize(Offer.NewSize)) : Scan, CopyQuality);
    if (!Offer.NewCalibration.isEmpty()) Result.Problem = WriteCalibration(Offer);
    if (!Result.Problem.isEmpty()) QFile::remove(Offer.NewImage);
  } catch (const EInOutError& Error) {
    Result.Problem = Texts::tr("The copy cannot be made: \"%1\": %2.")
                         .arg(Native(ToQString(Error.Path())), ReasonText(Error.Reason()));
  } catch (const std::exception& Error) {
    Result.Problem = Texts::tr("The copy cannot be made: %1.").arg(ReasonText(Error.what()));
  }
  Result.Path = Offer.NewCalibration.isEmpty() ? Offer.NewImage : Offer.NewCalibration;
  return Result;
}

}  // namespace zav
