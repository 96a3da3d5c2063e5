// import_test.cpp - scans that cannot be maps as they are, opened in the viewer.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QImageWriter>
#include <QPushButton>
#include <QTest>

#include <platform/qt/geo_map_widget.h>
#include <support/failing_file_ops.h>

#include "calib_document.h"
#include "import_copy.h"
#include "main_window.h"
#include "viewer_test_support.h"

namespace zav {
namespace {

class ImportTest : public ::testing::Test {
 protected:
  void SetUp() override {
    FWindow.resize(800, 600);
    FWindow.show();
    QTest::qWait(1);
  }
  // Two colours, so that each place of the picture is known.
  QString WriteScan(const char* Name, QSize Size) {
    QImage Scan(Size, QImage::Format_RGB32);
    Scan.fill(QColor(40, 80, 160));
    QString Path = FFolder.path(Name);
    for (int Y = 0; Y < Size.height(); ++Y)
      for (int X = 0; X < Size.width() / 2; ++X) Scan.setPixel(X, Y, qRgb(200, 180, 20));
    if (!Scan.save(Path)) qFatal("test file");
    return Path;
  }
  QPushButton& Answer() { return *FWindow.findChild<QPushButton*>("answer"); }
  QStringList Files() { return QDir(FFolder.Dir.path()).entryList(QDir::Files); }
  TGeoMap& Map() { return FWindow.mapWidget().map(); }

  TestFolder FFolder;
  MainWindow FWindow{nullptr};
};

TEST_F(ImportTest, ALargeScanBecomesASmallerMapWithItsPoints) {
  WriteScan("scan.jpg", {5000, 4000});
  // Names and a point that is switched off come along; the format itself knows neither.
  const QString Path = FFolder.write("scan.xml", CalibrationText("scan.jpg", "A Large Scan"));
  {
    CalibDocument Document;
    ASSERT_EQ(Document.load(Path), "");
    Document.setName(Document.item(0).Id, "Church");
    Document.setEnabled(Document.item(2).Id, false);
    Document.moveItem(Document.item(1).Id, {4000, 2000});
    ASSERT_EQ(Document.save(), "");
  }
  const QStringList Before = Files();
  EXPECT_NE(FWindow.openAll({Path}), "");
  EXPECT_TRUE(FWindow.message().contains(QStringLiteral("%L1 x %L2").arg(5000).arg(4000)))
      << FWindow.message().toStdString();
  EXPECT_TRUE(FWindow.message().contains("scan_small.jpg"));
  ASSERT_TRUE(Answer().isVisible());

  // A full disk leaves nothing behind.
  {
    TFailingFileOps Ops;
    const TFileOpsOverride With(Ops);
    Ops.Arm(2);
    Answer().click();
    EXPECT_TRUE(FWindow.message().contains("No space left")) << FWindow.message().toStdString();
    EXPECT_FALSE(Answer().isVisible());
    EXPECT_EQ(Files(), Before);
  }
  FWindow.openAll({Path});
  Answer().click();
  EXPECT_EQ(FWindow.message(), "");
  EXPECT_TRUE(FWindow.windowTitle().contains("A Large Scan"));
  EXPECT_EQ(Map().MapImgWidth(), 1936);  // 1936 x 1549 is just below three million
  EXPECT_EQ(Map().MapImgHeight(), 1549);
  EXPECT_EQ(RedOf(Map().MapBitmap().Pixel(960, 800)), RedOf(Map().MapBitmap().Pixel(10, 10)));
  EXPECT_NEAR(RedOf(Map().MapBitmap().Pixel(975, 800)), 40, 3);
  CalibDocument Small;
  ASSERT_EQ(Small.load(FFolder.path("scan_small.xml")), "");
  ASSERT_EQ(Small.itemCount(), 3);
  EXPECT_EQ(Small.item(0).Name, "Church");
  EXPECT_FALSE(Small.item(2).Enabled);
  EXPECT_EQ(Small.item(1).Pixel, (TPoint{1548, 774}));  // (4000.5, 2000.5) * 0.387 - 0.5
  EXPECT_EQ(Small.caption(), "A Large Scan");

  // A second time there are other names.
  FWindow.openAll({Path});
  EXPECT_TRUE(FWindow.message().contains("scan_small_2.jpg")) << FWindow.message().toStdString();
}

TEST_F(ImportTest, OtherKindsAreConverted) {
  QStringList Names = {"a.png"};
  if (QImageWriter::supportedImageFormats().contains("tiff")) Names << "b.tif";
  for (const QString& Name : Names) {
    const QByteArray Bytes = Name.toUtf8();
    const QString Path = WriteScan(Bytes.constData(), {600, 400});
    FWindow.openAll({Path});
    EXPECT_TRUE(FWindow.message().contains(Name)) << FWindow.message().toStdString();
    ASSERT_TRUE(Answer().isVisible());
    Answer().click();
    EXPECT_EQ(FWindow.message(), "");
    EXPECT_EQ(Map().MapImgWidth(), 600);
    EXPECT_TRUE(Map().MapImgFile().ends_with(Name.section('.', 0, 0).toStdString() + ".jpg"));
  }
  // A large one is made smaller at once, and a calibration that names it comes along.
  WriteScan("c.png", {2000, 2000});
  FWindow.openAll({FFolder.write("c.xml", CalibrationText("c.png", "Sea"))});
  Answer().click();
  EXPECT_EQ(FWindow.message(), "");
  EXPECT_EQ(Map().MapImgWidth(), 1732);
  EXPECT_EQ(Map().CalibData().NumCalQuads, 3);
  EXPECT_TRUE(QFile::exists(FFolder.path("c.png")));

  // What nobody can read has no offer; other messages have no button.
  FWindow.openAll({FFolder.write("d.png", "\x89PNG no picture")});
  EXPECT_NE(FWindow.message(), "");
  EXPECT_FALSE(Answer().isVisible());
  EXPECT_FALSE(OfferImport(InspectMap(FFolder.write("e.txt", "text"))));
}

}  // namespace
}  // namespace zav
