// export_menu.cpp - the commands that take a map out of the viewer.
// SPDX-License-Identifier: MIT
#include "export_menu.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeySequence>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>

#include <platform/base/paths.h>
#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_convert.h>
#include <platform/qt/qt_host.h>

#include "common/reduced_copy.h"
#include "export_picture.h"
#include "print_dialog.h"
#include "reason_text.h"

namespace zav {

namespace {
constexpr const char* FolderKey = "export/folder";
}  // namespace

ExportMenu::ExportMenu(GeoMapWidget& Widget, QSettings* Settings, QWidget& Window)
    : QObject(&Window), FWidget(Widget), FSettings(Settings), FWindow(Window) {}

QAction* ExportMenu::add(QMenu& Menu, QAction* Before, const QString& Text,
                         void (ExportMenu::*Command)()) {
  auto* Action = new QAction(Text, &Menu);
  Menu.insertAction(Before, Action);
  connect(Action, &QAction::triggered, this, Command);
  Action->setEnabled(FSource.has_value());
  FActions.append(Action);
  return Action;
}

void ExportMenu::addToFile(QMenu& File, QAction* Before) {
  QMenu* Picture = new QMenu(tr("Save P&icture As"), &File);
  File.insertMenu(Before, Picture);
  add(*Picture, nullptr, tr("What the &Window Shows..."), &ExportMenu::saveView);
  add(*Picture, nullptr, tr("The Whole &Map..."), &ExportMenu::saveWhole);
  QAction* Map = add(File, Before, tr("Save Ma&p..."), &ExportMenu::saveMap);
  Map->setToolTip(tr("Write the image, encoded again, and its calibration as another map"));
  File.insertSeparator(Before);
  add(File, Before, tr("&Export PDF..."), &ExportMenu::exportPdf);
  add(File, Before, tr("Prin&t and Preview..."), &ExportMenu::print)
      ->setShortcut(QKeySequence::Print);
  File.insertSeparator(Before);
}

void ExportMenu::addToEdit(QMenu& Edit) {
  Edit.addSeparator();
  add(Edit, nullptr, tr("Copy Picture of the &Window"), &ExportMenu::copyView)
      ->setShortcut(QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_C));
  add(Edit, nullptr, tr("Copy Picture of the &Map"), &ExportMenu::copyWhole);
}

void ExportMenu::setMap(const std::optional<MapSource>& Source) {
  FSource = Source;
  for (QAction* Each : FActions) Each->setEnabled(FSource.has_value());
}

QStringList ExportMenu::protectedFiles() const {
  return FSource ? QStringList{FSource->Path, FSource->ImagePath} : QStringList();
}

// A name for what is written: that of the map, in the folder that was used last.
QString ExportMenu::proposal() const {
  const QFileInfo Map(FSource ? FSource->Path : QString());
  const QString Used = FSettings != nullptr ? FSettings->value(FolderKey).toString() : QString();
  return QDir(Used.isEmpty() ? Map.absolutePath() : Used).filePath(Map.completeBaseName());
}

// --- pictures

void ExportMenu::savePart(const TMapPart& Part) {
  QString Written;
  const QString Problem = AskAndSavePicture(&FWindow, FWidget.map(), Part,
                                            tr("%1 picture", "name of a file").arg(proposal()),
                                            protectedFiles(), Written);
  if (!Problem.isEmpty()) emit problem(Problem);
  if (Written.isEmpty()) return;
  if (FSettings != nullptr) FSettings->setValue(FolderKey, QFileInfo(Written).absolutePath());
  emit done(tr("Saved: %1").arg(QDir::toNativeSeparators(Written)));
}

void ExportMenu::copyPart(const TMapPart& Part) {
  try {
    const TBitmap Picture = DrawPicture(FWidget.map(), Part);
    if (Picture.Empty()) return;
    FWidget.map().Host().Clipboard().SetBitmap(Picture);
    emit done(tr("Copied: a picture of %1 x %2 pixels").arg(Picture.Width()).arg(Picture.Height()));
  } catch (const std::exception& Error) {
    emit problem(tr("The picture cannot be copied: %1.").arg(ReasonText(Error.what())));
  }
}

void ExportMenu::saveView() { savePart(ViewAsPicture(FWidget)); }
void ExportMenu::saveWhole() { savePart(WholeMapAsPicture(FWidget.map())); }
void ExportMenu::copyView() { copyPart(ViewAsPicture(FWidget)); }
void ExportMenu::copyWhole() { copyPart(WholeMapAsPicture(FWidget.map())); }
void ExportMenu::saveRectangle(const QRect& MapPixels) {
  savePart(RectangleAsPicture(FWidget.map(), MapPixels));
}

// --- paper

void ExportMenu::openPrintDialog(bool Pdf) {
  PrintDialog Dialog(FWidget.map(), FSource->Caption, protectedFiles(), FSettings, &FWindow);
  connect(&Dialog, &PrintDialog::done, this, &ExportMenu::done);
  if (Pdf) Dialog.preferPdf();
  Dialog.exec();
}

void ExportMenu::exportPdf() { openPrintDialog(true); }
void ExportMenu::print() { openPrintDialog(false); }

// --- map

QString ExportMenu::saveMapTo(const QString& Path) {
  const std::string Base = StripExtension(FromQString(Path));
  for (const std::string& Written : {Base + ".jpg", Base + ".xml"})
    for (const QString& Each : protectedFiles())
      if (IsSameFile(Written, FromQString(Each)))
        return tr("\"%1\" belongs to the map that is shown and is not overwritten. Give the copy "
                  "another name.")
            .arg(QDir::toNativeSeparators(ToQString(Written)));
  try {
    // A control of its own, because saving gives the image the new name.
    TQtHost Host;
    TGeoMap Copy(nullptr, Host);
    Copy.SetSuppressPaint(true);
    Copy.Assign(FWidget.map());
    Copy.SaveMap(FromQString(Path), "");
    return {};
  } catch (const EInOutError& Error) {
    return tr("\"%1\" cannot be written: %2. Choose another folder or make room on the disk.")
        .arg(QDir::toNativeSeparators(ToQString(Error.Path())), ReasonText(Error.Reason()));
  } catch (const std::exception& Error) {
    return tr("The map cannot be saved: %1.").arg(ReasonText(Error.what()));
  }
}

void ExportMenu::saveMap() {
  QMessageBox Question(QMessageBox::Question, tr("Save Map"), tr("Write the map as another one?"),
                       QMessageBox::Cancel, &FWindow);
  Question.setObjectName(QStringLiteral("saveMapQuestion"));
  Question.setInformativeText(tr(
      "The image is encoded again as JPEG of quality 95, so it is not quite the same afterwards, "
      "and the calibration is written beside it. The files of the map that is shown stay as "
      "they are. To keep only the calibration you have worked on, save the calibration "
      "instead: that does not touch the image."));
  QPushButton* Save = Question.addButton(tr("Save &Map..."), QMessageBox::AcceptRole);
  Question.setDefaultButton(Save);
  Question.exec();
  if (Question.clickedButton() != Save) return;

  QFileDialog Dialog(&FWindow, tr("Save Map"), QFileInfo(proposal()).path(),
                     tr("Map images (*.jpg)"));
  Dialog.setObjectName(QStringLiteral("saveMap"));
  Dialog.setAcceptMode(QFileDialog::AcceptSave);
  Dialog.setDefaultSuffix(QStringLiteral("jpg"));
  Dialog.selectFile(tr("%1 copy", "name of a file").arg(QFileInfo(proposal()).fileName()) +
                    QStringLiteral(".jpg"));
  if (Dialog.exec() != QDialog::Accepted) return;
  const QString Path = Dialog.selectedFiles().constFirst();
  const QString Problem = saveMapTo(Path);
  if (Problem.isEmpty())
    emit done(tr("Saved: %1").arg(QDir::toNativeSeparators(Path)));
  else
    emit problem(Problem);
}

}  // namespace zav
