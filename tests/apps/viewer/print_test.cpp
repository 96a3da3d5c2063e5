// print_test.cpp - the printed page and the dialog that makes it.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QTest>

#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_printer.h>
#include <support/failing_file_ops.h>
#include <support/test_printer.h>

#include "print_dialog.h"
#include "viewer_test_support.h"

namespace zav {
namespace {

// As the user's locale writes it.
QString Scale(int Denominator) { return QStringLiteral("1:%L1").arg(Denominator); }

// The control points make a degree 100 pixels, so that a pixel is about 1112 metres.
class PrintTest : public ::testing::Test {
 protected:
  void SetUp() override {
    FFolder.copy("sicily_8bit.bmp", "sicily.bmp");
    FWidget.resize(300, 200);
    ASSERT_TRUE(
        FWidget.loadMap(FFolder.write("sicily.xml", CalibrationText("sicily.bmp", "Sicily"))));
    FWidth = Map().MapImgWidth();
    FHeight = Map().MapImgHeight();
    FPrinter.Resolution = 300;
    FPrinter.Page = {2000, 3000};
  }
  TGeoMap& Map() { return FWidget.map(); }
  QString Text(const QString& Pdf) {
    QProcess Tool;
    Tool.start("pdftotext", {Pdf, "-"});
    Tool.waitForFinished();
    return QString::fromUtf8(Tool.readAllStandardOutput());
  }

  TestFolder FFolder;
  GeoMapWidget FWidget;
  TTestPrinter FPrinter;
  int FWidth = 0, FHeight = 0;
};

TEST_F(PrintTest, ThePageHoldsWhatFits) {
  const PagePlan Bare = PlanPage(Map(), FPrinter, {true, 0, false});
  EXPECT_EQ(Bare.Part, QRect(0, 0, FWidth, FHeight));
  EXPECT_FALSE(Bare.Cut);
  EXPECT_TRUE(Bare.Area.Width() == 2000 || Bare.Area.Height() == 3000);
  EXPECT_NEAR(Bare.Area.Width() * FHeight, Bare.Area.Height() * FWidth, FHeight + FWidth);
  // With a legend there is less room, and a small scale leaves some; the map stands in the middle.
  const PagePlan Small = PlanPage(Map(), FPrinter, {true, 10000000, true});
  const double Factor = Map().CalibData().Resolution / 10000000 / 0.0254 * 300;
  EXPECT_NEAR(Small.Area.Width(), FWidth * Factor, 0.5);
  EXPECT_NEAR(Small.Area.Left, (2000 - FWidth * Factor) / 2, 1);
  EXPECT_GT(Small.Area.Top, 80);
  EXPECT_EQ(Small.Denominator, 10000000);
  // A large one shows the middle only, in whole pixels of the map.
  const PagePlan Large = PlanPage(Map(), FPrinter, {true, 500000, false});
  EXPECT_TRUE(Large.Cut);
  EXPECT_LE(Large.Area.Width(), 2000);
  EXPECT_GT(Large.Area.Width(), 2000 - 2 * Large.Factor);
  EXPECT_NEAR(Large.Part.center().x(), FWidth / 2.0, 1);
  // What the window shows, and what a map without calibration does not know.
  Map().SetView({20, 30}, 2);
  EXPECT_EQ(PlanPage(Map(), FPrinter, {false, 0, false}).Part.topLeft(), QPoint(20, 30));
  Map().ClearCalibData();
  EXPECT_TRUE(PlanPage(Map(), FPrinter, {true, 25000, true}).Part.isEmpty());
  EXPECT_EQ(PlanPage(Map(), FPrinter, {true, 0, true}).Denominator, 0);
  Map().Clear();
  EXPECT_TRUE(PlanPage(Map(), FPrinter, {true, 0, true}).Part.isEmpty());
}

TEST_F(PrintTest, ScaleBarsAreRoundAndAsLongAsTheySay) {
  EXPECT_EQ(ScaleBarLength(999), 500);
  EXPECT_EQ(ScaleBarLength(5000), 5000);
  EXPECT_EQ(ScaleBarLength(0.3), 0.2);
  EXPECT_EQ(ScaleBarLength(0), 0);
  EXPECT_EQ(PaperScaleText(25000), Scale(25000));
  EXPECT_EQ(PaperScaleText(1234567.8), Scale(1230000));
  FPrinter.BeginDoc("x");
  DrawPage(Map(), FPrinter, {true, 10000000, true}, "Sicily");
  FPrinter.EndDoc();
  ASSERT_EQ(FPrinter.Drawn.size(), 2U);
  const std::string Legend = FPrinter.Drawn[1].Canvas->Text();
  EXPECT_NE(Legend.find("\"Sicily\" font MS Sans Serif 40.625 000000 bold"), std::string::npos)
      << Legend;
  EXPECT_NE(Legend.find('"' + Scale(10000000).toStdString() + '"'), std::string::npos) << Legend;
  // 300 km are 30 mm; the longest round length below a third of the map's width.
  EXPECT_EQ(FPrinter.Drawn[1].Canvas->CountOf("Rectangle"), 5U) << Legend;
  const double Third = FWidth * Map().CalibData().Resolution / 3;
  const double Length = ScaleBarLength(Third);
  EXPECT_NE(Legend.find("\"" + std::to_string(static_cast<int>(Length / 1000)) + " km\""),
            std::string::npos)
      << Legend;
}

TEST_F(PrintTest, TheDialogSavesWhatItShows) {
  QSettings Settings(FFolder.path("s.ini"), QSettings::IniFormat);
  const QString Pdf = FFolder.path("sicily.pdf");
  const QStringList Protected = {FFolder.path("sicily.xml")};
  {
    PrintDialog Dialog(Map(), "Sicily", Protected, &Settings);
    Dialog.show();
    QTest::qWait(50);
    const QList<QComboBox*> Boxes = Dialog.findChildren<QComboBox*>();
    ASSERT_EQ(Boxes.size(), 4);
    QComboBox& Scale = *Boxes[1];
    EXPECT_EQ(Dialog.setup().Denominator, 0);
    EXPECT_TRUE(Dialog.note().contains("about 1:")) << Dialog.note().toStdString();
    Scale.setEditText("nonsense");
    EXPECT_TRUE(Dialog.note().contains("no scale")) << Dialog.note().toStdString();
    Scale.setEditText("1:1.000.000");
    EXPECT_EQ(Dialog.setup().Denominator, 1000000);
    EXPECT_TRUE(Dialog.note().contains("only the middle")) << Dialog.note().toStdString();
    Scale.setEditText("10000000");
    EXPECT_TRUE(Dialog.note().contains(::zav::Scale(10000000))) << Dialog.note().toStdString();
    Boxes[2]->setCurrentText("A3");
    EXPECT_EQ(Dialog.savePdf(Pdf), "");
    EXPECT_TRUE(Dialog.savePdf(Protected[0]).contains("belongs to the map"));
    EXPECT_TRUE(Dialog.savePdf(FFolder.path("no folder/x.pdf")).contains("cannot be written"));
    TFailingFileOps Ops;
    const TFileOpsOverride With(Ops);
    Ops.Arm(2);
    EXPECT_TRUE(Dialog.savePdf(FFolder.path("full.pdf")).contains("No space left"));
    EXPECT_FALSE(QFile::exists(FFolder.path("full.pdf")));
  }
  QFile File(Pdf);
  ASSERT_TRUE(File.open(QIODevice::ReadOnly));
  const QByteArray Bytes = File.readAll();
  // A3 in points, upright or across.
  EXPECT_TRUE(Bytes.contains("842") && (Bytes.contains("1191") || Bytes.contains("1190")));
  if (QProcess::execute("pdftotext", {"-v"}) == 0) {
    EXPECT_TRUE(Text(Pdf).contains("Sicily"));
    // pdftotext has blanks of its own for the thin ones of some languages.
    EXPECT_TRUE(Text(Pdf).remove(QRegularExpression("[^0-9:]")).contains("1:10000000"));
    EXPECT_TRUE(Text(Pdf).contains("200 km") || Text(Pdf).contains("100 km"));
  }
  // Paper is remembered; a handler that fails is told of, not thrown.
  PrintDialog Again(Map(), "Sicily", {}, &Settings);
  EXPECT_EQ(Again.findChildren<QComboBox*>()[2]->currentText(), "A3");
  Map().OnBeforeRenderData = [](TGeoMap*, TCanvas&) { throw std::runtime_error("handler"); };
  EXPECT_TRUE(Again.savePdf(FFolder.path("handler.pdf")).contains("handler"));
  EXPECT_FALSE(QFile::exists(FFolder.path("handler.pdf")));
}

}  // namespace
}  // namespace zav
