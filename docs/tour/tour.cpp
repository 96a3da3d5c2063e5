// tour.cpp - a walk through the viewer's main work, which makes the pictures of the documentation:
// zavgeo_tour PICTURES SCRATCH. It needs a screen of 1280 x 800 pixels or more; docs/tour/make has
// one.
// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstdio>
#include <string_view>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QImage>
#include <QListView>
#include <QListWidget>
#include <QLocale>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QStyleFactory>

#include <geobasics/countries.h>
#include <platform/qt/geo_map_widget.h>

#include <language.h>

#include "driver.h"

namespace zav::tour {
namespace {

constexpr QSize Large(1280, 800);
constexpr QSize Medium(1000, 660);

void ChooseInList(Driver& Tour, const QString& Caption) {
  auto& List = Tour.named<QListView>("Maps");
  for (int Row = 0; Row < List.model()->rowCount(); ++Row) {
    const QModelIndex Index = List.model()->index(Row, 0);
    if (!Index.data().toString().startsWith(Caption)) continue;
    List.scrollTo(Index);
    Tour.click(*List.viewport(), List.visualRect(Index).center());
    Tour.window().mapWidget().setFocus();
    return;
  }
  Fail("the list has no map " + Caption);
}

void Viewing(Driver& Tour) {
  Tour.begin(Large, {ZAVGEO_SAMPLES "/maps"});
  ChooseInList(Tour, "Europe");
  Tour.key(Qt::Key_2, Qt::AltModifier);
  Tour.hover(Tour.at(48.2, 16.4));
  Tour.picture("viewer");

  Tour.begin(Large, {Tour.copy("alps_utm32n.xml")});
  Tour.key(Qt::Key_4, Qt::AltModifier);
  auto& Readout = Tour.named<QAbstractButton>("Position under the mouse");
  Tour.hover(Tour.at(46.51, 8.62));
  for (int i = 0; i < 3; ++i) Tour.click(Readout);
  Tour.hover(Tour.at(46.51, 8.62));
  Tour.picture("viewer_utm_grid");

  Tour.key(Qt::Key_0, Qt::AltModifier);
  Tour.menu("File", "Print", [&Tour](QWidget& Dialog) {
    Dialog.resize(900, 680);
    for (auto* Box : Dialog.findChildren<QComboBox*>())
      if (Box->isEditable()) Box->setEditText("1:1,000,000");
    Tour.picture("viewer_print", Dialog);
    static_cast<QDialog&>(Dialog).reject();
  });
}

// What goes wrong when a file is opened is told with what to do about it.
void Messages(Driver& Tour) {
  const QString Map = Tour.copy("europe_conic.xml");
  QFile::remove(Tour.scratch().filePath("europe_conic.jpg"));
  Tour.begin(Large, {Map});
  Tour.picture("viewer_message", {0, 0, 1280, 250});

  QImage Scan(ZAVGEO_SAMPLES "/maps/europe_conic.jpg");
  Scan.scaled(5000, 5000).save(Tour.scratch().filePath("scan.jpg"));
  Tour.begin(Large, {Tour.scratch().filePath("scan.jpg")});
  Tour.picture("viewer_large_scan", {0, 0, 1280, 120});
}

void Measuring(Driver& Tour) {
  Tour.begin(Large, {Tour.copy("europe_conic.xml")});
  Tour.key(Qt::Key_L);
  Tour.clickMap(Tour.at(48.86, 2.35));
  Tour.clickMap(Tour.at(50.08, 14.42), Qt::ControlModifier);
  Tour.hover(Tour.at(48.21, 16.37));
  const QPoint Middle = Tour.window().mapWidget().mapTo(&Tour.window(), Tour.at(49.2, 9.0));
  Tour.picture("viewer_measure", QRect(Middle - QPoint(360, 180), QSize(720, 360)));

  Tour.begin(Medium, {Tour.copy("alps_utm32n.xml")});
  Tour.key(Qt::Key_L);
  Tour.clickMap(Tour.at(46.3, 7.4));
  Tour.clickMap(Tour.at(47.2, 7.7), Qt::ControlModifier);
  Tour.clickMap(Tour.at(47.1, 9.3), Qt::ControlModifier);
  Tour.clickMap(Tour.at(46.2, 9.1));
  Tour.picture("measuring_area");

  Tour.begin(Medium, {Tour.copy("europe_conic.xml")});
  Tour.key(Qt::Key_G, Qt::ControlModifier);
  Tour.type("ber");
  QWidget& Dialog = *QApplication::activeWindow();
  Tour.picture("go_to", Dialog, QRect(0, 0, Dialog.width(), 156));
  Dialog.close();
}

struct PointRow {
  int X, Y;
  QString Position;
};

// The points of a sample's table, "47.5 8.25".
QList<PointRow> PointsOf(const char* Table) {
  QFile File(QStringLiteral(ZAVGEO_SAMPLES "/maps/") + QLatin1String(Table));
  if (!File.open(QIODevice::ReadOnly)) Fail("there is no table of points");
  QList<PointRow> Rows;
  for (const QByteArray& Line : File.readAll().split('\n').mid(1)) {
    const QList<QByteArray> Parts = Line.trimmed().split(',');
    if (Parts.size() >= 4)
      Rows += {Parts[2].toInt(), Parts[3].toInt(), QString::fromLatin1(Parts[0] + ' ' + Parts[1])};
  }
  return Rows;
}

// Clicks the place; the question for its position is then open.
void ClickPixel(Driver& Tour, int X, int Y) {
  Tour.map().BringMapPixelToCenter({X, Y});
  Tour.clickMap(Tour.at(X, Y));
}

void Calibrating(Driver& Tour) {
  QFile::copy(ZAVGEO_SAMPLES "/maps/europe_conic.jpg", Tour.scratch().filePath("europe.jpg"));
  Tour.begin(Medium, {Tour.scratch().filePath("europe.jpg")});
  Tour.key(Qt::Key_F8);
  Tour.choose("Model", "Conic");
  Tour.window().mapWidget().setFocus();
  Tour.key(Qt::Key_0);  // the image's own size
  const QList<PointRow> Points = PointsOf("europe_conic.points.csv");
  for (const PointRow& Point : Points) {
    ClickPixel(Tour, Point.X, Point.Y);
    Tour.type(Point.Position);
    if (&Point == &Points[Points.size() - 8]) Tour.picture("calibrating_point");
    Tour.key(Qt::Key_Return);
  }
  Tour.key(Qt::Key_F);
  Tour.picture("calibrating");
  // A slip of the pen: 5 degrees too far east.
  Tour.key(Qt::Key_0);
  ClickPixel(Tour, 1000, 700);
  TCoords True;
  if (!Tour.map().Calibration().ToGeo(1000, 700, True)) Fail("the map is not calibrated");
  Tour.type(QStringLiteral("%1 %2").arg(True.Latit, 0, 'f', 2).arg(True.Longit + 5, 0, 'f', 2));
  Tour.key(Qt::Key_Return);
  Tour.key(Qt::Key_F);
  Tour.hover(Tour.at(100, 100));  // the magnifier with it
  Tour.picture("calibrating_wrong_point");
  Tour.key(Qt::Key_Z, Qt::ControlModifier);
  Tour.key(Qt::Key_S, Qt::ControlModifier);
  Tour.menu("View", "Theme");
  Tour.popup("High Contrast");
  Tour.picture("viewer_contrast");
  Tour.menu("View", "Theme");
  Tour.popup("As the System");
  if (!Tour.scratch().exists("europe.xml")) Fail("the calibration was not saved");

  QFile::copy(ZAVGEO_SAMPLES "/maps/australia_laea.jpg", Tour.scratch().filePath("australia.jpg"));
  Tour.begin(Medium, {Tour.scratch().filePath("australia.jpg")});
  Tour.key(Qt::Key_F8);
  Tour.choose("Model", "Parabolic interpolation");
  Tour.menu("Calibration", "Import Points", [](QWidget& Dialog) {
    Driver::answerFileDialog(Dialog, ZAVGEO_SAMPLES "/maps/australia_laea.lines.csv");
  });
  Tour.window().mapWidget().setFocus();
  Tour.key(Qt::Key_F);
  Tour.picture("calibrating_lines");
  Tour.key(Qt::Key_S, Qt::ControlModifier);
}

// The capitals as a table: a landmark and a town each.
QString WriteCapitals(Driver& Tour) {
  QFile File(Tour.scratch().filePath("capitals.csv"));
  if (!File.open(QIODevice::WriteOnly)) Fail("no table can be written");
  File.write("name,lat,long,class\n");
  for (const TCountryData& Country : CountryData)
    if (const std::string_view Capital = Country.Capital.View(); !Capital.empty())
      File.write(QStringLiteral("\"%1\",%2,%3,0\n")
                     .arg(QString::fromUtf8(Capital.data(), static_cast<qsizetype>(Capital.size())))
                     .arg(Country.CapLat)
                     .arg(Country.CapLong)
                     .toUtf8());
  return File.fileName();
}

void Landmarks(Driver& Tour) {
  const QString Table = WriteCapitals(Tour);
  Tour.begin(Large, {Tour.copy("europe_conic.xml")});
  Tour.key(Qt::Key_F6);
  Tour.menu("Landmarks", "Import", [&Tour, &Table](QWidget& Files) {
    Tour.whenDialogOpens([](QWidget& Import) { static_cast<QDialog&>(Import).accept(); });
    Driver::answerFileDialog(Files, Table);
  });
  Tour.window().mapWidget().setFocus();
  Tour.clickMap(Tour.at(48.2092, 16.3728));
  Tour.picture("landmarks");
}

void Databases(Driver& Tour) {
  const QString Base = Tour.scratch().filePath("europe");
  for (const QStringList& Arguments :
       {QStringList{"db", "create", Base, "--description", "Europe"},
        QStringList{"db", "import", Base, WriteCapitals(Tour)},
        QStringList{"db", "import", Base, ZAVGEO_TOUR "/rivers.geojson"}})
    if (QProcess::execute(ZAVGEO_PROGRAM, Arguments) != 0) Fail("the database cannot be made");
  Tour.begin(Large, {Tour.copy("europe_conic.xml"), Base + ".zavgds"});
  Tour.key(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  Tour.type("danube");
  Tour.key(Qt::Key_Return);
  Tour.picture("databases");
}

void Atlas(Driver& Tour) {
  Tour.begin(Medium, {ZAVGEO_SAMPLES "/maps"});
  ChooseInList(Tour, "World");
  Tour.key(Qt::Key_G);
  Tour.hover(Tour.at(47.0, 8.5));
  Tour.picture("atlas_world");
  Tour.clickMap(Tour.at(47.0, 8.5));
  Tour.hover(Tour.at(47.0, 8.5));
  Tour.picture("atlas_europe");
}

}  // namespace
}  // namespace zav::tour

int main(int argc, char** argv) {
  using namespace zav::tour;
  // The pictures are the same whoever makes them.
  QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
  QStandardPaths::setTestModeEnabled(true);
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication App(argc, argv);
  if (argc != 3) Fail("usage: zavgeo_tour PICTURES SCRATCH");
  zav::UseLanguage("en");
  const QDir Pictures(QDir(argv[1]).absolutePath());
  const QDir Scratch(QDir(argv[2]).absolutePath());
  QDir::setCurrent(Scratch.filePath(".."));  // messages name the folder
  Driver Tour(Pictures, Scratch);
  for (void (*Stage)(Driver&) :
       {Viewing, Messages, Measuring, Calibrating, Landmarks, Databases, Atlas})
    Stage(Tour);
  std::printf("%d pictures\n", Tour.pictureCount());
  return 0;
}
