// export_picture.cpp - parts of a map as pictures.
// SPDX-License-Identifier: MIT
#include "export_picture.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QImage>

#include <platform/base/atomic_file.h>
#include <platform/base/rounding.h>
#include <platform/codec/image_file.h>
#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_convert.h>
#include <platform/qt/qt_image.h>
#include <platform/raster/raster_canvas.h>

#include "common/reduced_copy.h"
#include "reason_text.h"

namespace zav {

namespace {

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(ExportPicture)
};

QRect WholeImage(const TGeoMap& Map) { return {0, 0, Map.MapImgWidth(), Map.MapImgHeight()}; }

// Encodes a PNG or BMP file in memory, so that it is written in one step.
QByteArray Encoded(const TBitmap& Picture, const char* Format) {
  QByteArray Bytes;
  QBuffer Buffer(&Bytes);
  Buffer.open(QIODevice::WriteOnly);
  if (!WrapBitmap(Picture).convertToFormat(QImage::Format_RGB32).save(&Buffer, Format))
    throw EZAVError("the picture cannot be encoded");
  return Bytes;
}

void Write(const TBitmap& Picture, const QString& Suffix, const std::string& Path) {
  if (Suffix == QLatin1String("jpg") || Suffix == QLatin1String("jpeg"))
    return SaveJpegFile(Path, Picture, CopyQuality);
  const QByteArray Bytes = Encoded(Picture, Suffix == QLatin1String("bmp") ? "BMP" : "PNG");
  WriteWholeFile(Path, std::string_view(Bytes.constData(), static_cast<size_t>(Bytes.size())));
}

}  // namespace

void DrawMapPart(TGeoMap& Map, TCanvas& Canvas, const TMapPart& Part) {
  TGeoMap::TRenderEvent Margin = std::exchange(Map.OnDataRendered, nullptr);
  try {
    Map.DrawPart(Canvas, Part);
  } catch (...) {
    Map.OnDataRendered = std::move(Margin);
    throw;
  }
  Map.OnDataRendered = std::move(Margin);
}

QRect VisibleMapPart(const TGeoMap& Map) {
  const TViewState& View = Map.View();
  const QRectF Seen(View.TopLeft.X, View.TopLeft.Y, Map.Width() / View.Magnification,
                    Map.Height() / View.Magnification);
  return Seen.toAlignedRect() & WholeImage(Map);
}

TMapPart ViewAsPicture(GeoMapWidget& Widget) {
  const TGeoMap& Map = Widget.map();
  const QRect Seen = VisibleMapPart(Map);
  const double Scale = Widget.devicePixelRatioF();
  const double Factor = Map.Magnification() * Scale;
  return {{Seen.x(), Seen.y()},
          Factor,
          Scale,
          {RoundHalfEven(Seen.width() * Factor), RoundHalfEven(Seen.height() * Factor)}};
}

TMapPart RectangleAsPicture(const TGeoMap& Map, const QRect& MapPixels) {
  const QRect Part = MapPixels.normalized() & WholeImage(Map);
  return {{Part.x(), Part.y()}, 1, 1, {Part.width(), Part.height()}};
}

TMapPart WholeMapAsPicture(const TGeoMap& Map) { return RectangleAsPicture(Map, WholeImage(Map)); }

TBitmap DrawPicture(TGeoMap& Map, const TMapPart& Part) {
  if (Map.MapImgFile().empty() || Part.Size.Width < 1 || Part.Size.Height < 1) return {};
  TBitmap Picture(Part.Size.Width, Part.Size.Height, TPixelFormat::pf32bit);
  TRasterCanvas Canvas(Picture, &Map.Host().Fonts());
  DrawMapPart(Map, Canvas, Part);
  return Picture;
}

QString SavePicture(const TBitmap& Picture, const QString& Path, const QStringList& Protected) {
  const QString Native = QDir::toNativeSeparators(Path);
  const QString Suffix = QFileInfo(Path).suffix().toLower();
  static const QStringList Known = {QStringLiteral("png"), QStringLiteral("jpg"),
                                    QStringLiteral("jpeg"), QStringLiteral("bmp")};
  if (Picture.Empty()) return Texts::tr("There is nothing to save: no part of a map is shown.");
  if (!Known.contains(Suffix))
    return Texts::tr("\"%1\" cannot be written: the name must end in .png, .jpg or .bmp.")
        .arg(Native);
  for (const QString& Each : Protected)
    if (IsSameFile(FromQString(Path), FromQString(Each)))
      return Texts::tr(
                 "\"%1\" belongs to the map that is shown. Save the picture under another name.")
          .arg(Native);
  try {
    Write(Picture, Suffix, FromQString(Path));
    return {};
  } catch (const EInOutError& Error) {
    return Texts::
        tr("The picture \"%1\" cannot be written: %2. Choose another folder or make room on the "
           "disk.")
            .arg(Native, ReasonText(Error.Reason()));
  } catch (const std::exception& Error) {
    return Texts::tr("The picture \"%1\" cannot be written: %2.")
        .arg(Native, ReasonText(Error.what()));
  }
}

QString AskAndSavePicture(QWidget* Parent, TGeoMap& Map, const TMapPart& Part,
                          const QString& Proposal, const QStringList& Protected, QString& Written) {
  Written.clear();
  QFileDialog Dialog(Parent, Texts::tr("Save Picture"), QFileInfo(Proposal).path());
  Dialog.setObjectName(QStringLiteral("savePicture"));
  Dialog.setAcceptMode(QFileDialog::AcceptSave);
  const QStringList Filters = {Texts::tr("PNG, all pixels as they are (*.png)"),
                               Texts::tr("JPEG, a smaller file (*.jpg *.jpeg)"),
                               Texts::tr("BMP (*.bmp)")};
  const QStringList Suffixes = {QStringLiteral("png"), QStringLiteral("jpg"),
                                QStringLiteral("bmp")};
  Dialog.setNameFilters(Filters);
  Dialog.setDefaultSuffix(Suffixes.constFirst());
  QObject::connect(&Dialog, &QFileDialog::filterSelected, &Dialog, [&](const QString& Filter) {
    Dialog.setDefaultSuffix(Suffixes.value(Filters.indexOf(Filter)));
  });
  Dialog.selectFile(QFileInfo(Proposal).fileName() + QStringLiteral(".png"));
  if (Dialog.exec() != QDialog::Accepted) return {};
  const QString Path = Dialog.selectedFiles().constFirst();
  QString Problem = SavePicture(DrawPicture(Map, Part), Path, Protected);
  if (Problem.isEmpty()) Written = Path;
  return Problem;
}

}  // namespace zav
