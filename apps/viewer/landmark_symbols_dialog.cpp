// landmark_symbols_dialog.cpp - see landmark_symbols_dialog.h.
// SPDX-License-Identifier: MIT
#include "landmark_symbols_dialog.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <geomap/landmarks/xml_records.h>
#include <platform/qt/qt_convert.h>

#include "landmark_symbol_editor.h"
#include "reason_text.h"

namespace zav {

namespace {

bool IsStored(TLandMarkElement Shape) {
  return Shape != TLandMarkElement::lmPlus && Shape != TLandMarkElement::lmUserDef;
}

QString ItemText(const TSymbol& Symbol) {
  const QString Name = ToQString(Symbol.Name.View());
  const QString Text = Name.isEmpty() ? ShapeName(Symbol.Properties.Kind) : Name;
  return Symbol.Category == 0 ? Text : QStringLiteral("%1 (%2)").arg(Text).arg(Symbol.Category);
}

}  // namespace

LandmarkSymbolsDialog::LandmarkSymbolsDialog(TSymbolRepository& Symbols, QWidget* Parent)
    : QDialog(Parent),
      FSymbols(Symbols),
      FList(new QListWidget(this)),
      FName(new QLineEdit(this)),
      FCategory(new QSpinBox(this)),
      FEditor(new SymbolEditor(this)),
      FNote(new QLabel(this)) {
  setWindowTitle(tr("Symbols"));
  resize(560, 420);
  FSymbols.Backup();
  FList->setAccessibleName(tr("Symbols of the palette"));
  FList->setIconSize(QSize(28, 28));
  FName->setAccessibleName(tr("Name of the symbol"));
  FCategory->setAccessibleName(tr("Category"));
  FCategory->setRange(-1000000, 1000000);
  FCategory->setToolTip(tr("A number of your own, to group symbols"));
  FNote->setWordWrap(true);

  auto* Commands = new QHBoxLayout;
  auto* Add = new QPushButton(tr("&Add"), this);
  FRemove = new QPushButton(tr("&Remove"), this);
  auto* Load = new QPushButton(tr("&Load..."), this);
  auto* Save = new QPushButton(tr("&Save As..."), this);
  for (QPushButton* Button : {Add, FRemove, Load, Save}) {
    Button->setAutoDefault(false);
    Commands->addWidget(Button);
  }
  auto* Left = new QVBoxLayout;
  Left->addWidget(FList, 1);
  Left->addLayout(Commands);
  auto* Names = new QFormLayout;
  Names->addRow(tr("&Name:"), FName);
  Names->addRow(tr("Cate&gory:"), FCategory);
  auto* Right = new QVBoxLayout;
  Right->addLayout(Names);
  Right->addWidget(FEditor);
  Right->addWidget(FNote);
  Right->addStretch(1);
  auto* Parts = new QHBoxLayout;
  Parts->addLayout(Left, 1);
  Parts->addLayout(Right);
  auto* Buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  auto* All = new QVBoxLayout(this);
  All->addLayout(Parts, 1);
  All->addWidget(Buttons);

  connect(Buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(Buttons, &QDialogButtonBox::rejected, this, &LandmarkSymbolsDialog::reject);
  connect(FList, &QListWidget::currentRowChanged, this, &LandmarkSymbolsDialog::showCurrent);
  connect(Add, &QPushButton::clicked, this, &LandmarkSymbolsDialog::addSymbol);
  connect(FRemove, &QPushButton::clicked, this, &LandmarkSymbolsDialog::removeSymbol);
  connect(Load, &QPushButton::clicked, this, [this] { ask(false); });
  connect(Save, &QPushButton::clicked, this, [this] { ask(true); });
  connect(FName, &QLineEdit::textEdited, this, [this](const QString& Text) {
    const std::string Name = FromQString(Text);
    const bool Stored = IsRecordText(Name);
    FNote->setText(Stored ? QString() : tr("A name cannot hold a double quote."));
    if (Stored) change([&](TSymbol& Symbol) { Symbol.Name = Name; });
  });
  connect(FCategory, &QSpinBox::valueChanged, this,
          [this](int Value) { change([&](TSymbol& Symbol) { Symbol.Category = Value; }); });
  connect(FEditor, &SymbolEditor::edited, this,
          [this] { change([&](TSymbol& Symbol) { Symbol.Properties = FEditor->symbol(); }); });
  showList(1);
}

void LandmarkSymbolsDialog::reject() {
  FSymbols.Restore();
  QDialog::reject();
}

int LandmarkSymbolsDialog::current() const { return FList->currentRow() + 1; }

void LandmarkSymbolsDialog::showList(int Current) {
  FList->clear();
  for (int Index = 1; Index <= FSymbols.NumEntries(); ++Index) {
    FList->addItem(new QListWidgetItem);
    updateItem(Index);
  }
  FList->setCurrentRow(Current - 1);
  showCurrent();
}

void LandmarkSymbolsDialog::updateItem(int Index) {
  const TSymbol Symbol = FSymbols.GetValues(Index);
  QListWidgetItem* Item = FList->item(Index - 1);
  Item->setIcon(SymbolIcon(Symbol.Properties, 28));
  Item->setText(ItemText(Symbol));
}

void LandmarkSymbolsDialog::showCurrent() {
  const bool Any = current() >= 1;
  for (QWidget* Each : std::initializer_list<QWidget*>{FName, FCategory, FEditor, FRemove})
    Each->setEnabled(Any);
  const TSymbol Symbol = FSymbols.GetValues(current());
  const QSignalBlocker Blocked(FCategory);
  FName->setText(Any ? ToQString(Symbol.Name.View()) : QString());
  FCategory->setValue(Symbol.Category);
  FEditor->setSymbol(Symbol.Properties);
  FNote->setText(IsStored(Symbol.Properties.Kind)
                     ? QString()
                     : tr("The file of the palette cannot keep this shape: it comes back as a "
                          "diagonal cross."));
}

void LandmarkSymbolsDialog::change(const std::function<void(TSymbol&)>& Change) {
  if (current() < 1) return;
  TSymbol Symbol = FSymbols.GetValues(current());
  Change(Symbol);
  FSymbols.SetValues(current(), Symbol);
  updateItem(current());
  if (!FName->hasFocus()) showCurrent();
}

void LandmarkSymbolsDialog::addSymbol() {
  const TSymbol New = FSymbols.GetValues(current());  // the current one, or the default
  FSymbols.SetNEntries(FSymbols.NumEntries() + 1);
  FSymbols.SetValues(FSymbols.NumEntries(), {New.Properties, "", New.Category});
  showList(FSymbols.NumEntries());
  FName->setFocus();
}

void LandmarkSymbolsDialog::removeSymbol() {
  const int Removed = current();
  if (Removed < 1) return;
  for (int Index = Removed; Index < FSymbols.NumEntries(); ++Index)
    FSymbols.SetValues(Index, FSymbols.GetValues(Index + 1));
  FSymbols.SetNEntries(FSymbols.NumEntries() - 1);
  showList(std::min(Removed, FSymbols.NumEntries()));
}

// --- files

void LandmarkSymbolsDialog::ask(bool Saving) {
  const QString Filter = tr("Symbols (*.xml *.XML);;All files (*)");
  const QString FileName =
      Saving ? QFileDialog::getSaveFileName(this, tr("Save the Symbols"), {}, Filter)
             : QFileDialog::getOpenFileName(this, tr("Load Symbols"), {}, Filter);
  if (FileName.isEmpty()) return;
  FNote->setText(Saving ? saveTo(FileName) : loadFrom(FileName));
}

QString LandmarkSymbolsDialog::loadFrom(const QString& FileName) {
  try {
    if (FSymbols.LoadFromFile(FromQString(FileName), "")) {
      showList(1);
      return {};
    }
    return tr("There are no symbols in \"%1\".").arg(QDir::toNativeSeparators(FileName));
  } catch (const std::exception& Error) {
    return ReasonText(Error.what());
  }
}

QString LandmarkSymbolsDialog::saveTo(const QString& FileName) {
  QString Path = FileName;
  if (QFileInfo(Path).suffix().isEmpty()) Path += QStringLiteral(".xml");
  try {
    FSymbols.StoreOnFile(FromQString(Path), "");
    return {};
  } catch (const std::exception& Error) {
    return ReasonText(Error.what());
  }
}

}  // namespace zav
