// landmark_symbols_dialog.h - the palette's symbols added, changed and removed. Cancel takes all
// back.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LANDMARK_SYMBOLS_DIALOG_H
#define ZAV_APPS_VIEWER_LANDMARK_SYMBOLS_DIALOG_H

#include <QDialog>

#include <geomap/landmarks/symbol_repository.h>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QSpinBox;

namespace zav {

class SymbolEditor;

class LandmarkSymbolsDialog final : public QDialog {
  Q_OBJECT

 public:
  // Works on the repository itself, which must outlive the dialog.
  LandmarkSymbolsDialog(TSymbolRepository& Symbols, QWidget* Parent);

  void reject() override;

  // These return the reason when a file cannot be read or written.
  QString loadFrom(const QString& FileName);
  QString saveTo(const QString& FileName);

 private:
  int current() const;
  void showList(int Current);
  void showCurrent();
  void addSymbol();
  void removeSymbol();
  void change(const std::function<void(TSymbol&)>& Change);
  void updateItem(int Index);
  void ask(bool Saving);

  TSymbolRepository& FSymbols;
  QListWidget* FList;
  QLineEdit* FName;
  QSpinBox* FCategory;
  SymbolEditor* FEditor;
  QLabel* FNote;
  QPushButton* FRemove;
};

}  // namespace zav

#endif
