// atlas_thumbnails.cpp - see atlas_thumbnails.h.
// SPDX-License-Identifier: MIT
#include "atlas_thumbnails.h"

#include <QImageReader>
#include <QMetaObject>

namespace zav {

namespace {

QImage MakeThumbnail(const QString& Path, QSize Size) {
  QImageReader Reader(Path);
  const QSize Whole = Reader.size();
  // JPEG files are decoded small then, which takes little time.
  if (Whole.isValid()) Reader.setScaledSize(Whole.scaled(Size, Qt::KeepAspectRatio));
  return Reader.read();
}

}  // namespace

AtlasThumbnails::AtlasThumbnails(QSize Size, QObject* Parent) : QObject(Parent), FSize(Size) {
  // Leaves the other cores to the map.
  FPool.setMaxThreadCount(1);
}

AtlasThumbnails::~AtlasThumbnails() {
  FPool.clear();
  FPool.waitForDone();
}

QImage AtlasThumbnails::thumbnail(const QString& ImagePath) {
  if (ImagePath.isEmpty()) return {};
  const auto Known = FImages.constFind(ImagePath);
  if (Known != FImages.constEnd()) return *Known;
  FImages.insert(ImagePath, {});
  FPool.start([this, ImagePath, Size = FSize] {
    const QImage Image = MakeThumbnail(ImagePath, Size);
    // Delivered in the thread of this object, unless it is gone by then.
    QMetaObject::invokeMethod(
        this,
        [this, ImagePath, Image] {
          if (!FImages.contains(ImagePath) || Image.isNull()) return;
          FImages[ImagePath] = Image;
          emit ready(ImagePath);
        },
        Qt::QueuedConnection);
  });
  return {};
}

void AtlasThumbnails::clear() {
  FPool.clear();
  FImages.clear();
}

}  // namespace zav
