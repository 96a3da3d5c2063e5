// calibration_support.h - the viewer's window with a bare scan, calibrated as a person does it.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_APPS_VIEWER_CALIBRATION_SUPPORT_H
#define ZAV_TESTS_APPS_VIEWER_CALIBRATION_SUPPORT_H

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QSettings>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include <platform/qt/geo_map_widget.h>

#include "calibration_table.h"
#include "calibration_workbench.h"
#include "main_window.h"
#include "viewer_test_support.h"

namespace zav {

class CalibrationTest : public ::testing::Test {
 protected:
  void SetUp() override {
    FSettings = std::make_unique<QSettings>(FFolder.path("settings.ini"), QSettings::IniFormat);
    FWindow = std::make_unique<MainWindow>(FSettings.get());
    FWindow->resize(1300, 900);
    FWindow->show();
    QTest::qWait(1);
  }
  // A sample's image alone, at its own size, with the panel open.
  void OpenBare(const char* Image) {
    ASSERT_EQ(FWindow->openAll({FFolder.copy(Image, Image)}), "");
    Action("Calibrate")->trigger();
    QTest::qWait(1);
    Widget().setMagnification(1);
  }

  GeoMapWidget& Widget() { return FWindow->mapWidget(); }
  CalibrationWorkbench& Work() { return FWindow->calibration(); }
  CalibDocument& Document() { return Work().document(); }
  CalibrationTool& Tool() { return Work().tool(); }
  QTableView& Table() { return Work().dock().table(); }

  // The action of a menu by the beginning of its text without mnemonics.
  QAction* Action(const QString& Text) {
    for (QAction* Each : FWindow->findChildren<QAction*>())
      if (Each->text().remove('&').startsWith(Text)) return Each;
    qFatal("no action %s", qPrintable(Text));
    return nullptr;
  }
  template <typename T>
  T& Named(const QString& AccessibleName) {
    for (T* Each : FWindow->findChildren<T*>())
      if (Each->accessibleName() == AccessibleName) return *Each;
    qFatal("no widget %s", qPrintable(AccessibleName));
  }

  QPoint ControlAt(int X, int Y) {
    const TPoint At = Widget().map().MapImageToControl({X, Y});
    return {At.X, At.Y};
  }
  void BringIntoView(int X, int Y) { Widget().map().BringMapPixelToCenter({X, Y}); }
  void Click(int X, int Y) {
    BringIntoView(X, Y);
    QTest::mouseMove(&Widget(), ControlAt(X, Y));
    QTest::mouseClick(&Widget(), Qt::LeftButton, {}, ControlAt(X, Y));
  }
  void Drag(QPoint From, QPoint To, Qt::MouseButton Button = Qt::LeftButton) {
    QTest::mousePress(&Widget(), Button, {}, From);
    DragTo((From + To) / 2, Button);
    DragTo(To, Button);
    QTest::mouseRelease(&Widget(), Button, {}, To);
  }
  void DragTo(QPoint To, Qt::MouseButton Button = Qt::LeftButton) {
    QMouseEvent Event(QEvent::MouseMove, To, Widget().mapToGlobal(To), Qt::NoButton, Button, {});
    QApplication::sendEvent(&Widget(), &Event);
  }
  QLineEdit& Field(const QString& Name) {
    for (QLineEdit* Each : Tool().editor().findChildren<QLineEdit*>())
      if (Each->accessibleName() == Name) return *Each;
    qFatal("no field");
  }
  // Answers the question for a position.
  void Answer(const QString& Text, const QString& Name = {}) {
    ASSERT_TRUE(Tool().editor().isAsking());
    QLineEdit& Position = Field("Position");
    Position.selectAll();
    QTest::keyClicks(&Position, Text);
    if (!Name.isEmpty()) QTest::keyClicks(&Field("Name"), Name);
    QTest::keyClick(&Position, Qt::Key_Return);
  }
  void AddPoint(int X, int Y, const QString& Text, const QString& Name = {}) {
    Click(X, Y);
    Answer(Text, Name);
  }
  void ChooseModel(const QString& Name) {
    QComboBox& Models = Named<QComboBox>("Model");
    Models.setCurrentIndex(Models.findText(Name));
    emit Models.activated(Models.currentIndex());
  }
  // Types into a cell of the table through its editor.
  void TypeCell(int Row, int Column, const QString& Text) {
    const QModelIndex Index = Table().model()->index(Row, Column);
    Table().setCurrentIndex(Index);
    Table().edit(Index);
    auto* Editor = Table().viewport()->findChild<QLineEdit*>();
    ASSERT_NE(Editor, nullptr);
    Editor->selectAll();
    QTest::keyClicks(Editor, Text);
    QTest::keyClick(Editor, Qt::Key_Return);
    QTest::qWait(1);
  }
  QString Cell(int Row, int Column) {
    return Table().model()->index(Row, Column).data().toString();
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

}  // namespace zav

#endif
