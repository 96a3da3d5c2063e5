// main_window_landmarks.cpp - the viewer's window: landmarks.
// SPDX-License-Identifier: MIT
#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QStatusBar>

#include <platform/qt/geo_map_widget.h>

#include "calibration_menu.h"
#include "calibration_workbench.h"
#include "landmark_menu.h"
#include "landmark_palette.h"
#include "landmark_workbench.h"
#include "main_window.h"
#include "message_bar.h"
#include "recent_files.h"
#include "tool_menu.h"

namespace zav {

namespace {

// The commands of a menu that have one of these keys: saving, undoing.
QList<QAction*> WithKeys(const QMenu& Menu, const QList<QKeySequence>& Keys) {
  QList<QAction*> Found;
  for (QAction* Action : Menu.actions())
    for (const QKeySequence& Key : Keys)
      if (Action->shortcuts().contains(Key)) {
        Found << Action;
        break;
      }
  return Found;
}

}  // namespace

// After the calibration's and the tools' part: all take turns.
void MainWindow::makeLandmarks(QMenu& File, QMenu& Edit) {
  FLandmarks = new LandmarkWorkbench(*this, *FWidget);
  FLandmarkMenu = new LandmarkMenu(*FLandmarks, *FWidget, this);
  menuBar()->insertMenu(FTools->menuAction(), FLandmarkMenu);
  const QList<QAction*> Save =
      WithKeys(File, {QKeySequence::Save, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)});
  const QList<QAction*> Undo =
      WithKeys(Edit, {QKeySequence::Undo, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)});
  FLandmarkMenu->addToFile(File, Save.isEmpty() ? nullptr : Save.constFirst(), Save);
  FLandmarkMenu->addToEdit(Edit, Undo.isEmpty() ? nullptr : Undo.constFirst(), Undo);
  FLandmarkMenu->addHintTo(*statusBar());
  connect(FLandmarks, &LandmarkWorkbench::problem, this, [this](const QString& Text) {
    Text.isEmpty() ? FMessage->hide() : FMessage->showMessage(Text);
  });
  connect(FLandmarks, &LandmarkWorkbench::done, this,
          [this](const QString& Text) { statusBar()->showMessage(Text, 5000); });
  const auto Modified = [this] {
    setWindowModified(FCalibration->document().isModified() || FLandmarks->document().isModified());
  };
  connect(FLandmarks, &LandmarkWorkbench::modifiedChanged, this, Modified);
  connect(FCalibration, &CalibrationWorkbench::modifiedChanged, this, Modified);
  connect(FLandmarks, &LandmarkWorkbench::opened, this, [this](const QString& Path) {
    if (FSettings != nullptr) RecentFiles(*FSettings).add(Path);
  });
  // One panel at a time has the mouse.
  const auto Taken = [this] {
    FTools->setMouseTaken(FCalibration->tool().isActive() || FLandmarks->tool().isActive());
  };
  connect(&FLandmarks->tool(), &LandmarkTool::activeChanged, this, [this, Taken](bool Active) {
    if (Active) FCalibration->dock().hide();
    Taken();
  });
  connect(&FCalibration->tool(), &CalibrationTool::activeChanged, this, [this, Taken](bool Active) {
    if (Active) FLandmarks->dock().hide();
    Taken();
  });
}

void MainWindow::restoreLandmarks() {
  FLandmarks->dock().hide();
  FLandmarkMenu->load(*FSettings);
  FLandmarks->dock().palette().setFile(
      QFileInfo(FSettings->fileName()).absoluteDir().filePath(QStringLiteral("symbols.xml")));
}

// Opens those of the files that hold landmarks; returns the others.
QStringList MainWindow::openLandmarks(const QStringList& Paths, QString& Problem) {
  QStringList Others;
  for (const QString& Path : Paths) {
    if (QFileInfo(Path).isDir() || !LandmarkWorkbench::isLandmarkFile(Path)) {
      Others << Path;
    } else if (FLandmarks->letGo() && !FLandmarks->openFile(Path)) {
      Problem = FMessage->text();
    }
  }
  return Others;
}

}  // namespace zav
