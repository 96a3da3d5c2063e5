// recovery_test.cpp - unsaved work through a crash: exactly as it was, never another viewer's,
// never at the cost of a file.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QDir>
#include <QPushButton>

#include <geomap/landmarks/landmark_list.h>
#include <platform/base/read_file.h>

#include "autosave.h"
#include "calibration_support.h"
#include "field_line.h"
#include "landmark_workbench.h"
#include "message_bar.h"
#include "recovery_folder.h"
#include "support/failing_file_ops.h"

namespace zav {
namespace {

std::vector<CalibItem> ItemsOf(const CalibDocument& Document) {
  std::vector<CalibItem> Items;
  for (int i = 0; i < Document.itemCount(); ++i) {
    Items.push_back(Document.item(i));
    Items.back().Id = 0;
  }
  return Items;
}

std::string Kept(const std::string& Body) { return WriteRecovery({}, Body); }

// Texts and numbers that files of landmarks cannot hold, too.
TLandMark OddLandmark() {
  TLandMark New;
  New.Latitude = -0.1 + 1e-13;
  New.Longitude = 179.99999999999997;
  New.Altitude = -11034.25;
  New.ClassFlag = 255;
  New.Tag = -2147483647 - 1;
  New.SymbolProps = {TLandMarkElement::lmPlus, 30, 0xFFFFFFFF, 1, true, -90, 40};
  New.Caption.Text = " \"Quoted\",\r\nnext line #1; \xC3\xA4 ";
  New.Caption.FontName = "";
  New.Caption.FontStyles = 15;
  New.Caption.dx = -7;
  New.Caption.HAlignment = THorizontalAlignment::haRight;
  New.Caption.VAlignment = TVerticalAlignment::vaBottom;
  New.Identifier = "#id";
  New.Time = 45000.123456789;
  return New;
}

TEST(Recovery, TextsComeBackExactlyOrNotAtAll) {
  const TestFolder Folder;
  const QString File = Folder.copy("alps_utm32n.xml", "alps_utm32n.xml");
  Folder.copy("alps_utm32n.jpg", "alps_utm32n.jpg");
  CalibDocument Document;
  ASSERT_EQ(Document.load(File), "");
  const auto InFile = ItemsOf(Document);
  Document.removeItem(Document.item(0).Id);
  Document.setEnabled(Document.item(1).Id, false);
  Document.setName(Document.item(2).Id, "M\u00fcnchen, \"Dom\"");
  Document.setCaption("Other, caption");
  Document.setEllipsoid(TGeoEllipsoid::gelBess41);
  ASSERT_EQ(Document.setZone(60, true), "");
  ASSERT_EQ(Document.addPoint(CalibPosition::OfUtm(5e6, 4e5, 33, false), {7, 8}, "utm"), "");
  ASSERT_EQ(Document.addLinePoint(TGratLineKind::gtlMeridian, 7.5, {-3, 9}, "line"), "");
  for (const TCalibModel Model : {TCalibModel::cmUTM, TCalibModel::cmParabolicIp,
                                  TCalibModel::cmUndefined, TCalibModel::cmConicConformal}) {
    Document.setModel(Model);
    const std::string Text = Kept(Document.recoveryText());
    const auto Read = ReadRecovery(Text);
    ASSERT_TRUE(Read);
    CalibDocument Back;
    ASSERT_EQ(Back.load(File), "");
    ASSERT_EQ(Back.recover(Read->Lines), "");
    EXPECT_EQ(ItemsOf(Back), ItemsOf(Document));
    EXPECT_EQ(Kept(Back.recoveryText()), Text);
    EXPECT_TRUE(Back.isModified());
    Back.undo();
    EXPECT_EQ(ItemsOf(Back), InFile);
    EXPECT_FALSE(Back.isModified());
  }

  LandmarkDocument Landmarks;
  Landmarks.add(OddLandmark());
  Landmarks.add({});
  const std::string Text = Kept(Landmarks.recoveryText());
  LandmarkDocument Back;
  ASSERT_EQ(Back.recover("/nowhere/lost.xml", ReadRecovery(Text)->Lines), "");
  EXPECT_TRUE(Back.list() == Landmarks.list());
  EXPECT_TRUE(Back.isModified());

  // Not a byte may be missing or other than it was.
  for (size_t i = 0; i < Text.size(); ++i) {
    EXPECT_FALSE(ReadRecovery(Text.substr(0, i))) << i;
    std::string Damaged = Text;
    Damaged[i] = static_cast<char>(Damaged[i] ^ 1);
    EXPECT_FALSE(ReadRecovery(Damaged)) << i;
  }
  // Whole texts of a viewer that knows more than this one: refused, nothing changed.
  for (const char* Line : {"map,utm,99,0,0,,,,1,1\r\n", "map,newmodel,1,0,0,,,,1,1\r\n",
                           "map,utm,1,0,500,,,,1,1\r\n", "map\r\n", "point,on,1,2,3,4,x\r\n", ""}) {
    CalibDocument Same;
    ASSERT_EQ(Same.load(File), "");
    EXPECT_NE(Same.recover(ReadRecovery(Kept(Line))->Lines), "") << Line;
    EXPECT_FALSE(Same.isModified());
  }
  EXPECT_NE(Back.recover({}, ReadRecovery(Kept("landmark,1,2\r\n"))->Lines), "");
  EXPECT_TRUE(Back.list() == Landmarks.list());
}

TEST(Recovery, OnlyWhatIsLeftIsTaken) {
  const TestFolder Root;
  const QString Path = Root.path("a/unsaved");
  QStringList Damaged;
  RecoveryFolder Mine(Path);
  EXPECT_TRUE(Mine.takeLeft(Damaged).empty());
  auto Other = std::make_unique<RecoveryFolder>(Path);
  RecoveryHead Head;
  Head.Title = "Alps, \"1\"";
  Head.FileName = "/maps/alps.xml";
  Head.Saved = QDateTime::currentDateTimeUtc();
  Head.Stamp = {12, 34};
  ASSERT_EQ(Other->write(Head, "first\r\n"), "");
  ASSERT_EQ(Other->write(Head, "second,x\r\n"), "");
  Head.Kind = RecoveryKind::Landmarks;
  ASSERT_EQ(Other->write(Head, ""), "");
  EXPECT_TRUE(Mine.takeLeft(Damaged).empty());  // the other one is running
  Other.reset();
  {
    const auto Left = Mine.takeLeft(Damaged);
    ASSERT_EQ(Left.size(), 2U);
    EXPECT_EQ(Left[0].Work.Lines, (std::vector<std::vector<std::string>>{{"second", "x"}}));
    EXPECT_EQ(Left[0].Work.Head.Title, Head.Title);
    EXPECT_EQ(Left[0].Work.Head.FileName, Head.FileName);
    EXPECT_EQ(Left[0].Work.Head.Saved.toMSecsSinceEpoch(), Head.Saved.toMSecsSinceEpoch());
    EXPECT_EQ(Left[0].Work.Head.Stamp, Head.Stamp);
    // While it is offered here, no other viewer offers it.
    RecoveryFolder Third(Path);
    EXPECT_TRUE(Third.takeLeft(Damaged).empty());
    RecoveryFolder::discard(Left[1]);
  }
  EXPECT_EQ(Mine.takeLeft(Damaged).size(), 1U);
  EXPECT_TRUE(Damaged.isEmpty());

  // A damaged file is told once and kept.
  Root.write("a/unsaved/1_x-calibration.zavwork", "zavgeo-viewer-recovery,1\r\ncalib");
  EXPECT_EQ(Mine.takeLeft(Damaged).size(), 1U);
  ASSERT_EQ(Damaged.size(), 1);
  EXPECT_TRUE(QFile::exists(Damaged[0]));
  EXPECT_EQ(Mine.takeLeft(Damaged).size(), 1U);
  EXPECT_EQ(Damaged.size(), 1);

  // What cannot be written says so, and nothing half-written is left.
  RecoveryFolder Nowhere(Root.write("file", "") + "/unsaved");
  EXPECT_TRUE(Nowhere.write(Head, "").contains("unsaved"));
  ASSERT_EQ(Mine.write(Head, "whole\r\n"), "");
  {
    TFailingFileOps Full;
    Full.Arm(2);
    const TFileOpsOverride Override(Full);
    EXPECT_NE(Mine.write(Head, "lost\r\n"), "");
  }
  RecoveryFolder After(Path);
  const QStringList Files = QDir(Path).entryList({"*-landmarks.zavwork"});
  ASSERT_EQ(Files.size(), 1);
  EXPECT_EQ(ReadRecovery(ReadWholeTextFile(QDir(Path).filePath(Files[0]).toStdString()))->Lines[0],
            std::vector<std::string>{"whole"});
}

class RecoveryWindowTest : public CalibrationTest {
 protected:
  void SetUp() override {
    CalibrationTest::SetUp();
    FFolder.copy("alps_utm32n.jpg", "alps_utm32n.jpg");
    FFile = FFolder.copy("alps_utm32n.xml", "alps_utm32n.xml");
    FWindow->keepWork(FFolder.path("unsaved"));
  }
  // As after a signal that nobody can handle: the next viewer finds what this one has kept.
  void CrashAndStart() {
    FWindow = std::make_unique<MainWindow>(FSettings.get());
    FWindow->show();
    FWindow->keepWork(FFolder.path("unsaved"));
    QTest::qWait(1);
  }
  QStringList KeptFiles() { return QDir(FFolder.path("unsaved")).entryList({"*.zavwork"}); }
  QPushButton* Choice(const char* Text) {
    for (QPushButton* Each : FWindow->findChildren<QPushButton*>())
      if (Each->isVisible() && Each->text().remove('&') == QLatin1String(Text)) return Each;
    return nullptr;
  }
  QString Offer() {
    for (MessageBar* Each : FWindow->findChildren<MessageBar*>())
      if (Each->text().contains("viewer ended before")) return Each->text();
    return {};
  }
  QByteArray FileBytes() {
    QFile File(FFile);
    return File.open(QIODevice::ReadOnly) ? File.readAll() : QByteArray();
  }

  QString FFile;
};

TEST_F(RecoveryWindowTest, WorkSurvivesACrash) {
  const QByteArray Bytes = FileBytes();
  ASSERT_EQ(FWindow->openAll({FFile}), "");
  EXPECT_TRUE(FWindow->autosave()->saveNow());
  EXPECT_TRUE(KeptFiles().isEmpty());  // nothing to keep
  Document().moveItem(Document().item(0).Id, {111, 222});
  Document().setEnabled(Document().item(1).Id, false);
  FWindow->landmarks().document().add(OddLandmark());
  EXPECT_TRUE(QTest::qWaitFor([&] { return KeptFiles().size() == 2; }, 60000));
  const auto Items = ItemsOf(Document());

  CrashAndStart();
  EXPECT_TRUE(Offer().contains("Alps")) << Offer().toStdString();
  EXPECT_FALSE(Offer().contains("changed since"));
  EXPECT_FALSE(FWindow->isWindowModified());
  Choice("Recover")->click();
  EXPECT_EQ(ItemsOf(Document()), Items);
  EXPECT_TRUE(FWindow->isWindowModified());
  EXPECT_TRUE(FWindow->windowTitle().contains("Alps"));
  EXPECT_TRUE(Offer().contains("landmarks")) << Offer().toStdString();
  EXPECT_EQ(FileBytes(), Bytes);

  // Not recovered yet, crashed again: the one is this viewer's, the other still there.
  CrashAndStart();
  EXPECT_EQ(KeptFiles().size(), 2);
  Choice("Later")->click();
  Choice("Recover")->click();
  EXPECT_TRUE(Offer().isEmpty());
  EXPECT_EQ(ItemsOf(Document()), Items);
  EXPECT_EQ(FileBytes(), Bytes);
  ASSERT_TRUE(Work().saveTo(FFile));
  EXPECT_EQ(KeptFiles().size(), 1);  // what was put off
  CrashAndStart();
  Choice("Recover")->click();
  EXPECT_TRUE(FWindow->landmarks().document().list()[1] == OddLandmark());
  EXPECT_FALSE(FWindow->landmarks().saveTo(FFolder.path("marks.xml")));  // it has a quote
  WillPress(QMessageBox::Discard);
  EXPECT_TRUE(FWindow->close());
  EXPECT_TRUE(KeptFiles().isEmpty());
}

TEST_F(RecoveryWindowTest, FilesThatChangedAndWorkThatIsGivenUp) {
  ASSERT_EQ(FWindow->openAll({FFile}), "");
  Document().setCaption("Mine");
  const std::string Mine = Document().recoveryText();
  ASSERT_TRUE(FWindow->autosave()->saveNow());
  QFile(FFile).remove();
  QByteArray Others = CalibrationText("alps_utm32n.jpg", "Another program's");
  FFolder.write("alps_utm32n.xml", Others);
  CrashAndStart();
  EXPECT_TRUE(Offer().contains("changed since"));
  Choice("Recover")->click();
  EXPECT_EQ(Document().caption(), "Mine");
  EXPECT_EQ(FileBytes(), Others);
  Document().undo();
  EXPECT_EQ(Document().caption(), "Another program's");
  EXPECT_TRUE(KeptFiles().isEmpty());
  Document().redo();
  ASSERT_TRUE(FWindow->autosave()->saveNow());

  // The file is gone: the image is enough.
  QFile(FFile).remove();
  CrashAndStart();
  Choice("Recover")->click();
  EXPECT_EQ(Document().caption(), "Mine");
  EXPECT_EQ(Document().recoveryText(), Mine);

  // And without the image it waits for another day.
  QFile::rename(FFolder.path("alps_utm32n.jpg"), FFolder.path("away.jpg"));
  CrashAndStart();
  Choice("Recover")->click();
  EXPECT_TRUE(FWindow->message().contains("alps_utm32n.jpg")) << FWindow->message().toStdString();
  CrashAndStart();
  EXPECT_EQ(KeptFiles().size(), 1);
  Choice("Discard")->click();
  EXPECT_TRUE(Offer().isEmpty());
  EXPECT_TRUE(KeptFiles().isEmpty());
}

}  // namespace
}  // namespace zav
