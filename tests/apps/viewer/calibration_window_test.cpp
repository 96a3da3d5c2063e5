// calibration_window_test.cpp - calibrating a bare scan in the viewer's window, from the first
// click to the file, and what happens to unsaved work.
// SPDX-License-Identifier: MIT
#include <QAbstractButton>
#include <QCloseEvent>
#include <QDir>

#include <geomap/calibration/calib_file.h>
#include <platform/qt/qt_convert.h>

#include "calibration_support.h"
#include "position_parser.h"

namespace zav {
namespace {

QByteArray Bytes(const QString& Path) {
  QFile File(Path);
  return File.open(QIODevice::ReadOnly) ? File.readAll() : QByteArray();
}

TCalibration Fitted(const QString& Path, QSize Image) {
  TCalibData Data;
  TCalibModel Model = TCalibModel::cmUndefined;
  TCalibration Calibration;
  EXPECT_TRUE(ParseCalibData(FromQString(Path), "", Data, Model));
  Calibration.SetImageSize(Image.width(), Image.height());
  Calibration.SetData(Data, Model);
  return Calibration;
}

// Every point of the sample's table is clicked and typed, in all four ways of writing. The file
// must convert as the sample's own calibration does.
TEST_F(CalibrationTest, ABareScanIsCalibratedByClicking) {
  OpenBare("europe_conic.jpg");
  ChooseModel("Conic");
  const QList<QByteArray> Lines = Bytes(Sample("europe_conic.points.csv")).split('\n');
  ASSERT_EQ(Lines.size(), 26);
  for (int i = 1; i <= 24; ++i) {
    const QList<QByteArray> Parts = Lines[i].trimmed().split(',');
    const double Lat = Parts[0].toDouble();
    const double Long = Parts[1].toDouble();
    const QString North = QString::number(Lat);
    const QString East = QString::number(std::abs(Long));
    const QString Side = Long < 0 ? "W" : "E";
    const QString Ways[] = {North + " " + QString::number(Long), North + "N " + East + Side,
                            North + " 00 N, " + East + " 00 " + Side,
                            North + "\u00b000'00\" N, " + East + "\u00b000'00\" " + Side};
    AddPoint(Parts[2].toInt(), Parts[3].toInt(), Ways[i % 4]);
    ASSERT_EQ(Document().itemCount(), i) << Lines[i].toStdString();
  }
  EXPECT_LT(Document().quality().Rms, 0.5);
  EXPECT_TRUE(FWindow->isWindowModified());
  // The graticule is shown meanwhile.
  EXPECT_EQ(Widget().showGraticule(), GeoMapWidget::Graticule::Lines);

  Action("Save Calibration")->trigger();
  EXPECT_FALSE(FWindow->isWindowModified());
  const QString Saved = FFolder.path("europe_conic.xml");
  ASSERT_TRUE(QFile::exists(Saved)) << FWindow->message().toStdString();
  EXPECT_EQ(Bytes(FFolder.path("europe_conic.jpg")), Bytes(Sample("europe_conic.jpg")));
  const QSize Image(2000, 1500);
  const TCalibration Mine = Fitted(Saved, Image);
  const TCalibration Truth = Fitted(Sample("europe_conic.xml"), Image);
  int Compared = 0;
  for (int Lat = 32; Lat <= 70; Lat += 2)
    for (int Long = -30; Long <= 50; Long += 4) {
      double X = 0, Y = 0, TrueX = 0, TrueY = 0;
      if (!Truth.ToPixel(Lat, Long, TrueX, TrueY)) continue;
      ASSERT_TRUE(Mine.ToPixel(Lat, Long, X, Y));
      EXPECT_LE(std::hypot(X - TrueX, Y - TrueY), 1) << Lat << "," << Long;
      ++Compared;
    }
  EXPECT_EQ(Compared, 20 * 21);

  // The file opens as a map, with its points.
  EXPECT_EQ(FWindow->openAll({Saved}), "");
  EXPECT_EQ(Document().itemCount(), 24);
  EXPECT_EQ(Widget().calibrationModel(), GeoMapWidget::CalibrationModel::ConicConformal);
  Action("Calibrate")->trigger();
  EXPECT_EQ(Widget().showGraticule(), GeoMapWidget::Graticule::NoGraticule);
}

TEST_F(CalibrationTest, ModelAndZoneChangeEverythingAtOnce) {
  ASSERT_EQ(FWindow->openAll({FFolder.copy("alps_utm32n.jpg", "alps.jpg")}), "");
  Action("Calibrate")->trigger();
  ASSERT_TRUE(Work().importFrom(Sample("alps_utm32n.points.csv"), CalibImport::Replace));
  QComboBox& Ellipsoid = Named<QComboBox>("Ellipsoid");
  ChooseModel("First order, degrees");
  EXPECT_FALSE(Ellipsoid.isVisible());
  const double Bent = Document().quality().Rms;
  const QString Told = Named<QLabel>(CalibFigureName(CalibFigure::Rms)).text();
  const QString Row = Cell(0, CalibrationTable::Pixels);
  const auto Position = [this] {
    double X = 0, Y = 0;
    Widget().map().Calibration().ToPixel(47, 8, X, Y);
    return QPointF(X, Y);
  };
  const QPointF Before = Position();

  ChooseModel("UTM");
  EXPECT_TRUE(Ellipsoid.isVisible());
  EXPECT_EQ(Named<QSpinBox>("UTM zone").value(), 32);
  EXPECT_LT(Document().quality().Rms, Bent / 10);
  EXPECT_NE(Named<QLabel>(CalibFigureName(CalibFigure::Rms)).text(), Told);
  EXPECT_NE(Cell(0, CalibrationTable::Pixels), Row);
  EXPECT_NE(Position(), Before);
  EXPECT_FALSE(Named<QLabel>(CalibFigureName(CalibFigure::Rms)).toolTip().isEmpty());

  // In UTM a crossing of the kilometre grid is proposed.
  Action("UTM")->trigger();
  Widget().setMagnification(1);  // far enough from the point that is near by
  int32_t X = 0;
  int32_t Y = 0;
  ASSERT_TRUE(Document().calibration().CalcPixelCoordsUTM(5200000, 500000, X, Y));
  Click(X + 2, Y - 1);
  EXPECT_EQ(Field("Position").text(), TypedText(CalibPosition::OfUtm(5200000, 500000, 32, false)));
  Tool().abort();

  // Another ellipsoid moves the metres of points that were typed in degrees.
  const auto Metres = [this] { return Document().metresOf(Document().item(0))->Northing; };
  const double Wgs = Metres();
  Ellipsoid.setCurrentIndex(Ellipsoid.findText("Bessel 1841"));
  emit Ellipsoid.activated(Ellipsoid.currentIndex());
  EXPECT_GT(std::abs(Metres() - Wgs), 100);
  Named<QSpinBox>("UTM zone").setValue(33);
  EXPECT_EQ(Widget().map().GetUTMZone(), 33);
  for (int i = 0; i < 3; ++i) Action("Undo")->trigger();
  EXPECT_EQ(Named<QComboBox>("Model").currentText(), "First order, degrees");
  EXPECT_EQ(Document().quality().Rms, Bent);

  // Two points cannot carry a map, and that is said.
  Document().removeItems([this] {
    std::vector<int> Ids;
    for (int i = 2; i < Document().itemCount(); ++i) Ids.push_back(Document().item(i).Id);
    return Ids;
  }());
  Work().dock().updateWarnings();
  ASSERT_GE(Named<QListWidget>("Warnings").count(), 1);
  EXPECT_TRUE(Named<QListWidget>("Warnings").isVisible());
}

TEST_F(CalibrationTest, GraticuleLinesAreMarked) {
  OpenBare("australia_laea.jpg");
  ChooseModel("Parabolic interpolation");
  const QList<QByteArray> Lines = Bytes(Sample("australia_laea.lines.csv")).split('\n');
  QString Last;
  int Count = 0;
  for (int i = 1; i < Lines.size() && !Lines[i].trimmed().isEmpty(); ++i) {
    const QList<QByteArray> Parts = Lines[i].trimmed().split(',');
    const double Value = Parts[1].toDouble();
    const char* Letter = Parts[0] == "meridian" ? (Value < 0 ? " W" : " E")
                         : Value < 0            ? " S"
                                                : " N";
    const QString Line = QString::number(std::abs(Value)) + Letter;
    Click(Parts[2].toInt(), Parts[3].toInt());
    // Points of one line follow each other: the last line is proposed, Enter is enough.
    EXPECT_EQ(Field("Position").text(), Last);
    if (Line == Last)
      QTest::keyClick(&Field("Position"), Qt::Key_Return);
    else
      Answer(Line);
    Last = Line;
    ASSERT_EQ(Document().itemCount(), ++Count) << Lines[i].toStdString();
  }
  EXPECT_LT(Document().quality().Rms, 0.5);
  TypeCell(0, CalibrationTable::Position, "north");
  EXPECT_TRUE(Named<QLabel>("Refused").isVisible());
}

TEST_F(CalibrationTest, UnsavedWorkIsAskedAbout) {
  OpenBare("europe_conic.jpg");
  ChooseModel("Conic");
  AddPoint(709, 87, "70 -10", "Jan Mayen");
  const QString Other = Sample("iceland.xml");

  WillPress(QMessageBox::Cancel);
  EXPECT_EQ(FWindow->openAll({Other}), "");
  EXPECT_EQ(FAsked, 1);
  EXPECT_TRUE(FWindow->windowTitle().contains("europe_conic"));
  WillPress(QMessageBox::Cancel);
  EXPECT_FALSE(FWindow->close());
  EXPECT_EQ(FAsked, 1);
  EXPECT_TRUE(FWindow->isVisible());
  WillPress(QMessageBox::Cancel);
  Action("Revert")->trigger();
  EXPECT_EQ(FAsked, 1);
  EXPECT_EQ(Document().itemCount(), 1);

  WillPress(QMessageBox::Save);
  EXPECT_EQ(FWindow->openAll({Other}), "");
  EXPECT_EQ(FAsked, 1);
  EXPECT_EQ(Document().fileName(), QFileInfo(Other).absoluteFilePath());
  // Nothing to ask about now.
  WillPress(QMessageBox::Cancel);
  ASSERT_EQ(FWindow->openAll({FFolder.path("europe_conic.xml")}), "");
  EXPECT_EQ(FAsked, 0);
  QTest::qWait(1);
  ASSERT_EQ(Document().itemCount(), 1);
  EXPECT_EQ(Document().item(0).Name, "Jan Mayen");  // in the side file

  Document().setEnabled(Document().item(0).Id, false);
  WillPress(QMessageBox::Discard);
  Action("Revert")->trigger();
  EXPECT_EQ(FAsked, 1);
  EXPECT_TRUE(Document().item(0).Enabled);
  EXPECT_FALSE(FWindow->isWindowModified());

  // A file that cannot be written leaves the work, and the window open.
  Document().setName(Document().item(0).Id, "Elsewhere");
  QFile::remove(FFolder.path("europe_conic.xml"));
  ASSERT_TRUE(QDir(FFolder.Dir.path()).mkdir("europe_conic.xml"));
  WillPress(QMessageBox::Save);
  EXPECT_FALSE(FWindow->close());
  EXPECT_FALSE(FWindow->message().isEmpty());
  EXPECT_TRUE(FWindow->isWindowModified());
  WillPress(QMessageBox::Discard);
  EXPECT_TRUE(FWindow->close());
  EXPECT_EQ(FAsked, 1);
}

}  // namespace
}  // namespace zav
