// atlas_thumbnails.h - small pictures of map images, made one after the other in the background
// when they are first asked for.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_ATLAS_THUMBNAILS_H
#define ZAV_APPS_VIEWER_ATLAS_THUMBNAILS_H

#include <QHash>
#include <QImage>
#include <QObject>
#include <QSize>
#include <QThreadPool>

namespace zav {

class AtlasThumbnails final : public QObject {
  Q_OBJECT

 public:
  // Pictures fill Size device pixels in one direction at least, keeping their shape.
  explicit AtlasThumbnails(QSize Size, QObject* Parent = nullptr);
  ~AtlasThumbnails() override;

  // The picture of an image file; a null one while it is being made, and when it cannot be.
  QImage thumbnail(const QString& ImagePath);
  // What is wanted no more is not made.
  void clear();

 signals:
  void ready(const QString& ImagePath);

 private:
  QSize FSize;
  QHash<QString, QImage> FImages;  // a null image: asked for
  QThreadPool FPool;
};

}  // namespace zav

#endif
