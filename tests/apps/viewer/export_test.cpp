// export_test.cpp - pictures and copies of a map, through the viewer's menus.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QImage>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QTimer>

#include <platform/codec/image_file.h>
#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_image.h>
#include <support/failing_file_ops.h>

#include "export_menu.h"
#include "export_picture.h"
#include "main_window.h"
#include "map_source.h"
#include "viewer_test_support.h"

namespace zav {
namespace {

class ExportTest : public ::testing::Test {
 protected:
  void SetUp() override {
    FFolder.copy("iceland.bmp", "iceland.bmp");
    FFolder.copy("iceland.xml", "iceland.xml");
    FWindow = std::make_unique<MainWindow>(nullptr);
    FWindow->resize(800, 600);
    FWindow->show();
    QTest::qWait(1);
    ASSERT_EQ(FWindow->openAll({FFolder.path("iceland.xml")}), "");
  }
  TGeoMap& Map() { return FWindow->mapWidget().map(); }
  QAction& Action(const QString& Text) {
    for (QAction* Each : FWindow->findChildren<QAction*>())
      if (Each->text().remove('&') == Text) return *Each;
    qFatal("no action %s", qPrintable(Text));
  }
  // Answers the file dialog that the command opens.
  void TriggerAndName(const QString& Command, const QString& Path) {
    QTimer::singleShot(0, FWindow.get(), [this, Path] { Answer(Path); });
    Action(Command).trigger();
  }
  void Answer(const QString& Path) {
    if (auto* Question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      FQuestion = Question->informativeText();
      QTimer::singleShot(0, FWindow.get(), [this, Path] { Answer(Path); });
      for (QAbstractButton* Each : Question->buttons())
        if (Question->buttonRole(Each) == QMessageBox::AcceptRole) return Each->click();
    }
    auto* Dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(Dialog, nullptr);
    FProposal = Dialog->selectedFiles().constFirst();
    Dialog->setOption(QFileDialog::DontConfirmOverwrite);
    Dialog->selectFile(Path);
    static_cast<QDialog*>(Dialog)->done(QDialog::Accepted);
  }

  TestFolder FFolder;
  std::unique_ptr<MainWindow> FWindow;
  QString FProposal;
  QString FQuestion;
};

TEST_F(ExportTest, PicturesOfWindowRectangleAndMap) {
  // 497 x 408 pixels in the middle of the window: no margin is saved.
  EXPECT_EQ(VisibleMapPart(Map()), QRect(0, 0, 497, 408));
  Map().SetView({100, 50}, 2);
  const TViewState Before = Map().View();  // kept inside the map
  FWindow->mapWidget().setShowGraticule(GeoMapWidget::Graticule::Lines);
  TriggerAndName("What the Window Shows...", FFolder.path("view.png"));
  EXPECT_TRUE(FProposal.endsWith("iceland picture.png")) << FProposal.toStdString();
  EXPECT_EQ(FWindow->message(), "");
  const QImage View(FFolder.path("view.png"));
  const QRect Seen = VisibleMapPart(Map());
  ASSERT_EQ(View.size(), Seen.size() * 2);
  // The same picture as on the screen, but for the frame and the screen's fewer colours.
  const QImage Screen = FWindow->mapWidget().picture();
  int Different = 0;
  for (int Y = 4; Y < qMin(View.height(), Screen.height()) - 4; ++Y)
    for (int X = 4; X < qMin(View.width(), Screen.width()) - 4; ++X)
      Different += qAbs(qRed(View.pixel(X, Y)) - qRed(Screen.pixel(X, Y))) > 8 ||
                   qAbs(qBlue(View.pixel(X, Y)) - qBlue(Screen.pixel(X, Y))) > 8;
  EXPECT_EQ(Different, 0);

  FWindow->mapWidget().setShowGraticule(GeoMapWidget::Graticule::NoGraticule);
  TriggerAndName("The Whole Map...", FFolder.path("whole.bmp"));
  EXPECT_EQ(LoadImageFile(FFolder.path("whole.bmp").toStdString(), TImageKind::ikBmp),
            Map().MapBitmap());
  const TBitmap Part = DrawPicture(Map(), RectangleAsPicture(Map(), {-10, 20, 60, 30}));
  ASSERT_EQ(Part.Width(), 50);
  EXPECT_EQ(Part.Pixel(7, 3), Map().MapBitmap().Pixel(7, 23));
  EXPECT_TRUE(DrawPicture(Map(), RectangleAsPicture(Map(), {600, 20, 60, 30})).Empty());

  Action("Copy Picture of the Map").trigger();
  EXPECT_EQ(ToBitmap(QApplication::clipboard()->image()), Map().MapBitmap());
  Action("Copy Picture of the Window").trigger();
  EXPECT_EQ(QApplication::clipboard()->image().size(), Seen.size() * 2);
  EXPECT_EQ(Map().View(), Before);
}

TEST_F(ExportTest, NothingOfTheMapIsOverwrittenAndNothingIsHalfWritten) {
  const TBitmap Picture = DrawPicture(Map(), WholeMapAsPicture(Map()));
  const QByteArray Image = [&] {
    QFile File(FFolder.path("iceland.bmp"));
    EXPECT_TRUE(File.open(QIODevice::ReadOnly));
    return File.readAll();
  }();
  TriggerAndName("The Whole Map...", FFolder.path("iceland.bmp"));
  EXPECT_TRUE(FWindow->message().contains("belongs to the map"))
      << FWindow->message().toStdString();
  TriggerAndName("Save Map...", FFolder.path("iceland.jpg"));
  EXPECT_TRUE(FQuestion.contains("encoded again"));
  EXPECT_TRUE(FWindow->message().contains("iceland.xml")) << FWindow->message().toStdString();
  QFile Now(FFolder.path("iceland.bmp"));
  ASSERT_TRUE(Now.open(QIODevice::ReadOnly));
  EXPECT_TRUE(Now.readAll() == Image);

  EXPECT_TRUE(SavePicture(Picture, FFolder.path("a.gif")).contains(".png"));
  EXPECT_TRUE(SavePicture({}, FFolder.path("a.png")).contains("nothing to save"));
  EXPECT_TRUE(SavePicture(Picture, FFolder.path("no folder/a.png")).contains("cannot be written"));
  TFailingFileOps Ops;
  const TFileOpsOverride With(Ops);
  for (const char* Name : {"full.png", "full.jpg", "full.bmp"}) {
    Ops.Arm(2);
    EXPECT_TRUE(SavePicture(Picture, FFolder.path(Name)).contains("No space left")) << Name;
    EXPECT_FALSE(QFile::exists(FFolder.path(Name)));
  }
  Ops.Arm(2);
  TriggerAndName("Save Map...", FFolder.path("full.jpg"));
  EXPECT_TRUE(FWindow->message().contains("No space left"));
  EXPECT_EQ(QDir(FFolder.Dir.path()).entryList(QDir::Files),
            (QStringList{"iceland.bmp", "iceland.xml"}));
}

TEST_F(ExportTest, SavedMapsOpen) {
  TriggerAndName("Save Map...", FFolder.path("copy.jpg"));
  EXPECT_EQ(FWindow->message(), "");
  EXPECT_EQ(Map().MapImgFile(), "iceland.bmp");
  const MapSource Copy = InspectMap(FFolder.path("copy.xml"));
  EXPECT_EQ(Copy.Problem, "");
  EXPECT_EQ(Copy.ImagePath, FFolder.path("copy.jpg"));
  EXPECT_EQ(Copy.Caption, InspectMap(FFolder.path("iceland.xml")).Caption);
  EXPECT_EQ(Copy.ImageSize, QSize(497, 408));

  // Without a map there is nothing to export.
  const MainWindow Empty(nullptr);
  int Disabled = 0;
  for (const QAction* Each : Empty.findChildren<QAction*>())
    Disabled += Each->text().contains("PDF") && !Each->isEnabled();
  EXPECT_EQ(Disabled, 1);
}

}  // namespace
}  // namespace zav
