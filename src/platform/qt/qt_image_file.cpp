// qt_image_file.cpp - pictures in the formats that Qt reads.
// SPDX-License-Identifier: MIT
#include <platform/qt/qt_image_file.h>

#include <QImage>
#include <QImageReader>
#include <QPainter>

#include <platform/base/errors.h>
#include <platform/codec/decoding.h>
#include <platform/qt/qt_convert.h>
#include <platform/qt/qt_image.h>

namespace zav {

namespace {

// Megabytes: what the largest picture takes in Qt's widest format of eight bytes a pixel.
constexpr int64_t AllocationLimit = MaxDecodablePixels * 8 / 1000000;

[[noreturn]] void Refuse(const std::string& Path, const QImageReader& Reader) {
  if (Reader.error() == QImageReader::UnsupportedFormatError)
    throw EInOutError(Path, "not a kind of image file that can be read here");
  throw EInOutError(Path, FromQString(Reader.errorString()));
}

TSize SizeOf(const std::string& Path, QImageReader& Reader) {
  const QSize Size = Reader.size();
  if (Reader.canRead() && Size.isValid()) return {Size.width(), Size.height()};
  Refuse(Path, Reader);
}

}  // namespace

TSize ReadQtImageSize(const std::string& Path) {
  QImageReader Reader(ToQString(Path));
  return SizeOf(Path, Reader);
}

TBitmap LoadQtImage(const std::string& Path) {
  QImageReader Reader(ToQString(Path));
  CheckDecodable(SizeOf(Path, Reader), Path);
  const int Before = QImageReader::allocationLimit();
  QImageReader::setAllocationLimit(static_cast<int>(AllocationLimit));
  QImage Image;
  const bool Read = Reader.read(&Image);
  QImageReader::setAllocationLimit(Before);
  if (!Read) Refuse(Path, Reader);
  if (Image.hasAlphaChannel()) {
    QImage Paper(Image.size(), QImage::Format_RGB32);
    Paper.fill(Qt::white);
    QPainter(&Paper).drawImage(QPoint(), Image);
    Image = Paper;
  }
  return ToBitmap(Image);
}

}  // namespace zav
