// calib_files_test.cpp - calibration files, side files and tables of the calibration document.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <random>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <geomap/calibration/calib_file.h>
#include <platform/base/file_ops.h>

#include "calib_document.h"
#include "calib_side_file.h"
#include "support/failing_file_ops.h"
#include "viewer_test_support.h"

namespace zav {
namespace {

const auto Deg = &CalibPosition::OfDegrees;

QByteArray ReadAll(const QString& Path) {
  QFile File(Path);
  return File.open(QIODevice::ReadOnly) ? File.readAll() : QByteArray();
}

TCalibration Calibration(const QString& File) {
  TCalibration Loaded;
  EXPECT_TRUE(LoadCalibration(File.toStdString(), "", Loaded));
  return Loaded;
}

// All that a person sees of the items.
std::vector<CalibItem> ItemsOf(const CalibDocument& Document) {
  std::vector<CalibItem> Items;
  for (int i = 0; i < Document.itemCount(); ++i) {
    Items.push_back(Document.item(i));
    Items.back().Id = 0;
  }
  return Items;
}

const char* const Maps[] = {"alps_utm32n",     "andes_utm19s",   "australia_laea", "europe_conic",
                            "gotthard_utm32n", "iberia_bonne",   "iceland",        "namerica_lcc",
                            "sicily_8bit",     "world_equirect", "world_miller"};

TEST(CalibFiles, SampleMapsAreSavedAsTheyWere) {
  for (const char* Map : Maps) {
    SCOPED_TRACE(Map);
    const TestFolder Folder;
    const std::string Name = Map;
    const QString File = Folder.copy((Name + ".xml").c_str(), (Name + ".xml").c_str());
    const QString Image = QDir(Sample(""))
                              .entryList({QString::fromStdString(Name + ".jpg"),
                                          QString::fromStdString(Name + ".bmp")})[0];
    Folder.copy(Image.toUtf8().constData(), Image.toUtf8().constData());
    CalibDocument Document;
    ASSERT_EQ(Document.load(File), "");
    EXPECT_TRUE(Document.loadNotes().isEmpty());
    EXPECT_FALSE(Document.isModified());
    EXPECT_EQ(QFileInfo(Document.imagePath()).fileName(), Image);
    EXPECT_TRUE(Document.quality().Valid);
    EXPECT_FALSE(Document.caption().isEmpty());
    EXPECT_EQ(Document.suggestedFileName(), File);
    ASSERT_EQ(Document.saveAs(Folder.path("saved.xml")), "");
    EXPECT_FALSE(QFile::exists(Folder.path("saved.xml.points")));  // nothing to tell
    const TCalibration Before = Calibration(File);
    const TCalibration After = Calibration(Folder.path("saved.xml"));
    EXPECT_EQ(Before.Model(), After.Model());
    EXPECT_EQ(Before.Data().Caption, After.Data().Caption);
    EXPECT_EQ(Before.Data().MapFName, After.Data().MapFName);
    EXPECT_NEAR(Before.Data().Resolution, After.Data().Resolution, 0.001);
    for (int X = 0; X < Document.imageSize().width(); X += 97)
      for (int Y = 0; Y < Document.imageSize().height(); Y += 83) {
        TCoords A;
        TCoords B;
        ASSERT_EQ(Before.ToGeo(X, Y, A), After.ToGeo(X, Y, B));
        ASSERT_EQ(A, B) << X << ' ' << Y;
      }
    // The same bytes, but for spellings that the writer has its own way of.
    EXPECT_EQ(ReadAll(File).simplified(), ReadAll(Folder.path("saved.xml")).simplified());
  }
}

// From the bare image and the table of points to a file that converts as the sample's does.
TEST(CalibFiles, CalibratingABareImageGivesTheSamplesMap) {
  for (const char* Map : Maps) {
    SCOPED_TRACE(Map);
    const std::string Name = Map;
    const TCalibration Given = Calibration(Sample((Name + ".xml").c_str()));
    const bool Lines = Given.Model() == TCalibModel::cmParabolicIp;
    const TestFolder Folder;
    const QString Image = QDir(Sample(""))
                              .entryList({QString::fromStdString(Name + ".jpg"),
                                          QString::fromStdString(Name + ".bmp")})[0];
    CalibDocument Document;
    ASSERT_EQ(
        Document.newFromImage(Folder.copy(Image.toUtf8().constData(), Image.toUtf8().constData())),
        "");
    const std::string Table = Name + (Lines ? ".lines.csv" : ".points.csv");
    ASSERT_EQ(Document.importPoints(Sample(Table.c_str()), CalibImport::Append), "");
    Document.setModel(Given.Model());
    ASSERT_EQ(Document.save(), "");
    EXPECT_EQ(Document.fileName(), Folder.path((Name + ".xml").c_str()));
    const TCalibration Made = Calibration(Document.fileName());
    double Most = 0;
    for (int X = 0; X <= Document.imageSize().width(); X += 50)
      for (int Y = 0; Y <= Document.imageSize().height(); Y += 50) {
        TCoords P;
        double MadeX = 0;
        double MadeY = 0;
        double GivenX = 0;
        double GivenY = 0;
        if (!Given.ToGeo(X, Y, P) || !Given.ToPixel(P.Latit, P.Longit, GivenX, GivenY)) continue;
        ASSERT_TRUE(Made.ToPixel(P.Latit, P.Longit, MadeX, MadeY));
        Most = std::max(Most, std::hypot(MadeX - GivenX, MadeY - GivenY));
      }
    EXPECT_LT(Most, 1);
  }
}

// A document with all that only the side file can hold.
void Fill(CalibDocument& Document, const TestFolder& Folder) {
  ASSERT_EQ(Document.newFromImage(Folder.copy("iceland.bmp", "Ice Land.bmp")), "");
  Document.addPoint(Deg(66.123456789012, -24), {75, 122}, "K\u00f6ln, \"Dom\"; #1");
  Document.addPoint(Deg(66, -14.25), {421, 122});
  Document.addLinePoint(TGratLineKind::gtlMeridian, -20, {214, 122}, "M");
  Document.addPoint(CalibPosition::OfUtm(7100000.123456789, 400000, 28, false), {214, 285});
  Document.addPoint(Deg(64, -18), {283, 285}, "off");
  Document.setEnabled(Document.item(4).Id, false);
  Document.addPoint(Deg(64, -24), {75, 285}, "last");
  Document.setCaption("Island \u00c5");
}

TEST(CalibFiles, TheSideFileKeepsWhatTheFormatCannotHold) {
  const TestFolder Folder;
  CalibDocument Document;
  Fill(Document, Folder);
  ASSERT_EQ(Document.save(), "");
  const QString File = Folder.path("Ice Land.xml");
  EXPECT_EQ(Document.fileName(), File);
  EXPECT_FALSE(Document.isModified());
  CalibDocument Again;
  const auto ExpectLoads = [&] {
    ASSERT_EQ(Again.load(File), "");
    EXPECT_TRUE(Again.loadNotes().isEmpty()) << Again.loadNotes().join("; ").toStdString();
    EXPECT_EQ(ItemsOf(Again), ItemsOf(Document));
    EXPECT_EQ(Again.model(), Document.model());
    EXPECT_EQ(Again.utmGrid(), Document.utmGrid());
    EXPECT_EQ(Again.caption(), "Island \u00c5");  // in its own spelling
    EXPECT_EQ(Again.imageSize(), QSize(497, 408));
  };
  ExpectLoads();
  // Everybody else sees the points that are switched on, and no more.
  EXPECT_EQ(Calibration(File).Data().NumCalQuads, 4);
  EXPECT_TRUE(ReadAll(File).contains("map=\"Ice Land.bmp\""));
  for (const TCalibModel Model :
       {TCalibModel::cmUTM, TCalibModel::cmParabolicIp, TCalibModel::cmBiquadraticPn}) {
    Document.setModel(Model);
    ASSERT_EQ(Document.save(), "");
    ExpectLoads();
  }
  Document.setModel(TCalibModel::cmUTM);
  Document.setZone(60, true);
  ASSERT_EQ(Document.save(), "");
  ExpectLoads();
  EXPECT_EQ(Calibration(File).Data().UTMZone, -1);

  // Without it the calibration is all there, and one that tells nothing is not left behind.
  Document.setModel(TCalibModel::cmEquiRect);
  ASSERT_EQ(Document.save(), "");
  ASSERT_TRUE(QFile::remove(File + ".points"));
  ASSERT_EQ(Again.load(File), "");
  EXPECT_EQ(Again.itemCount(), 5);
  Again.addPoint(Deg(65, -20), {200, 200}, "X");
  ASSERT_EQ(Again.save(), "");
  EXPECT_TRUE(QFile::exists(File + ".points"));
  Again.undo();
  ASSERT_EQ(Again.save(), "");
  EXPECT_FALSE(QFile::exists(File + ".points"));
}

TEST(CalibFiles, ASideFileThatNoLongerFitsKeepsWhatDoes) {
  const TestFolder Folder;
  CalibDocument Document;
  Fill(Document, Folder);
  ASSERT_EQ(Document.save(), "");
  const QString File = Folder.path("Ice Land.xml");
  // Another program moves the last point and adds one in front.
  QByteArray Text = ReadAll(File);
  Text.replace("[64.00000,-24.00000,75,285]", "[64.00000,-24.00000,75,280]");
  Text.replace("<calquads npoints=\"4\">\r\n",
               "<calquads npoints=\"5\">\r\n[65.00000,-20.00000,1,2] ");
  Folder.write("Ice Land.xml", Text);
  CalibDocument Again;
  ASSERT_EQ(Again.load(File), "");
  ASSERT_EQ(Again.loadNotes().size(), 1);
  EXPECT_TRUE(Again.loadNotes()[0].contains("1 point(s)"));
  ASSERT_EQ(Again.itemCount(), 7);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(Again.itemTitle(i), Document.itemTitle(i));
  EXPECT_EQ(Again.item(0).Position, Document.item(0).Position);
  EXPECT_FALSE(Again.item(4).Enabled);
  EXPECT_EQ(Again.item(5).Pixel, (TPoint{1, 2}));
  EXPECT_EQ(Again.item(6).Pixel, (TPoint{75, 280}));
  EXPECT_EQ(Again.item(6).Name, "");
  // A point switched off here was put back there.
  Text.replace("npoints=\"5\"", "npoints=\"6\"")
      .replace("[65.00000,", "[64.00000,-18.00000,283,285] [65.00000,");
  Folder.write("Ice Land.xml", Text);
  ASSERT_EQ(Again.load(File), "");
  EXPECT_EQ(Again.itemTitle(4), "Point 5 (off)");
  EXPECT_TRUE(Again.item(4).Enabled);
  // A side file of another map.
  QFile::copy(File + ".points", Folder.path("other.xml.points"));
  Folder.write("other.xml", CalibrationText("Ice Land.bmp", "Other"));
  ASSERT_EQ(Again.load(Folder.path("other.xml")), "");
  EXPECT_EQ(Again.itemCount(), 4);  // the same image: what was off is kept
  Folder.write("other.xml", CalibrationText("else.bmp", "Other"));
  ASSERT_EQ(Again.load(Folder.path("other.xml")), "");
  EXPECT_EQ(Again.itemCount(), 3);
}

// Whatever happens to the side file, the calibration's own points are all there as they were.
TEST(CalibFiles, DamagedSideFilesLoseNothingOfTheCalibration) {
  const TestFolder Folder;
  CalibDocument Document;
  Fill(Document, Folder);
  ASSERT_EQ(Document.save(), "");
  const QString File = Folder.path("Ice Land.xml");
  const QByteArray Good = ReadAll(File + ".points");
  const TCalibData Stored = Calibration(File).Data();
  std::mt19937 Random(5);
  int Damaged = 0;
  for (int i = 0; i < 1000; ++i) {
    QByteArray Bytes = Good;
    for (auto k = 1 + Random() % 4; k > 0 && !Bytes.isEmpty(); --k) {
      const auto At = static_cast<qsizetype>(Random() % static_cast<size_t>(Bytes.size()));
      switch (Random() % 6) {
        case 0:
          Bytes[At] = static_cast<char>(Random());
          break;
        case 1:
          Bytes.remove(At, static_cast<qsizetype>(Random() % 40));
          break;
        case 2:
          Bytes.truncate(At);
          break;
        case 3:
          Bytes.insert(At, Bytes.mid(static_cast<qsizetype>(Random() % 100), 60));
          break;
        case 4:
          Bytes.insert(At, "\"\r\n,9999999999999999999999,nan,\xff");
          break;
        default:
          Bytes[At] = ",\"\n;\t-0"[Random() % 7];
          break;
      }
    }
    Folder.write("Ice Land.xml.points", Bytes);
    CalibDocument Again;
    ASSERT_EQ(Again.load(File), "") << i;
    Damaged += Again.loadNotes().isEmpty() ? 0 : 1;
    // Every stored point is on, once, with its pixel and its position.
    TCalibData Data = Again.data();
    if (Again.model() != Document.model()) continue;
    int Found = 0;
    for (int32_t k = 0; k < Stored.NumCalQuads; ++k)
      for (int32_t j = 0; j < Data.NumCalQuads; ++j) {
        const TCalQuad& A = Stored.CalQuads[static_cast<size_t>(k)];
        const TCalQuad& B = Data.CalQuads[static_cast<size_t>(j)];
        if (A.MapX == B.MapX && A.MapY == B.MapY && std::abs(A.Latitude - B.Latitude) < 2e-5 &&
            std::abs(A.Longitude - B.Longitude) < 2e-5) {
          ++Found;
          break;
        }
      }
    ASSERT_EQ(Found, Stored.NumCalQuads) << i << '\n' << Bytes.toStdString();
    if (i % 10 != 0) continue;
    ASSERT_EQ(Again.save(), "");
    ASSERT_EQ(Again.load(File), "");
    EXPECT_TRUE(Again.loadNotes().isEmpty());
  }
  EXPECT_GT(Damaged, 400);
  // Damage is kept aside before it is replaced.
  Folder.write("Ice Land.xml.points", "rubbish");
  CalibDocument Again;
  ASSERT_EQ(Again.load(File), "");
  EXPECT_EQ(Again.loadNotes().size(), 1);
  Again.setName(Again.item(0).Id, "A");
  ASSERT_EQ(Again.save(), "");
  EXPECT_EQ(ReadAll(File + ".points.bak"), "rubbish");
}

// Two calibrations and something else in one file, none of them in the spelling of the readers.
TEST(CalibFiles, OtherContentsOfTheFileStay) {
  const TestFolder Folder;
  Folder.copy("iceland.bmp", "Ice.bmp");
  QByteArray A = CalibrationText("Ice.bmp", "First \u00c4");
  QByteArray B = CalibrationText("Ice.bmp", "Second");
  A.replace("id=\"\"", "id=\"Alpha\"");
  B.replace("id=\"\"", "id=\"Beta\"");
  const QByteArray Rest = "<gmlandmarks sig=\"Tarvoline\" vers=\"1.0\" id=\"x\">\n</gmlandmarks>\n";
  const QString File = Folder.write("many.xml", "<?xml version=\"1.0\"?>\n" + A + Rest + B + Rest);
  EXPECT_EQ(CalibDocument::idsIn(File), (QStringList{"Alpha", "Beta"}));
  CalibDocument First;
  CalibDocument Second;
  ASSERT_EQ(First.load(File), "");
  ASSERT_EQ(Second.load(File, "BETA"), "");
  EXPECT_EQ(First.calibId(), "Alpha");
  EXPECT_EQ(Second.caption(), "Second");
  EXPECT_NE(Second.load(File, "gamma"), "");
  Second.addPoint(Deg(45, 9), {100, 100}, "of Beta");
  ASSERT_EQ(Second.save(), "");
  First.addPoint(Deg(45, 9), {100, 100}, "of Alpha");
  ASSERT_EQ(First.save(), "");
  const QByteArray Text = ReadAll(File);
  EXPECT_EQ(Text.count(Rest), 2);
  EXPECT_EQ(Text.count("<geomap"), 2);
  EXPECT_EQ(Text.count("<?xml"), 1);
  EXPECT_EQ(Text.count("npoints=\"4\""), 2);
  EXPECT_LT(Text.indexOf("Alpha"), Text.indexOf("Beta"));
  ASSERT_EQ(First.save(), "");
  EXPECT_EQ(ReadAll(File), Text);  // nothing grows
  ASSERT_EQ(First.load(File, "alpha"), "");
  ASSERT_EQ(Second.load(File, "beta"), "");
  EXPECT_EQ(First.item(3).Name, "of Alpha");
  EXPECT_EQ(Second.item(3).Name, "of Beta");
  EXPECT_EQ(First.caption(), "First \u00c4");
}

TEST(CalibFiles, AFullDiskLeavesTheOldFiles) {
  const TestFolder Folder;
  CalibDocument Document;
  Fill(Document, Folder);
  ASSERT_EQ(Document.save(), "");
  const QString File = Folder.path("Ice Land.xml");
  Document.setName(Document.item(1).Id, "new");
  Document.moveItem(Document.item(1).Id, {400, 130});
  const QByteArray OldFile = ReadAll(File);
  const QByteArray OldSide = ReadAll(File + ".points");
  TFailingFileOps Ops;
  int Failures = 0;
  for (int n = 1; n < 100; ++n) {
    Ops.Arm(n);
    QString Problem;
    {
      const TFileOpsOverride With(Ops);
      Problem = Document.save();
    }
    const bool Done = !Ops.Failed();
    EXPECT_EQ(Problem.isEmpty(), Done) << n;
    EXPECT_EQ(Document.isModified(), !Done) << n;
    EXPECT_TRUE(QDir(Folder.Dir.path()).entryList(QDir::Files).size() == 3) << n;
    CalibDocument Again;  // whichever of the two files was replaced, nothing is lost
    ASSERT_EQ(Again.load(File), "");
    EXPECT_EQ(Again.itemCount(), 6) << n;
    if (Done) break;
    ++Failures;
    const QByteArray Side = ReadAll(File + ".points");
    EXPECT_EQ(Side, OldSide) << n;
    // The calibration is written first, in five steps.
    EXPECT_EQ(ReadAll(File) != OldFile, n > 5) << n;
  }
  EXPECT_GE(Failures, 8);
  EXPECT_NE(Document.saveAs("/nowhere/at/all.xml"), "");
  EXPECT_EQ(Document.fileName(), File);
}

TEST(CalibFiles, WhatIsNoCalibrationIsRefused) {
  const TestFolder Folder;
  CalibDocument Document;
  Fill(Document, Folder);
  const auto Before = ItemsOf(Document);
  EXPECT_NE(Document.load(Folder.path("none.xml")), "");
  EXPECT_TRUE(Document.load(Folder.write("a.xml", "hello")).contains("holds no calibration"));
  QByteArray Text = CalibrationText("x.jpg", "X");
  EXPECT_NE(Document.load(Folder.write("b.xml", Text.replace("npoints=\"3\"", "npoints=\"4\""))),
            "");
  EXPECT_NE(Document.newFromImage(Folder.write("c.bmp", "hello")), "");
  EXPECT_NE(Document.newFromImage(Folder.path("a.xml")), "");
  EXPECT_EQ(ItemsOf(Document), Before);
  EXPECT_TRUE(Document.canUndo());
  // A calibration whose image is gone can be worked on.
  ASSERT_EQ(Document.load(Folder.write("d.xml", CalibrationText("Gone.JPG", "X"))), "");
  EXPECT_EQ(Document.loadNotes().size(), 1);
  ASSERT_EQ(Document.save(), "");
  EXPECT_TRUE(ReadAll(Folder.path("d.xml")).contains("map=\"Gone.JPG\""));
}

TEST(CalibFiles, PointsOfTheSamplesAndOfTheExport) {
  const QStringList Tables = QDir(Sample("")).entryList({"*points.csv", "*.lines.csv"});
  EXPECT_GE(Tables.size(), 18);
  for (const QString& Table : Tables) {
    SCOPED_TRACE(Table.toStdString());
    const TestFolder Folder;
    CalibDocument Document;
    ASSERT_EQ(Document.importPoints(Sample(Table.toUtf8().constData()), CalibImport::Append), "");
    EXPECT_EQ(Document.itemCount(), ReadAll(Sample(Table.toUtf8().constData())).count('\n') - 1);
    Document.setName(Document.item(0).Id, "K\u00f6ln, \"x\"");
    Document.setEnabled(Document.item(1).Id, false);
    const QString File = Folder.path("out.csv");
    ASSERT_EQ(Document.exportPoints(File), "");
    const auto Items = ItemsOf(Document);
    ASSERT_EQ(Document.importPoints(File, CalibImport::Replace), "");
    EXPECT_EQ(ItemsOf(Document), Items);
    Document.undo();
    EXPECT_EQ(Document.redoText(), QStringLiteral("Import %1 point(s)").arg(Items.size()));
  }
  const TestFolder Folder;
  CalibDocument Mixed;
  Fill(Mixed, Folder);
  const auto Items = ItemsOf(Mixed);
  ASSERT_EQ(Mixed.exportPoints(Folder.path("mixed.csv")), "");
  ASSERT_EQ(Mixed.importPoints(Folder.path("mixed.csv"), CalibImport::Replace), "");
  EXPECT_EQ(ItemsOf(Mixed), Items);
  const struct {
    const char* Text;
    const char* Problem;
  } Wrong[] = {
      {"lat,long,pixel_x,pixel_y\n47,8,1,2\n47,x,1,2\n", ":3: long \"x\" is not a number"},
      {"lat,long,pixel_x,pixel_y\n47,8,1,2\n97,8,1,2\n", ":3: lat 97 is outside"},
      {"lat,long,pixel_x\n47,8,1\n", ":1: there is no column pixel_y"},
      {"lat,long,pixel_x,pixel_y,enabled\n47,8,1,2,perhaps\n", ":2: enabled \"perhaps\""},
      {"northing,easting,pixel_x,pixel_y\n5e6,5e5,1,2\n", ":2: UTM metres need a zone"},
      {"lat,long,pixel_x,pixel_y\n", "holds no points"},
  };
  for (const auto& Case : Wrong) {
    const QString Problem =
        CalibDocument().importPoints(Folder.write("w.csv", Case.Text), CalibImport::Append);
    EXPECT_TRUE(Problem.contains(QString::fromUtf8(Case.Problem))) << Problem.toStdString();
  }
}

}  // namespace
}  // namespace zav
