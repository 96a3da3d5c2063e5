// landmark_document_test.cpp - edits of landmarks, undone and redone to the byte; files that are
// damaged or hold more lose nothing.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QFile>

#include <geomap/landmarks/landmark_file.h>
#include <platform/base/random.h>
#include <platform/base/read_file.h>
#include <platform/qt/qt_convert.h>

#include "landmark_document.h"
#include "viewer_test_support.h"

namespace zav {
namespace {

TLandMark RandomLandmark(TRandom& Random) {
  TLandMark New;
  New.Latitude = Random.NextDouble() * 180 - 90;
  New.Longitude = Random.NextDouble() * 360 - 180;
  New.ClassFlag = static_cast<uint8_t>(Random.Next() % 5);
  New.SymbolProps.Size = static_cast<int32_t>(Random.Next() % 30);
  New.Caption.Text = "Place " + std::to_string(Random.Next() % 1000);
  return New;
}

std::string FileText(const LandmarkDocument& Document) {
  TMemoryStream Stream;
  WriteLandMarks(Stream, "id", Document.list(), "");
  std::string Text(Stream.Size(), 0);
  Stream.SetPosition(0);
  Stream.Read(Text.data(), Text.size());
  return Text;
}

// One of all kinds of edits.
void RandomEdit(LandmarkDocument& Document, TRandom& Random) {
  const int Index = 1 + static_cast<int>(Random.Next() % static_cast<uint64_t>(Document.count()));
  const auto Class = static_cast<uint8_t>(Random.Next() % 5);
  const double Middle = Random.NextDouble() * 180 - 90;
  switch (Random.Next() % 8) {
    case 0:
      Document.remove(Index);
      break;
    case 1:
      Document.removeWhere(
          "strip", [&](const TLandMark& Each) { return std::abs(Each.Latitude - Middle) < 0.5; });
      break;
    case 2:
      Document.changeWhere(
          "look", [&](const TLandMark& Each) { return Each.ClassFlag == Class; },
          [&](TLandMark& Each) { Each.SymbolProps.Size = static_cast<int32_t>(Class) + 40; });
      break;
    case 3:
      for (int i = 0; i < 3; ++i)  // a drag
        Document.replace(Index, RandomLandmark(Random), "move", LandmarkMerge::Join);
      Document.endMerge();
      break;
    case 4:
      Document.replace(Index, RandomLandmark(Random), "move", LandmarkMerge::Join);
      Document.cancelMerge();
      break;
    case 5:
      Document.replace(Index, RandomLandmark(Random), "change");
      break;
    default:
      Document.add(RandomLandmark(Random));
  }
}

TEST(LandmarkDocument, TwoThousandEditsUndoneAndRedoneGiveTheSameBytes) {
  const TestFolder Folder;
  TRandom Random(7);
  LandmarkDocument Document;
  for (int i = 0; i < 2345; ++i) Document.add(RandomLandmark(Random));
  ASSERT_EQ(Document.saveAs(Folder.path("a.xml")), "");
  const std::string Saved = ReadWholeTextFile(FromQString(Folder.path("a.xml")));
  ASSERT_EQ(Document.load(Folder.path("a.xml")), "");
  EXPECT_FALSE(Document.canUndo());

  std::vector<std::string> States{FileText(Document)};
  while (States.size() <= 2000) {
    RandomEdit(Document, Random);
    ASSERT_FALSE(Document.isMerging());
    if (States.size() % 100 == 0 || States.size() > 1990)
      States.push_back(FileText(Document));
    else
      States.emplace_back();
  }
  const std::string Last = FileText(Document);
  EXPECT_TRUE(Document.isModified());
  int Steps = 0;
  for (; Document.canUndo(); ++Steps) Document.undo();
  EXPECT_GT(Steps, 1000);
  EXPECT_EQ(FileText(Document), States[0]);
  EXPECT_FALSE(Document.isModified());
  ASSERT_EQ(Document.saveAs(Folder.path("b.xml")), "");
  EXPECT_EQ(ReadWholeTextFile(FromQString(Folder.path("b.xml"))), Saved);
  for (int i = 0; i < Steps; ++i) Document.redo();
  EXPECT_FALSE(Document.canRedo());
  EXPECT_EQ(FileText(Document), Last);
  // Half way back, and another edit: what could be redone is gone, what can be undone is not.
  for (int i = 0; i < Steps / 2; ++i) Document.undo();
  const std::string Half = FileText(Document);
  Document.add(TLandMark());
  EXPECT_FALSE(Document.canRedo());
  Document.undo();
  EXPECT_EQ(FileText(Document), Half);
  while (Document.canUndo()) Document.undo();
  EXPECT_EQ(FileText(Document), States[0]);
}

TEST(LandmarkDocument, StepsOfUndo) {
  LandmarkDocument Document;
  int Changes = 0;
  QObject::connect(&Document, &LandmarkDocument::changed, [&] { ++Changes; });
  TLandMark A;
  A.Caption.Text = "A";
  TLandMark B = A;
  B.Latitude = 5;
  Document.add(A);
  Document.add(TLandMark());
  Document.undo();
  // A drag that comes back to where it began is no step, and what could be redone stays.
  Document.replace(1, B, "move", LandmarkMerge::Join);
  EXPECT_FALSE(Document.canRedo());
  Document.replace(1, A, "move", LandmarkMerge::Join);
  Document.endMerge();
  EXPECT_TRUE(Document.canRedo());
  EXPECT_EQ(Document.undoText(), "Add landmark");
  // A drag that is given up neither.
  Document.replace(1, B, "move", LandmarkMerge::Join);
  Document.cancelMerge();
  EXPECT_TRUE(Document.canRedo());
  EXPECT_EQ(Document.list()[1], A);
  // Edits that change nothing, and unknown numbers, are none.
  Changes = 0;
  Document.replace(1, A, "same");
  Document.replace(9, B, "none");
  Document.remove(0);
  EXPECT_EQ(Document.removeWhere("none", [](const TLandMark&) { return false; }), 0);
  EXPECT_EQ(Changes, 0);
  EXPECT_TRUE(Document.canRedo());
  // Joined edits of one landmark end where those of another begin.
  Document.redo();
  Document.replace(1, B, "one", LandmarkMerge::Join);
  Document.replace(2, B, "two", LandmarkMerge::Join);
  Document.replace(2, A, "two", LandmarkMerge::Join);
  Document.undo();
  EXPECT_EQ(Document.list()[2], TLandMark());
  EXPECT_EQ(Document.list()[1], B);
  Document.undo();
  EXPECT_EQ(Document.list()[1], A);
}

TEST(LandmarkDocument, FilesThatAreDamagedOrHoldMore) {
  const TestFolder Folder;
  LandmarkDocument Document;
  TLandMark A;
  A.Caption.Text = "Bärn";
  A.Latitude = 46.95;
  Document.add(A);
  ASSERT_EQ(Document.saveAs(Folder.path("good.xml")), "");
  const QByteArray Good =
      QByteArray::fromStdString(ReadWholeTextFile(FromQString(Folder.path("good.xml"))));
  Document.add(A);

  // What is no file of landmarks leaves those in memory, and the way back.
  const QByteArray Cut = Good.left(Good.indexOf("<gmlandmarks") + 20);
  for (const QByteArray& Bytes : {QByteArray(), QByteArray("\x89PNG\r\n\x1a\n"), Cut}) {
    const QString Reason = Document.load(Folder.write("bad.xml", Bytes));
    EXPECT_TRUE(Reason.contains("bad.xml")) << Reason.toStdString();
    EXPECT_EQ(Document.count(), 2);
    EXPECT_TRUE(Document.canUndo());
    EXPECT_TRUE(Document.fileName().endsWith("good.xml"));
  }
  EXPECT_NE(Document.load(Folder.path("missing.xml")), "");
  // One that is cut off later gives what is there.
  ASSERT_EQ(Document.load(Folder.write("short.xml", Good.left(Good.size() - 10))), "");
  EXPECT_EQ(Document.count(), 1);

  // A file with more than one set is read, and never written.
  const QByteArray Calibration = CalibrationText("map.bmp", "Map");
  for (const QByteArray& More : {Good + Good, Good + Calibration}) {
    const QString Name = Folder.write("more.xml", More);
    ASSERT_EQ(Document.load(Name), "");
    EXPECT_FALSE(Document.isOwnFile());
    EXPECT_TRUE(Document.saveAs(Name).contains("would be lost"));
    EXPECT_EQ(ReadWholeTextFile(FromQString(Name)), More.toStdString());
  }
  const QString Map = Folder.write("map.xml", Calibration);
  EXPECT_TRUE(Document.saveAs(Map).contains("would be lost"));
  EXPECT_EQ(ReadWholeTextFile(FromQString(Map)), Calibration.toStdString());
  // What the format cannot hold is refused; the old file stays.
  A.Caption.Text = "two\nlines";
  Document.add(A);
  EXPECT_TRUE(Document.saveAs(Folder.path("good.xml")).contains("line break"));
  EXPECT_EQ(ReadWholeTextFile(FromQString(Folder.path("good.xml"))), Good.toStdString());
  EXPECT_TRUE(Document.isModified());
}

TEST(LandmarkDocument, TablesAreImportedAsOneStep) {
  const TestFolder Folder;
  LandmarkDocument Document;
  Document.add(TLandMark());
  const QString Name = Folder.write(
      "t.csv", "city;y;x;rank\nK\xc3\xb6ln;50,93;6,95;1\nNowhere;95;0;1\nRoma;41,9;12,5;300\n");
  TLandMarkSources Sources;
  const auto Take = [&](TLandMarkField Field, size_t From) {
    Sources[static_cast<size_t>(Field)] = From;
  };
  Take(TLandMarkField::lfName, 0);
  Take(TLandMarkField::lfLat, 1);
  LandmarkDocument::Imported Result;
  EXPECT_NE(Document.importTable(Name, Sources, TLandMark(), Result), "");  // no longitude
  Take(TLandMarkField::lfLong, 2);
  Take(TLandMarkField::lfClass, 3);
  TLandMark Template;
  Template.SymbolProps.Size = 3;
  ASSERT_EQ(Document.importTable(Name, Sources, Template, Result), "");
  EXPECT_EQ(Result.Count, 1);
  EXPECT_EQ(Result.ProblemCount, 2);
  EXPECT_TRUE(Result.Problems.value(0).endsWith("t.csv:3: lat 95 is outside -90..90"));
  ASSERT_EQ(Document.count(), 2);
  const TLandMark& Koeln = Document.list()[2];
  EXPECT_EQ(Koeln.Caption.Text.Text(), "Köln");
  EXPECT_EQ(Koeln.Latitude, 50.93);
  EXPECT_EQ(Koeln.ClassFlag, 1);
  EXPECT_EQ(Koeln.SymbolProps.Size, 3);
  Document.undo();
  EXPECT_EQ(Document.count(), 1);
}

}  // namespace
}  // namespace zav
