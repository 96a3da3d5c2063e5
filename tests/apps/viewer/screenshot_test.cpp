// screenshot_test.cpp - the program itself, started without a hand and without a display.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>
#include <QSet>

#include "viewer_test_support.h"

namespace zav {
namespace {

struct Outcome {
  int Status = -1;
  QString Errors;
};

Outcome RunViewer(const QStringList& Arguments) {
  QProcessEnvironment Environment = QProcessEnvironment::systemEnvironment();
  for (const char* Name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    Environment.remove(Name);
  QProcess Process;
  Process.setProcessEnvironment(Environment);
  Process.start(ZAVGEO_VIEWER, Arguments);
  if (!Process.waitForFinished(60000) || Process.exitStatus() != QProcess::NormalExit) return {};
  return {Process.exitCode(), QString::fromLocal8Bit(Process.readAllStandardError())};
}

TEST(ViewerProgram, WritesThePictureOfItsWindow) {
  const TestFolder Folder;
  const QString Map = Sample("alps_utm32n.xml");
  const QString Plain = Folder.path("plain.png");
  const QString Grid = Folder.path("grid.png");
  const Outcome First = RunViewer({"--screenshot", Plain, "--size", "800x600", Map});
  ASSERT_EQ(First.Status, 0) << First.Errors.toStdString();
  const Outcome Second =
      RunViewer({"--screenshot", Grid, "--size", "800x600", "--graticule", "utm-grid",
                 "--magnification", "1.5", "--center", "46.5,8.0", Map});
  ASSERT_EQ(Second.Status, 0) << Second.Errors.toStdString();
  const QImage Picture(Plain);
  EXPECT_EQ(Picture.size(), QSize(800, 600));
  QSet<QRgb> Colors;
  for (int Y = 150; Y < 500; Y += 7)
    for (int X = 200; X < 600; X += 7) Colors.insert(Picture.pixel(X, Y));
  EXPECT_GT(Colors.size(), 100);
  EXPECT_NE(Picture, QImage(Grid));
}

TEST(ViewerProgram, TellsErrorsByStatusAndText) {
  const TestFolder Folder;
  const QString Shot = Folder.path("shot.png");
  const QString Map = Sample("alps_utm32n.xml");
  const struct {
    QStringList Arguments;
    int Status;
    const char* Says;
  } Cases[] = {
      {{Map}, 1, "no display"},
      {{"--screenshot", Shot, Folder.path("absent.xml")}, 1, "absent.xml"},
      {{"--screenshot", Shot, Folder.Dir.path()}, 1, "no map in the folder"},
      {{"--screenshot", Shot, Map, "--center", "10,10"}, 1, "not on this map"},
      {{"--screenshot", Shot, Sample("iceland.bmp"), "--graticule", "utm-grid"},
       1,
       "not calibrated in UTM"},
      {{"--screenshot", Folder.path("no/such/folder.png"), Map}, 1, "cannot be written"},
      {{"--screenshot", Shot, "--size", "10x10", Map}, 2, "--size"},
      {{"--screenshot", Shot, "--magnification", "2.5", Map}, 2, "0.5 to 2"},
      {{"--screenshot", Shot, "--graticule", "dots", Map}, 2, "points-and-lines"},
      {{"--screenshot", Shot, "--wrong", Map}, 2, "wrong"},
      {{"--help"}, 0, ""},
  };
  for (const auto& Case : Cases) {
    const Outcome Result = RunViewer(Case.Arguments);
    EXPECT_EQ(Result.Status, Case.Status) << Case.Arguments.join(' ').toStdString();
    EXPECT_TRUE(Result.Errors.contains(QLatin1String(Case.Says))) << Result.Errors.toStdString();
    EXPECT_FALSE(QFile::exists(Shot)) << Case.Arguments.join(' ').toStdString();
  }
}

}  // namespace
}  // namespace zav
