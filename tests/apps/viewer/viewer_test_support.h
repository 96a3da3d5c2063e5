// viewer_test_support.h - small maps for the viewer's tests.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_APPS_VIEWER_VIEWER_TEST_SUPPORT_H
#define ZAV_TESTS_APPS_VIEWER_VIEWER_TEST_SUPPORT_H

#include <QFile>
#include <QString>
#include <QTemporaryDir>

namespace zav {

inline QString Sample(const char* Name) {
  return QStringLiteral(ZAVGEO_SAMPLES "/maps/") + QLatin1String(Name);
}

// A folder that is removed with this object.
struct TestFolder {
  QTemporaryDir Dir;

  QString path(const char* Name) const { return Dir.filePath(QString::fromUtf8(Name)); }
  QString write(const char* Name, const QByteArray& Bytes) const {
    QFile File(path(Name));
    if (!File.open(QIODevice::WriteOnly) || File.write(Bytes) != Bytes.size()) qFatal("test file");
    return File.fileName();
  }
  QString copy(const char* SampleName, const char* Name) const {
    if (!QFile::copy(Sample(SampleName), path(Name))) qFatal("test file");
    return path(Name);
  }
};

// A calibration of three points in degrees: 0.01 degrees a pixel, 46 north 8 east at pixel (0, 0).
inline QByteArray CalibrationText(const QByteArray& Image, const QByteArray& Caption) {
  return "<geomap sig=\"Tarvoline\" vers=\"1.0\" id=\"\" model=\"equirect\" map=\"" + Image +
         "\" caption=\"" + Caption +
         "\">\r\n<calquads npoints=\"3\">\r\n[46.00000,8.00000,0,0] [46.00000,10.00000,200,0] "
         "[44.00000,8.00000,0,200] \r\n</calquads>\r\n</geomap>\r\n";
}

}  // namespace zav

#endif
