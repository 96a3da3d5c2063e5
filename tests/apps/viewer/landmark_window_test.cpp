// landmark_window_test.cpp - landmarks in the viewer's window: placed, found, changed, deleted and
// saved as a person does it.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDockWidget>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_convert.h>

#include "calibration_workbench.h"
#include "landmark_classes.h"
#include "landmark_import_dialog.h"
#include "landmark_palette.h"
#include "landmark_panel.h"
#include "landmark_symbols_dialog.h"
#include "landmark_table_model.h"
#include "landmark_workbench.h"
#include "main_window.h"
#include "viewer_test_support.h"

namespace zav {
namespace {

class LandmarkTest : public ::testing::Test {
 protected:
  void SetUp() override {
    FSettings = std::make_unique<QSettings>(FFolder.path("settings.ini"), QSettings::IniFormat);
    FWindow = std::make_unique<MainWindow>(FSettings.get());
    FWindow->resize(1300, 900);
    FWindow->show();
    ASSERT_EQ(FWindow->openAll({Sample("europe_conic.xml")}), "");
    Action("Edit Landmarks")->trigger();
    QTest::qWait(1);
    Widget().setMagnification(1);
    Widget().map().BringMapPixelToCenter({1000, 700});
  }

  GeoMapWidget& Widget() { return FWindow->mapWidget(); }
  LandmarkWorkbench& Work() { return FWindow->landmarks(); }
  LandmarkDocument& Document() { return Work().document(); }
  const TLandMark& At(int Index) { return Document().list()[Index]; }
  QAction* Action(const QString& Text) {
    for (QAction* Each : FWindow->findChildren<QAction*>())
      if (Each->text().remove('&').remove("...") == Text && Each->isVisible()) return Each;
    qFatal("no action %s", qPrintable(Text));
    return nullptr;
  }
  template <typename T>
  T& Named(const QString& Name) {
    for (T* Each : Work().dock().findChildren<T*>())
      if (Each->accessibleName() == Name) return *Each;
    qFatal("no widget %s", qPrintable(Name));
  }
  QPoint ControlAt(int X, int Y) {
    const TPoint At = Widget().map().MapImageToControl({X, Y});
    return {At.X, At.Y};
  }
  TPoint PixelOf(int Index) {
    TPoint Pixel;
    EXPECT_TRUE(
        Widget().map().CalcPixelCoords(At(Index).Latitude, At(Index).Longitude, Pixel.X, Pixel.Y));
    return Pixel;
  }
  void Click(int X, int Y) { QTest::mouseClick(&Widget(), Qt::LeftButton, {}, ControlAt(X, Y)); }
  void Move(QPoint To, Qt::MouseButtons Buttons = Qt::LeftButton) {
    QMouseEvent Event(QEvent::MouseMove, To, Widget().mapToGlobal(To), Qt::NoButton, Buttons, {});
    QApplication::sendEvent(&Widget(), &Event);
  }
  void Drag(QPoint From, QPoint To) {
    QTest::mousePress(&Widget(), Qt::LeftButton, {}, From);
    Move((From + To) / 2);
    Move(To);
    QTest::mouseRelease(&Widget(), Qt::LeftButton, {}, To);
  }
  void Add(int X, int Y, const QString& Name, int Class = 0) {
    Action("Add")->trigger();
    Click(X, Y);
    auto& Caption = Named<QLineEdit>("Caption");
    EXPECT_TRUE(Caption.isEnabled() && Caption.text().isEmpty());
    Caption.setText(Name);
    emit Caption.textEdited(Name);
    QTest::keyClick(&Caption, Qt::Key_Return);
    if (Class != 0) Named<QSpinBox>("Class").setValue(Class);
    Document().endMerge();
    Action("Select and Move")->trigger();
  }
  QStringList Names() {
    QStringList Names;
    for (int i = 1; i <= Document().count(); ++i) Names << Document().title(i);
    Names.sort();
    return Names;
  }
  // Presses a button of the question that the next call asks.
  void WillPress(QMessageBox::StandardButton Button) {
    FAsked = 0;
    QTimer::singleShot(0, FWindow.get(), [this, Button] {
      auto* Question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (Question == nullptr) return;
      ++FAsked;
      Question->button(Button)->click();
    });
  }

  TestFolder FFolder;
  std::unique_ptr<QSettings> FSettings;
  std::unique_ptr<MainWindow> FWindow;
  int FAsked = 0;
};

TEST_F(LandmarkTest, PlacedNamedMovedAndTakenBack) {
  Add(1000, 700, "First");
  ASSERT_EQ(Document().count(), 1);
  EXPECT_EQ(At(1).Caption.Text.Text(), "First");
  EXPECT_EQ(PixelOf(1), (TPoint{1000, 700}));
  EXPECT_EQ(Widget().map().NumLandMarks(), 1);
  EXPECT_TRUE(FWindow->isWindowModified());
  // Picked within 10 pixels, and not beyond.
  Click(1007, 693);
  EXPECT_EQ(Work().tool().selected(), 1);
  EXPECT_EQ(Widget().map().HighLightLandMark(), 1);
  Click(1008, 708);
  EXPECT_EQ(Work().tool().selected(), 0);
  EXPECT_EQ(Widget().map().HighLightLandMark(), 0);
  // Dragged by as much as the mouse moves, wherever it was taken hold of: one step.
  Drag(ControlAt(1005, 700), ControlAt(1055, 740));
  EXPECT_EQ(PixelOf(1), (TPoint{1050, 740}));
  EXPECT_EQ(Document().undoText(), "Move \"First\"");
  // Given up with Escape.
  QTest::mousePress(&Widget(), Qt::LeftButton, {}, ControlAt(1050, 740));
  Move(ControlAt(1200, 800));
  EXPECT_EQ(PixelOf(1), (TPoint{1200, 800}));
  QTest::keyClick(&Widget(), Qt::Key_Escape);
  QTest::mouseRelease(&Widget(), Qt::LeftButton, {}, ControlAt(1200, 800));
  EXPECT_EQ(PixelOf(1), (TPoint{1050, 740}));
  // By arrow keys, ten pixels with Shift; one step of undo.
  for (int i = 0; i < 3; ++i) QTest::keyClick(&Widget(), Qt::Key_Right);
  QTest::keyClick(&Widget(), Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(PixelOf(1), (TPoint{1053, 730}));
  // There is no view to go forward to; the landmark stays all the same.
  QTest::keyClick(&Widget(), Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(PixelOf(1), (TPoint{1053, 730}));
  Document().undo();
  EXPECT_EQ(PixelOf(1), (TPoint{1050, 740}));
  // A drag elsewhere moves the map; a click there adds nothing.
  const TPoint Before = Widget().map().TopLeft();
  Drag(ControlAt(900, 600), ControlAt(940, 600));
  EXPECT_LT(Widget().map().TopLeft().X, Before.X);
  EXPECT_EQ(Document().count(), 1);
  // Magnified and reduced, it is where it was clicked.
  for (const double Magnification : {2.0, 0.7}) {
    Widget().setMagnification(Magnification);
    Widget().map().BringMapPixelToCenter({1000, 700});
    Add(1100, 650, "More");
    const QPoint Clicked = ControlAt(1100, 650);
    const TPoint Pixel = PixelOf(Document().count());
    const QPoint Way = ControlAt(Pixel.X, Pixel.Y) - Clicked;
    EXPECT_LE(std::max(std::abs(Way.x()), std::abs(Way.y())), 1) << Magnification;
  }
  while (Document().canUndo()) QTest::keyClick(&Widget(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Document().count(), 0);
  EXPECT_FALSE(FWindow->isWindowModified());
}

TEST_F(LandmarkTest, EveryFieldIsEditedInThePanel) {
  Add(1000, 700, "Old");
  Click(1000, 700);
  auto& Caption = Named<QLineEdit>("Caption");
  Caption.setFocus();
  Caption.selectAll();
  const QString Before = Document().undoText();
  QTest::keyClicks(&Caption, "New name");
  QTest::keyClick(&Caption, Qt::Key_Return);
  EXPECT_EQ(At(1).Caption.Text.Text(), "New name");
  Document().undo();  // all its letters at once
  EXPECT_EQ(At(1).Caption.Text.Text(), "Old");
  EXPECT_EQ(Document().undoText(), Before);
  Document().redo();

  const auto Type = [&](const char* Name, const char* Text) {
    auto& Field = Named<QLineEdit>(Name);
    Field.selectAll();
    QTest::keyClicks(&Field, Text);
    QTest::keyClick(&Field, Qt::Key_Return);
  };
  Type("Position", "47 30 N, 8 15 E");
  Type("Identifier", "ch-1");
  Type("Altitude", "431.5");
  Type("Time", "2024-02-29 13:45");
  Named<QSpinBox>("Tag").setValue(-7);
  Named<QSpinBox>("Class").setValue(200);
  auto& Shape = Named<QComboBox>("Shape");
  Shape.setCurrentIndex(static_cast<int>(TLandMarkElement::lmArrowTo));
  emit Shape.activated(Shape.currentIndex());
  Named<QSpinBox>("Size").setValue(9);
  Named<QSpinBox>("Direction").setValue(45);
  Named<QSpinBox>("Length").setValue(33);
  Named<QSpinBox>("Size of the caption").setValue(12);
  Named<QSpinBox>("Caption to the right").setValue(-3);
  Named<QSpinBox>("Caption down").setValue(4);
  Named<QSpinBox>("Direction of the caption").setValue(30);
  Named<QAbstractButton>("Bold").click();
  auto& Across = Named<QComboBox>("Caption across");
  Across.setCurrentIndex(1);
  emit Across.activated(1);
  TLandMark Wanted = At(1);
  EXPECT_EQ(Wanted.Latitude, 47.5);
  EXPECT_EQ(Wanted.Longitude, 8.25);
  EXPECT_EQ(Wanted.Identifier.Text(), "ch-1");
  EXPECT_EQ(Wanted.Altitude, 431.5);
  EXPECT_EQ(DecodeDateTime(Wanted.Time).Minute, 45);
  EXPECT_EQ(Wanted.Tag, -7);
  EXPECT_EQ(Wanted.ClassFlag, 200);
  const TSymbolProperties Symbol{TLandMarkElement::lmArrowTo, 9, clBlue, clWhite, false, 45, 33};
  EXPECT_EQ(Wanted.SymbolProps, Symbol);
  EXPECT_EQ(Wanted.Caption.Size, 12);
  EXPECT_EQ(Wanted.Caption.dx, -3);
  EXPECT_EQ(Wanted.Caption.dy, 4);
  EXPECT_EQ(Wanted.Caption.Direction, 30);
  EXPECT_EQ(Wanted.Caption.FontStyles, fsBold);
  EXPECT_EQ(Wanted.Caption.HAlignment, THorizontalAlignment::haRight);
  // What is refused changes nothing, and is told.
  Type("Position", "somewhere");
  Type("Time", "yesterday");
  Type("Caption", "say \"hello\"");
  Wanted.Caption.Text = "say ";
  EXPECT_EQ(At(1).Latitude, 47.5);
  EXPECT_EQ(At(1).Time, Wanted.Time);
  EXPECT_EQ(At(1).Caption.Text.Text().find('"'), std::string::npos);
  // A symbol of the palette; without a selection it is for new landmarks.
  auto& Palette = Work().dock().palette();
  emit Palette.itemClicked(Palette.item(5));
  EXPECT_EQ(At(1).SymbolProps, Palette.symbols().GetValues(6).Properties);
  Click(900, 600);
  emit Palette.itemClicked(Palette.item(2));
  Add(900, 600, "Other");
  EXPECT_EQ(At(2).SymbolProps, Palette.symbols().GetValues(3).Properties);
  EXPECT_EQ(At(1).SymbolProps, Palette.symbols().GetValues(6).Properties);
}

TEST_F(LandmarkTest, DeletedByClickCircleRectangleAndClass) {
  Add(900, 650, "A", 1);
  Add(930, 650, "B", 2);
  Add(900, 700, "C", 2);
  Add(1100, 750, "D", 3);
  Add(1120, 750, "E", 3);
  Add(1000, 500, "F", 1);
  Action("Delete by a Click")->trigger();
  Click(905, 655);
  EXPECT_EQ(Names(), QStringList({"B", "C", "D", "E", "F"}));
  Document().undo();
  // A circle of degrees is narrow on the map: a degree of longitude is short up here.
  Action("Delete in a Circle")->trigger();
  Drag(ControlAt(900, 650), ControlAt(900, 690));
  EXPECT_EQ(Names(), QStringList({"B", "C", "D", "E", "F"}));
  Document().undo();
  Drag(ControlAt(900, 650), ControlAt(940, 650));
  EXPECT_EQ(Names(), QStringList({"D", "E", "F"}));
  Document().undo();
  // What is hidden is safe.
  Widget().map().SetClassVisibility(2, false);
  Drag(ControlAt(900, 650), ControlAt(940, 650));
  EXPECT_EQ(Names(), QStringList({"B", "C", "D", "E", "F"}));
  Widget().map().SetClassVisibility(2, true);
  Document().undo();
  Action("Delete in a Rectangle")->trigger();
  Drag(ControlAt(1060, 720), ControlAt(1110, 780));
  EXPECT_EQ(Names(), QStringList({"A", "B", "C", "E", "F"}));
  Document().undo();
  // By class, and shown and hidden by class.
  Work().dock().showClasses();
  QTest::qWait(1);
  QTreeWidget& Classes = Work().dock().classes().list();
  ASSERT_EQ(Classes.topLevelItemCount(), 3);
  EXPECT_EQ(Classes.topLevelItem(1)->text(1), "2");
  Classes.topLevelItem(1)->setCheckState(0, Qt::Unchecked);
  EXPECT_FALSE(Widget().map().GetClassVisibility(2));
  Classes.setCurrentItem(Classes.topLevelItem(2));
  for (QPushButton* Button : Work().dock().findChildren<QPushButton*>())
    if (Button->text().remove('&') == "Delete Class") Button->click();
  EXPECT_EQ(Names(), QStringList({"A", "B", "C", "F"}));
  EXPECT_EQ(Document().undoText(), "Delete class 3");
  Document().undo();
  EXPECT_EQ(Names(), QStringList({"A", "B", "C", "D", "E", "F"}));
}

TEST_F(LandmarkTest, FoundByTextWithoutAccents) {
  Add(900, 650, QString::fromUtf8("Z\u00fcrich"));
  Add(1000, 650, "Bern");
  Add(1100, 650, "ZURICH West");
  auto& Find = Named<QLineEdit>("Find");
  LandmarkTableModel& Model = Work().dock().model();
  EXPECT_EQ(Model.rowCount(), 3);
  Find.setText("zuri");
  ASSERT_EQ(Model.rowCount(), 2);
  EXPECT_EQ(Model.landmarkAt(1), 3);
  EXPECT_EQ(Model.summary(), "2 found");
  // Enter goes there, wherever the map is.
  Widget().map().BringMapPixelToCenter({400, 1300});
  QTest::keyClick(&Find, Qt::Key_Return);
  EXPECT_EQ(Work().tool().selected(), 1);
  EXPECT_TRUE(Widget().rect().contains(ControlAt(900, 650)));
  Find.setText("nothing");
  EXPECT_EQ(Model.rowCount(), 0);
}

TEST_F(LandmarkTest, UndoAndSaveMeanWhatIsEdited) {
  Add(900, 650, "A");
  const QString File = FFolder.path("a.xml");
  ASSERT_TRUE(Work().saveTo(File));
  EXPECT_FALSE(FWindow->isWindowModified());
  Add(1000, 650, "B");
  // Calibrating takes the mouse; its undo is another one.
  Action("Calibrate")->trigger();
  QTest::qWait(1);
  EXPECT_FALSE(Work().tool().isActive());
  EXPECT_TRUE(FWindow->calibration().tool().isActive());
  FWindow->calibration().document().setCaption("Other");
  QTest::keyClick(&Widget(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(FWindow->calibration().document().caption(), "Europe");
  EXPECT_EQ(Document().count(), 2);
  FWindow->calibration().document().setCaption("Other");
  Action("Edit Landmarks")->trigger();
  QTest::qWait(1);
  EXPECT_FALSE(FWindow->calibration().tool().isActive());
  QTest::keyClick(&Widget(), Qt::Key_Z, Qt::ControlModifier);
  QTest::keyClick(&Widget(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Document().count(), 1);
  EXPECT_EQ(FWindow->calibration().document().caption(), "Other");
  EXPECT_TRUE(FWindow->isWindowModified());  // the calibration still
  FWindow->calibration().document().undo();
  EXPECT_FALSE(FWindow->isWindowModified());

  // Unsaved landmarks are asked about.
  Add(1000, 650, "C");
  WillPress(QMessageBox::Cancel);
  EXPECT_FALSE(FWindow->close());
  EXPECT_EQ(FAsked, 1);
  WillPress(QMessageBox::Save);
  EXPECT_TRUE(FWindow->close());
  EXPECT_EQ(FAsked, 1);
  LandmarkDocument Read;
  ASSERT_EQ(Read.load(File), "");
  EXPECT_EQ(Read.count(), 2);
  // The file opens with the map, and stays when another map is opened.
  MainWindow Other(nullptr);
  EXPECT_EQ(Other.openAll({Sample("europe_conic.xml"), File}), "");
  EXPECT_EQ(Other.mapWidget().map().NumLandMarks(), 2);
  EXPECT_EQ(Other.openAll({Sample("world_miller.xml")}), "");
  EXPECT_EQ(Other.mapWidget().map().NumLandMarks(), 2);
  EXPECT_NE(Other.openAll({FFolder.write("bad.xml", "<gmlandmarks sig=\"none\">")}), "");
  EXPECT_EQ(Other.mapWidget().map().NumLandMarks(), 2);
}

TEST_F(LandmarkTest, SymbolsOfThePaletteAreKeptOrTakenBack) {
  auto& Palette = Work().dock().palette();
  const int Count = Palette.symbols().NumEntries();
  const auto Edit = [&](LandmarkSymbolsDialog& Dialog) {
    for (QPushButton* Button : Dialog.findChildren<QPushButton*>())
      if (Button->text().remove('&') == "Add") Button->click();
    for (QLineEdit* Name : Dialog.findChildren<QLineEdit*>())
      if (Name->accessibleName() == "Name of the symbol") QTest::keyClicks(Name, "Lighthouse");
  };
  {
    LandmarkSymbolsDialog Dialog(Palette.symbols(), nullptr);
    Edit(Dialog);
    EXPECT_EQ(Palette.symbols().GetValues(Count + 1).Name.Text(), "Lighthouse");
    Dialog.reject();
    EXPECT_EQ(Palette.symbols().NumEntries(), Count);
  }
  QTimer::singleShot(0, FWindow.get(), [&] {
    auto* Dialog = qobject_cast<LandmarkSymbolsDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(Dialog, nullptr);
    Edit(*Dialog);
    Dialog->accept();
  });
  Action("Symbols")->trigger();
  EXPECT_EQ(Palette.count(), Count + 1);
  MainWindow Other(FSettings.get());
  EXPECT_EQ(Other.landmarks().dock().palette().symbols().GetValues(Count + 1).Name.Text(),
            "Lighthouse");
}

TEST_F(LandmarkTest, ColumnsOfATableAreChosen) {
  const QString Table =
      FFolder.write("t.csv", "name,lat,long,rank\nOslo,59.9,10.75,3\nRoma,41.9,12.5,4\n");
  LandmarkImportDialog Dialog(Table, FWindow.get());
  const auto Box = [&](const QString& Name) -> QComboBox& {
    for (QComboBox* Each : Dialog.findChildren<QComboBox*>())
      if (Each->accessibleName() == Name) return *Each;
    qFatal("no field");
  };
  EXPECT_EQ(Box("Caption").currentText(), "name");
  EXPECT_EQ(Box("Class (0 to 255)").currentIndex(), 0);
  Box("Class (0 to 255)").setCurrentText("rank");
  ASSERT_TRUE(Work().importFrom(Table, Dialog.sources()));
  ASSERT_EQ(Document().count(), 2);
  EXPECT_EQ(At(1).ClassFlag, 3);
  EXPECT_EQ(At(2).Caption.Text.Text(), "Roma");
  EXPECT_EQ(Widget().map().NumLandMarks(), 2);
  EXPECT_THROW(LandmarkImportDialog(FFolder.write("e.csv", ""), nullptr), EInOutError);
}

}  // namespace
}  // namespace zav
