// calib_document_test.cpp - edits of the calibration document, and their undoing.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <iterator>
#include <ostream>
#include <random>

#include <QFile>
#include <QImage>

#include <geobasics/utm.h>

#include "calib_document.h"
#include "viewer_test_support.h"

namespace zav {
namespace {

const auto Deg = &CalibPosition::OfDegrees;

class CalibDocumentTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(QImage(1000, 800, QImage::Format_Mono).save(Folder.path("map.bmp")));
    ASSERT_EQ(Document.newFromImage(Folder.path("map.bmp")), "");
  }
  int Id(int Index) const { return Document.item(Index).Id; }
  QByteArray BytesOf(const char* Name) const {
    QFile File(Folder.path(Name));
    return File.open(QIODevice::ReadOnly) ? File.readAll() : QByteArray();
  }

  TestFolder Folder;
  CalibDocument Document;
};

TEST_F(CalibDocumentTest, EditsHaveNamesAndCanBeUndone) {
  int Changes = 0;
  QObject::connect(&Document, &CalibDocument::changed, [&] { ++Changes; });
  EXPECT_FALSE(Document.isModified());
  const struct {
    const char* Text;
    std::function<void()> Make;
  } Edits[] = {
      {"Add point 1",
       [&] {
         Document.addPoint(Deg(47, 8), {10, 20}, "Ulm\nminster ");
       }},
      {"Add point 2",
       [&] {
         Document.addPoint(Deg(46, 9), {110, 120});
       }},
      {"Move point 2",
       [&] {
         Document.moveItem(Id(1), {111, 120});
       }},
      {"Change position of point 1", [&] { Document.setPosition(Id(0), Deg(47.5, 8)); }},
      {"Name point 2", [&] { Document.setName(Id(1), "Bern"); }},
      {"Switch off point 1", [&] { Document.setEnabled(Id(0), false); }},
      {"Add point 3",
       [&] {
         Document.addLinePoint(TGratLineKind::gtlMeridian, 10, {5, 6});
       }},
      {"Change line of point 3", [&] { Document.setLine(Id(2), TGratLineKind::gtlParallel, 47); }},
      {"Remove point 1", [&] { Document.removeItem(Id(0)); }},
      {"Restore point 1", [&] { Document.restoreLastRemoved(); }},
      {"Remove 2 points",
       [&] {
         Document.removeItems({Id(0), Id(2)});
       }},
      {"Change model to \"UTM\"", [&] { Document.setModel(TCalibModel::cmUTM); }},
      {"Change zone to 33 south", [&] { Document.setZone(33, true); }},
      {"Change ellipsoid", [&] { Document.setEllipsoid(TGeoEllipsoid::gelBess41); }},
      {"Change caption", [&] { Document.setCaption("Alps"); }},
  };
  for (const auto& Edit : Edits) {
    const int Before = Changes;
    Edit.Make();
    EXPECT_EQ(Changes, Before + 1) << Edit.Text;
    EXPECT_EQ(Document.undoText(), Edit.Text);
    EXPECT_TRUE(Document.isModified() && !Document.canRedo());
    const QString Text = Edit.Text;
    if (!Text.startsWith("Add") && !Text.startsWith("Remove")) Edit.Make();  // nothing to change
    EXPECT_EQ(Changes, Before + 1) << Edit.Text;
  }
  EXPECT_EQ(Document.item(0).Name, "Bern");
  for (auto Edit = std::rbegin(Edits); Edit != std::rend(Edits); ++Edit) {
    EXPECT_EQ(Document.undoText(), Edit->Text);
    Document.undo();
    EXPECT_EQ(Document.redoText(), Edit->Text);
  }
  EXPECT_FALSE(Document.isModified() || Document.canUndo());
  EXPECT_EQ(Document.itemCount(), 0);
  Document.redo();
  EXPECT_EQ(Document.item(0).Name, "Ulm minster");
}

TEST_F(CalibDocumentTest, AModelKeepsWhatWasTyped) {
  Document.addPoint(Deg(47.123456789012, 8.25), {10, 20});
  Document.addPoint(CalibPosition::OfUtm(5150563.123, 470693.5, 32, false), {110, 120});
  Document.addPoint(CalibPosition::OfUtm(5150563.123, 100000, 33, false), {210, 20});
  Document.addLinePoint(TGratLineKind::gtlMeridian, 10, {5, 6});
  const TCalibData InDegrees = Document.data();
  EXPECT_EQ(InDegrees.CalQuads[0].Latitude, 47.123456789012);
  EXPECT_EQ(InDegrees.NumCalQuads, 3);
  EXPECT_EQ(InDegrees.NumCalLines, 1);

  Document.setModel(TCalibModel::cmUTM);
  const TCalibData InMetres = Document.data();
  EXPECT_EQ(InMetres.UTMZone, 32);  // that of the first point typed with a zone
  EXPECT_EQ(InMetres.CalQuads[1].Latitude, 5150563.123);
  EXPECT_EQ(InMetres.CalQuads[1].Longitude, 470693.5);
  for (int i = 0; i < 3; ++i) {
    const auto Quad = InMetres.CalQuads[static_cast<size_t>(i)];
    double Lat = 0;
    double Long = 0;
    UTMToLatLong(Quad.Longitude, Quad.Latitude, 32, false, TGeoEllipsoid::gelWGS84, Lat, Long);
    EXPECT_NEAR(Lat, InDegrees.CalQuads[static_cast<size_t>(i)].Latitude, 1e-9);
    EXPECT_NEAR(Long, InDegrees.CalQuads[static_cast<size_t>(i)].Longitude, 1e-9);
  }
  EXPECT_EQ(Document.setZone(32, true), "");  // the sheet's grid goes on across the equator
  EXPECT_EQ(Document.data().CalQuads[1].Latitude, 15150563.123);
  Document.setModel(TCalibModel::cmParabolicIp);
  EXPECT_EQ(Document.data().NumCalLines, 0);  // one point makes no line
  EXPECT_EQ(Document.data().NumCalQuads, 3);
  Document.setModel(TCalibModel::cmEquiRect);
  EXPECT_TRUE(Document.data().CalQuads == InDegrees.CalQuads);
}

TEST_F(CalibDocumentTest, RefusedEditsChangeNothing) {
  Document.addPoint(Deg(47, 8), {10, 20});
  const QString Last = Document.undoText();
  const double Nan = std::nan("");
  EXPECT_NE(Document.addPoint(Deg(91, 8), {1, 1}), "");
  EXPECT_NE(Document.addPoint(Deg(Nan, 8), {1, 1}), "");
  EXPECT_TRUE(Document.addPoint(CalibPosition::OfUtm(5e6, 5e5), {1, 1}).contains("need a zone"));
  EXPECT_NE(Document.setPosition(Id(0), Deg(0, 400)), "");
  EXPECT_NE(Document.addLinePoint(TGratLineKind::gtlParallel, 100, {1, 1}), "");
  EXPECT_NE(Document.setZone(61, false), "");
  EXPECT_NE(Document.setCaption("a \"b\""), "");
  EXPECT_NE(Document.setImage(Folder.path("none.bmp")), "");
  EXPECT_NE(Document.importPoints(Folder.path("none.csv"), CalibImport::Append), "");
  Document.moveItem(12345, {1, 1});
  Document.removeItem(12345);
  EXPECT_EQ(Document.undoText(), Last);
  for (int i = 1; i < 200; ++i) ASSERT_EQ(Document.addPoint(Deg(40, i * 0.1), {i, i}), "");
  EXPECT_TRUE(Document.addPoint(Deg(40, 0), {1, 1}).contains("200"));
  for (int Line = 0; Line < 25; ++Line)
    for (int i = 0; i < 10; ++i)
      ASSERT_EQ(Document.addLinePoint(TGratLineKind::gtlMeridian, Line, {10 * Line + i, i}), "");
  EXPECT_TRUE(Document.addLinePoint(TGratLineKind::gtlMeridian, 1, {1, 1}).contains("10 points"));
  EXPECT_TRUE(Document.addLinePoint(TGratLineKind::gtlParallel, 1, {1, 1}).contains("25"));
  EXPECT_EQ(Document.data().NumCalQuads, 200);
  EXPECT_EQ(Document.data().NumCalLines, 25);
  Document.removeItem(Id(0));
  Document.addPoint(Deg(40, 0), {1, 1});
  EXPECT_TRUE(Document.restoreLastRemoved().contains("200"));
}

TEST_F(CalibDocumentTest, NearestWinsAndRemovedItemsComeBack) {
  for (int i = 0; i < 4; ++i) Document.addPoint(Deg(47 - i, 8), {100 + 10 * i, 100});
  Document.addLinePoint(TGratLineKind::gtlMeridian, 8, {131, 100});
  EXPECT_EQ(Document.nearestItem(104.9, 100, 10), Id(0));
  EXPECT_EQ(Document.nearestItem(105, 100, 10), Id(0));  // equally near: the first
  EXPECT_EQ(Document.nearestItem(105.1, 100, 10), Id(1));
  EXPECT_EQ(Document.nearestItem(131, 100, 10), Id(3));  // the line's point does not count
  EXPECT_EQ(Document.nearestItem(138, 108, 10), 0);
  Document.setModel(TCalibModel::cmParabolicIp);
  EXPECT_EQ(Document.nearestItem(131, 100, 10), Id(4));
  EXPECT_TRUE(Document.removeNearest(0, 0));  // the only one that counts
  EXPECT_FALSE(Document.removeNearest(0, 0));
  Document.setModel(TCalibModel::cmUTM);  // restoring works there, too
  const int First = Id(0);
  Document.setName(First, "Ulm");
  Document.setEnabled(First, false);
  EXPECT_TRUE(Document.removeNearest(90, 100));
  Document.removeItems({Id(0), Id(2)});
  EXPECT_EQ(Document.itemCount(), 1);
  EXPECT_EQ(Document.restoreLastRemoved(), "");
  EXPECT_EQ(Document.restoreLastRemoved(), "");
  EXPECT_EQ(Document.itemCount(), 4);
  EXPECT_EQ(Id(0), First);
  EXPECT_EQ(Document.itemTitle(0), "Point 1 (Ulm)");
  EXPECT_FALSE(Document.item(0).Enabled);
  EXPECT_EQ(Document.restoreLastRemoved(), "");
  EXPECT_EQ(Document.itemTitle(4), "Point 5 on meridian 8");
  EXPECT_FALSE(Document.canRestoreRemoved());
}

TEST_F(CalibDocumentTest, ADragIsOneStep) {
  Document.addPoint(Deg(47, 8), {10, 20});
  Document.addPoint(Deg(46, 9), {110, 120});
  Document.undo();
  Document.moveItem(Id(0), {11, 20}, CalibMerge::Join);
  Document.moveItem(Id(0), {15, 25}, CalibMerge::Join);
  Document.cancelMerge();
  EXPECT_EQ(Document.item(0).Pixel, (TPoint{10, 20}));
  EXPECT_EQ(Document.redoText(), "Add point 2");
  Document.moveItem(Id(0), {11, 20}, CalibMerge::Join);
  Document.moveItem(Id(0), {10, 20}, CalibMerge::Join);
  Document.endMerge();  // back where it was
  EXPECT_EQ(Document.undoText(), "Add point 1");
  EXPECT_EQ(Document.redoText(), "Add point 2");
  for (int i = 1; i <= 30; ++i) Document.moveItem(Id(0), {10 + i, 20}, CalibMerge::Join);
  Document.endMerge();
  Document.moveItem(Id(0), {41, 20}, CalibMerge::Join);
  Document.undo();
  EXPECT_EQ(Document.item(0).Pixel, (TPoint{40, 20}));
  Document.undo();
  EXPECT_EQ(Document.item(0).Pixel, (TPoint{10, 20}));
  EXPECT_EQ(Document.undoText(), "Add point 1");
}

// One edit out of all there are.
void EditSomething(CalibDocument& Document, std::mt19937& Random) {
  const auto Below = [&](int Count) { return static_cast<int>(Random() % unsigned(Count)); };
  const auto SomeId = [&] {
    return Document.itemCount() == 0 ? 0 : Document.item(Below(Document.itemCount())).Id;
  };
  const TPoint Pixel{Below(1000), Below(800)};
  const auto SomePosition = [&] {
    if (Below(2) == 0) return Deg(Below(90) + 1.0 / 3, Below(180) / 7.0);
    return CalibPosition::OfUtm(Below(9000000) / 7.0, 1e5 + Below(800000), 1 + Below(60),
                                Below(2) == 0);
  };
  const auto Line = Below(2) == 0 ? TGratLineKind::gtlMeridian : TGratLineKind::gtlParallel;
  switch (Below(16)) {
    case 0:
    case 1:
    case 2:
      Document.addPoint(SomePosition(), Pixel, QString::number(Below(9)));
      break;
    case 3:
    case 4:
      Document.addLinePoint(Line, Below(4) * 10, Pixel);
      break;
    case 5:
      Document.moveItem(SomeId(), Pixel);
      break;
    case 6:
      Document.moveItem(SomeId(), Pixel, CalibMerge::Join);
      break;
    case 7:
      Document.cancelMerge();
      break;
    case 8:
      Document.removeItems({SomeId(), SomeId()});
      break;
    case 9:
      Document.restoreLastRemoved();
      break;
    case 10:
      Document.setPosition(SomeId(), SomePosition());
      break;
    case 11:
      Document.setName(SomeId(), QStringLiteral("a \"b\", %1").arg(Below(9)));
      break;
    case 12:
      Document.setEnabled(SomeId(), Below(2) == 0);
      break;
    case 13:
      Document.setModel(static_cast<TCalibModel>(Below(7)));
      break;
    case 14:
      Document.setZone(1 + Below(60), Below(2) == 0);
      break;
    default:
      Document.setCaption(QStringLiteral("Map %1").arg(Below(9)));
      break;
  }
}

TEST_F(CalibDocumentTest, AThousandEditsUndoneGiveTheSameFiles) {
  Folder.copy("alps_utm32n.jpg", "alps_utm32n.jpg");
  const QString Sheet = Folder.copy("alps_utm32n.xml", "alps.xml");
  for (const unsigned Seed : {1u, 2u, 3u}) {
    SCOPED_TRACE(Seed);
    std::mt19937 Random(Seed);
    const auto Save = [&](const char* Name) { EXPECT_EQ(Document.saveAs(Folder.path(Name)), ""); };
    const auto ExpectSame = [&](const char* A, const char* B) {
      EXPECT_EQ(BytesOf(A), BytesOf(B));
      EXPECT_FALSE(BytesOf(A).isEmpty());
      EXPECT_EQ(BytesOf((std::string(A) + ".points").c_str()),
                BytesOf((std::string(B) + ".points").c_str()));
    };
    ASSERT_EQ(Document.load(Sheet), "");
    for (int i = 0; i < 60; ++i) EditSomething(Document, Random);
    Save("start.xml");
    EXPECT_FALSE(BytesOf("start.xml.points").isEmpty());
    ASSERT_EQ(Document.load(Folder.path("start.xml")), "");
    EXPECT_TRUE(Document.loadNotes().isEmpty()) << Document.loadNotes().join("; ").toStdString();
    Save("loaded.xml");
    ExpectSame("start.xml", "loaded.xml");

    for (int i = 0; i < 2000; ++i) {
      EditSomething(Document, Random);
      if (i % 50 != 0) continue;
      for (int k = 0; k < 10; ++k) Document.undo();
      for (int k = 0; k < 10; ++k) Document.redo();
    }
    Save("end.xml");
    int Undone = 0;
    for (; Document.canUndo(); ++Undone) Document.undo();
    EXPECT_GE(Undone, 1000);
    Save("undone.xml");
    ExpectSame("start.xml", "undone.xml");
    while (Document.canRedo()) Document.redo();
    Save("redone.xml");
    ExpectSame("end.xml", "redone.xml");
  }
}

}  // namespace
}  // namespace zav
