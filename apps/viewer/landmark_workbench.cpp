// landmark_workbench.cpp - see landmark_workbench.h.
// SPDX-License-Identifier: MIT
#include "landmark_workbench.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMainWindow>
#include <QMessageBox>

#include <platform/qt/geo_map_widget.h>

#include "landmark_classes.h"
#include "landmark_import_dialog.h"
#include "landmark_palette.h"
#include "landmark_panel.h"
#include "landmark_symbols_dialog.h"
#include "reason_text.h"

namespace zav {

namespace {

// With more landmarks than can be drawn the same ones are left out in every picture: else those
// that stay would flicker while the map is dragged.
constexpr uint64_t ThinningSeed = 1;

QString FileFilter() { return LandmarkWorkbench::tr("Landmarks (*.xml *.XML);;All files (*)"); }

// For as long as it lives.
class WaitCursor {
 public:
  WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  ~WaitCursor() { QApplication::restoreOverrideCursor(); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
};

}  // namespace

LandmarkWorkbench::LandmarkWorkbench(QMainWindow& Window, GeoMapWidget& Widget)
    : QObject(&Window),
      FWindow(Window),
      FWidget(Widget),
      FCaptions(Widget.map()),
      FDock(new LandmarkDock(FDocument, Widget.map(), &Window)),
      FTool(new LandmarkTool(Widget, FDocument, this)) {
  Window.addDockWidget(Qt::RightDockWidgetArea, FDock);
  Window.resizeDocks({FDock}, {360}, Qt::Horizontal);
  FDock->hide();
  Widget.map().AddObserver(this);
  Widget.map().SetThinningSeed(ThinningSeed);
  FCaptions.SetCaptions(TCaptions::Free);
  connect(&FDocument, &LandmarkDocument::changed, this, &LandmarkWorkbench::documentChanged);
  connect(FDock, &LandmarkDock::selected, FTool, &LandmarkTool::goTo);
  connect(FTool, &LandmarkTool::selectionChanged, this, &LandmarkWorkbench::selectionChanged);
  connect(FTool, &LandmarkTool::refused, this, &LandmarkWorkbench::problem);
  connect(FTool, &LandmarkTool::done, this, &LandmarkWorkbench::done);
  connect(FTool, &LandmarkTool::added, &FDock->panel(), &LandmarkPanel::focusCaption);
  connect(&FDock->panel(), &LandmarkPanel::edited, this, &LandmarkWorkbench::panelEdited);
  connect(&FDock->panel(), &LandmarkPanel::finished, &FDocument, &LandmarkDocument::endMerge);
  connect(&FDock->panel(), &LandmarkPanel::refused, FDock, &LandmarkDock::tell);
  connect(&FDock->classes(), &LandmarkClasses::removeRequested, this,
          &LandmarkWorkbench::removeClass);
  connect(&FDock->classes(), &LandmarkClasses::lookRequested, this, &LandmarkWorkbench::giveLook);
  // Back to the map, for the next click, key or Escape.
  connect(FDock, &LandmarkDock::left, this, [this] { FWidget.setFocus(); });
  connect(&FDock->panel(), &LandmarkPanel::captionEntered, this, [this] { FWidget.setFocus(); });
  showInPanel();
}

// They refer to the document.
LandmarkWorkbench::~LandmarkWorkbench() {
  FWidget.map().RemoveObserver(this);
  delete FTool;
  delete FDock;
}

bool LandmarkWorkbench::isLandmarkFile(const QString& FileName) {
  QFile File(FileName);
  constexpr int Beginning = 4096;
  if (!File.open(QIODevice::ReadOnly)) return false;
  const QByteArray Text = File.read(Beginning).toLower();
  return Text.contains("<gmlandmarks") && !Text.contains("<geomap");
}

void LandmarkWorkbench::Painted(TGeoMap& Map) { Map.SetThinningSeed(ThinningSeed); }

bool LandmarkWorkbench::tell(const QString& Reason) {
  emit problem(Reason);
  return Reason.isEmpty();
}

// --- following the document

void LandmarkWorkbench::documentChanged() {
  TGeoMap& Map = FWidget.map();
  FDock->tell({});
  if (!FDocument.has(FTool->selected())) FTool->select(0);
  Map.SetSuppressPaint(true);
  try {
    Map.SetLandMarks(FDocument.list());
    Map.SetHighLM(FTool->selected());
    FCaptions.Update();
  } catch (const std::exception& Error) {
    emit problem(ReasonText(Error.what()));
  }
  Map.SetSuppressPaint(false);
  showInPanel();
  if (FModified == FDocument.isModified()) return;
  FModified = FDocument.isModified();
  emit modifiedChanged();
}

void LandmarkWorkbench::selectionChanged(int Landmark) {
  FDock->tell({});
  FWidget.map().SetHighLM(Landmark);
  FDock->select(Landmark);
  showInPanel();
}

void LandmarkWorkbench::showInPanel() {
  const int Landmark = FTool->selected();
  FDock->panel().show(Landmark == 0 ? FTool->look() : FDocument.list()[Landmark], Landmark == 0);
}

void LandmarkWorkbench::panelEdited(const QString& Field) {
  const TLandMark New = FDock->panel().landmark();
  const int Landmark = FTool->selected();
  if (Landmark == 0) {
    FTool->setLook(New);
    showInPanel();
    return;
  }
  FDocument.replace(Landmark, New, tr("Change \"%1\"").arg(Field), LandmarkMerge::Join);
}

// After undo and redo: to what has changed.
void LandmarkWorkbench::follow() {
  if (FDocument.touched() != 0)
    FTool->goTo(FDocument.touched());
  else
    FTool->select(0);
}

void LandmarkWorkbench::undo() {
  FTool->abort();
  FDocument.undo();
  follow();
}

void LandmarkWorkbench::redo() {
  FTool->abort();
  FDocument.redo();
  follow();
}

// --- unsaved work

bool LandmarkWorkbench::letGo() {
  FTool->abort();
  if (!FDocument.isModified()) return true;
  const QString Name = FDocument.fileName().isEmpty()
                           ? tr("The landmarks have been changed.")
                           : tr("The landmarks of \"%1\" have been changed.")
                                 .arg(QFileInfo(FDocument.fileName()).fileName());
  QMessageBox Question(QMessageBox::Warning, tr("Unsaved Landmarks"), Name,
                       QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &FWindow);
  Question.setInformativeText(tr("Save them? Otherwise the changes are lost."));
  Question.setDefaultButton(QMessageBox::Save);
  switch (Question.exec()) {
    case QMessageBox::Save:
      return save();
    case QMessageBox::Discard:
      return true;
    default:
      return false;
  }
}

// --- files

void LandmarkWorkbench::startNew() {
  if (!letGo()) return;
  FTool->select(0);
  FDocument.clear();
}

void LandmarkWorkbench::open() {
  if (!letGo()) return;
  const QString Folder = QFileInfo(FDocument.fileName()).absolutePath();
  const QString FileName =
      QFileDialog::getOpenFileName(&FWindow, tr("Open Landmarks"), Folder, FileFilter());
  if (FileName.isEmpty()) return;
  openFile(FileName);
}

bool LandmarkWorkbench::openFile(const QString& FileName) {
  FTool->abort();
  const WaitCursor Waiting;
  FTool->select(0);
  if (!tell(FDocument.load(FileName))) return false;
  if (!FDocument.isOwnFile())
    emit problem(tr("The file \"%1\" holds other things besides one set of landmarks. They stay as "
                    "they are: changed landmarks are saved under another name.")
                     .arg(QDir::toNativeSeparators(FileName)));
  emit opened(FDocument.fileName());
  emit done(tr("%n landmark(s)", nullptr, FDocument.count()));
  return true;
}

bool LandmarkWorkbench::save() {
  FTool->abort();
  if (FDocument.fileName().isEmpty() || !FDocument.isOwnFile()) return saveAs();
  return saveTo(FDocument.fileName());
}

bool LandmarkWorkbench::saveAs() {
  FTool->abort();
  const QString Suggested = FDocument.fileName().isEmpty()
                                ? QFileInfo(FWidget.imageFile()).dir().filePath("landmarks.xml")
                                : FDocument.fileName();
  const QString FileName =
      QFileDialog::getSaveFileName(&FWindow, tr("Save the Landmarks"), Suggested, FileFilter());
  return !FileName.isEmpty() && saveTo(FileName);
}

bool LandmarkWorkbench::saveTo(const QString& FileName) {
  QString Path = FileName;
  if (QFileInfo(Path).suffix().isEmpty()) Path += QStringLiteral(".xml");
  const WaitCursor Waiting;
  if (!tell(FDocument.saveAs(Path))) return false;
  const int NotStored = FDocument.shapesNotStored();
  if (NotStored > 0)
    emit problem(
        tr("%n landmark(s) have an upright cross or no shape. The file cannot keep these: "
           "they come back as diagonal crosses.",
           nullptr, NotStored));
  emit opened(FDocument.fileName());
  emit done(tr("Saved %1").arg(QDir::toNativeSeparators(FDocument.fileName())));
  return true;
}

void LandmarkWorkbench::importTable() {
  FTool->abort();
  const QString FileName = QFileDialog::getOpenFileName(
      &FWindow, tr("Import Landmarks"), {}, tr("Tables (*.csv *.CSV *.tsv *.txt);;All files (*)"));
  if (FileName.isEmpty()) return;
  try {
    LandmarkImportDialog Dialog(FileName, &FWindow);
    if (Dialog.exec() == QDialog::Accepted) importFrom(FileName, Dialog.sources());
  } catch (const std::exception& Error) {
    emit problem(ReasonText(Error.what()));
  }
}

bool LandmarkWorkbench::importFrom(const QString& FileName, const TLandMarkSources& Sources) {
  constexpr int MostTold = 3;
  const WaitCursor Waiting;
  LandmarkDocument::Imported Result;
  FTool->select(0);
  if (!tell(FDocument.importTable(FileName, Sources, FTool->look(), Result))) return false;
  emit done(tr("%n landmark(s) imported", nullptr, Result.Count));
  if (Result.ProblemCount == 0) return true;
  QStringList Told = Result.Problems.mid(0, MostTold);
  if (Result.ProblemCount > Told.size())
    Told << tr("and %n more", nullptr, Result.ProblemCount - static_cast<int>(Told.size()));
  emit problem(tr("%n landmark(s) imported. Not as they are:", nullptr, Result.Count) +
               QLatin1Char('\n') + Told.join(QLatin1Char('\n')));
  return true;
}

bool LandmarkWorkbench::recover(const RecoveryText& Work) {
  FTool->abort();
  FTool->select(0);
  if (!tell(FDocument.recover(Work.Head.FileName, Work.Lines))) return false;
  FDock->show();
  emit done(tr("Recovered, not saved yet"));
  return true;
}

// --- symbols and classes

void LandmarkWorkbench::editSymbols() {
  LandmarkPalette& Palette = FDock->palette();
  LandmarkSymbolsDialog Dialog(Palette.symbols(), &FWindow);
  const bool Accepted = Dialog.exec() == QDialog::Accepted;
  Palette.showSymbols();
  if (Accepted) tell(Palette.save());
}

void LandmarkWorkbench::removeClass(int Class) {
  FTool->abort();
  FTool->select(0);
  const int Count =
      FDocument.removeWhere(tr("Delete class %1").arg(Class),
                            [Class](const TLandMark& Each) { return Each.ClassFlag == Class; });
  FDock->classes().refresh();
  emit done(tr("Deleted %n landmark(s)", nullptr, Count));
}

// Symbol and style of the caption, not its text.
void LandmarkWorkbench::giveLook(int Class) {
  FTool->abort();
  const TLandMark Look = FDock->panel().landmark();
  const int Count = FDocument.changeWhere(
      tr("Look of class %1").arg(Class),
      [Class](const TLandMark& Each) { return Each.ClassFlag == Class; },
      [&](TLandMark& Each) {
        const TLMText Text = Each.Caption.Text;
        Each.SymbolProps = Look.SymbolProps;
        Each.Caption = Look.Caption;
        Each.Caption.Text = Text;
      });
  emit done(tr("Changed %n landmark(s)", nullptr, Count));
}

void LandmarkWorkbench::removeAll() {
  FTool->abort();
  FTool->select(0);
  const int Count = FDocument.removeWhere(tr("Delete all"), [](const TLandMark&) { return true; });
  emit done(tr("Deleted %n landmark(s)", nullptr, Count));
}

void LandmarkWorkbench::setCaptions(TCaptions Captions) {
  FCaptions.SetCaptions(Captions);
  FWidget.map().Paint();
}

}  // namespace zav
