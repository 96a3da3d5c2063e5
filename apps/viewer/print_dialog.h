// print_dialog.h - printing a map and writing it as PDF: what, at which scale, and how it will
// look.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_PRINT_DIALOG_H
#define ZAV_APPS_VIEWER_PRINT_DIALOG_H

#include <memory>

#include <QDialog>
#include <QString>
#include <QStringList>

#include "print_page.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QPrinter;
class QPrintPreviewWidget;
class QPushButton;
class QSettings;

namespace zav {

class TGeoMap;

class PrintDialog final : public QDialog {
  Q_OBJECT

 public:
  // Map and settings must outlive the dialog; without settings nothing is remembered. Protected are
  // files that a PDF must not replace.
  PrintDialog(TGeoMap& Map, const QString& Caption, const QStringList& Protected,
              QSettings* Settings, QWidget* Parent = nullptr);
  ~PrintDialog() override;

  // The button that Enter presses.
  void preferPdf();

  // What is chosen. A scale that cannot be read counts as 0.
  PageSetup setup() const;
  // What the dialog says about the page.
  QString note() const;

  // Writes the page as a PDF file, whole or not at all. These return what went wrong, empty =
  // nothing.
  QString savePdf(const QString& Path);
  QString printOn(QPrinter& Printer);

 signals:
  // The map was printed, or written to a file; for people.
  void done(const QString& Text);

 private:
  void makeOptions();
  void load();
  void save();
  void applyLayout();
  void refresh();
  void askAndPrint();
  void askAndSavePdf();
  void tell(const QString& Problem);
  QString run(const QString& Target, const std::function<void()>& Print);

  TGeoMap& FMap;
  QString FCaption;
  QStringList FProtected;
  QSettings* FSettings;
  std::unique_ptr<QPrinter> FPrinter;  // holds paper and margins, and makes the preview

  QComboBox* FArea = nullptr;
  QComboBox* FScale = nullptr;
  QComboBox* FPaper = nullptr;
  QComboBox* FOrientation = nullptr;
  QCheckBox* FLegend = nullptr;
  QLabel* FNote = nullptr;
  QPrintPreviewWidget* FPreview = nullptr;
  QPushButton* FPrintButton = nullptr;
  QPushButton* FPdfButton = nullptr;
  QString FPreviewProblem;
};

}  // namespace zav

#endif
