// main_window_export.cpp - the viewer's window: pictures, printing, and scans that need a copy.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QMenu>
#include <QStatusBar>

#include <platform/qt/geo_map_widget.h>

#include "export_menu.h"
#include "import_copy.h"
#include "main_window.h"
#include "message_bar.h"

namespace zav {

void MainWindow::makeExport(QMenu& File, QMenu& Edit) {
  FExport = new ExportMenu(*FWidget, FSettings, *this);
  FExport->addToFile(File, File.actions().constLast());
  FExport->addToEdit(Edit);
  connect(FExport, &ExportMenu::problem, this, &MainWindow::report);
  connect(FExport, &ExportMenu::done, this,
          [this](const QString& Text) { statusBar()->showMessage(Text, 5000); });
}

// Tells why a map cannot be shown, and offers a copy that can.
QString MainWindow::reportSource(const MapSource& Source) {
  const std::optional<ImportOffer> Offer = OfferImport(Source);
  if (!Offer) return report(Source.Problem);
  FMessage->showQuestion(Offer->Text, Offer->Answer, [this, Offer] {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const ImportResult Result = WriteImport(*Offer);
    QApplication::restoreOverrideCursor();
    if (Result.Problem.isEmpty())
      openAll({Result.Path});
    else
      report(Result.Problem);
  });
  return Source.Problem;
}

}  // namespace zav
