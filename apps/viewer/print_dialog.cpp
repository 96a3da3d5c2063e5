// print_dialog.cpp - printing a map and writing it as PDF.
// SPDX-License-Identifier: MIT
#include "print_dialog.h"

#include <exception>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

#include <geomap/geo_map.h>
#include <platform/qt/qt_convert.h>
#include <platform/qt/qt_printer.h>

#include "common/reduced_copy.h"
#include "reason_text.h"

namespace zav {

namespace {

constexpr double MarginMillimetres = 12;
constexpr int OptionsWidth = 240;  // fixed, so that the preview does not move with each choice
constexpr int Scales[] = {5000,   10000,  25000,   50000,   100000,  200000,
                          250000, 500000, 1000000, 2000000, 5000000, 10000000};
constexpr QPageSize::PageSizeId Papers[] = {
    QPageSize::A5, QPageSize::A4,     QPageSize::A3,    QPageSize::A2,     QPageSize::A1,
    QPageSize::A0, QPageSize::Letter, QPageSize::Legal, QPageSize::Tabloid};

QString SettingsKey(const char* Name) { return QStringLiteral("print/") + QLatin1String(Name); }

// The number after "1:", with or without separators; 0 when there is none.
int ParseScale(const QString& Text) {
  QString Digits;
  for (const QChar Each : Text.mid(Text.indexOf(QLatin1Char(':')) + 1))
    if (Each.isDigit()) Digits += Each;
  bool Known = false;
  const int Value = Digits.toInt(&Known);
  return Known ? Value : 0;
}

}  // namespace

PrintDialog::PrintDialog(TGeoMap& Map, const QString& Caption, const QStringList& Protected,
                         QSettings* Settings, QWidget* Parent)
    : QDialog(Parent),
      FMap(Map),
      FCaption(Caption),
      FProtected(Protected),
      FSettings(Settings),
      FPrinter(std::make_unique<QPrinter>(QPrinter::HighResolution)) {
  setObjectName(QStringLiteral("printMap"));
  setWindowTitle(tr("Print Map"));
  resize(900, 680);
  FPreview = new QPrintPreviewWidget(FPrinter.get());
  connect(FPreview, &QPrintPreviewWidget::paintRequested, this,
          [this](QPrinter* Printer) { FPreviewProblem = printOn(*Printer); });
  makeOptions();
  load();
  for (QComboBox* Each : {FArea, FScale, FPaper, FOrientation})
    connect(Each, &QComboBox::currentTextChanged, this, &PrintDialog::refresh);
  connect(FLegend, &QCheckBox::toggled, this, &PrintDialog::refresh);
  refresh();
}

PrintDialog::~PrintDialog() { save(); }

void PrintDialog::makeOptions() {
  FArea = new QComboBox;
  FArea->addItems({tr("The whole map"), tr("What the window shows")});
  FScale = new QComboBox;
  FScale->setEditable(true);
  FScale->setInsertPolicy(QComboBox::NoInsert);
  FScale->addItem(tr("As large as the page holds"));
  const bool Known = FMap.CalibData().Resolution > 0;
  FScale->setEnabled(Known);
  FScale->setToolTip(Known ? tr("Choose a scale or type one, such as 1:30,000")
                           : tr("The scale of this map is not known: it is not calibrated"));
  for (const int Each : Scales) FScale->addItem(PaperScaleText(Each));
  FPaper = new QComboBox;
  for (const QPageSize::PageSizeId Each : Papers) FPaper->addItem(QPageSize::name(Each), Each);
  FOrientation = new QComboBox;
  FOrientation->addItems({tr("Upright"), tr("Across")});
  FLegend = new QCheckBox(tr("Caption, scale and scale bar"));
  FLegend->setChecked(true);
  FNote = new QLabel;
  FNote->setWordWrap(true);
  FNote->setTextFormat(Qt::PlainText);

  FPrintButton = new QPushButton(tr("&Print..."));
  FPdfButton = new QPushButton(tr("Save P&DF..."));
  auto* Close = new QPushButton(tr("Close"));
  FPrintButton->setDefault(true);
  connect(FPrintButton, &QPushButton::clicked, this, &PrintDialog::askAndPrint);
  connect(FPdfButton, &QPushButton::clicked, this, &PrintDialog::askAndSavePdf);
  connect(Close, &QPushButton::clicked, this, &QDialog::reject);

  auto* Form = new QFormLayout;
  Form->setRowWrapPolicy(QFormLayout::WrapAllRows);
  Form->addRow(tr("Print"), FArea);
  Form->addRow(tr("Scale"), FScale);
  Form->addRow(tr("Paper"), FPaper);
  Form->addRow(tr("Page"), FOrientation);
  Form->addRow(FLegend);
  Form->addRow(FNote);
  auto* Options = new QWidget;
  Options->setFixedWidth(OptionsWidth);
  auto* Left = new QVBoxLayout(Options);
  Left->setContentsMargins(0, 0, 0, 0);
  Left->addLayout(Form);
  Left->addStretch(1);
  for (QPushButton* Each : {FPrintButton, FPdfButton, Close}) Left->addWidget(Each);
  auto* Layout = new QHBoxLayout(this);
  Layout->addWidget(Options);
  Layout->addWidget(FPreview, 1);
}

void PrintDialog::load() {
  const auto Value = [this](const char* Name, const QVariant& Default) {
    return FSettings != nullptr ? FSettings->value(SettingsKey(Name), Default) : Default;
  };
  const int Usual = QLocale().measurementSystem() == QLocale::ImperialUSSystem ? QPageSize::Letter
                                                                               : QPageSize::A4;
  const int Paper = FPaper->findData(Value("paper", Usual).toInt());
  FPaper->setCurrentIndex(Paper >= 0 ? Paper : FPaper->findData(QPageSize::A4));
  FLegend->setChecked(Value("legend", true).toBool());
  // The page lies as the map does: so that the map becomes larger.
  double Factors[2] = {};
  for (const int Index : {0, 1}) {
    FOrientation->setCurrentIndex(Index);
    applyLayout();
    Factors[Index] = PlanPage(FMap, TQtPrinter(*FPrinter), setup()).Factor;
  }
  FOrientation->setCurrentIndex(Factors[1] > Factors[0] ? 1 : 0);
}

void PrintDialog::save() {
  if (FSettings == nullptr) return;
  FSettings->setValue(SettingsKey("paper"), FPaper->currentData());
  FSettings->setValue(SettingsKey("legend"), FLegend->isChecked());
}

void PrintDialog::preferPdf() {
  FPdfButton->setDefault(true);
  FPdfButton->setFocus();
}

PageSetup PrintDialog::setup() const {
  PageSetup Setup;
  Setup.WholeMap = FArea->currentIndex() == 0;
  Setup.Denominator = FScale->currentText() == FScale->itemText(0) || !FScale->isEnabled()
                          ? 0
                          : ParseScale(FScale->currentText());
  Setup.Legend = FLegend->isChecked();
  return Setup;
}

QString PrintDialog::note() const { return FNote->text(); }

void PrintDialog::applyLayout() {
  const auto Paper = static_cast<QPageSize::PageSizeId>(FPaper->currentData().toInt());
  const auto Orientation =
      FOrientation->currentIndex() == 1 ? QPageLayout::Landscape : QPageLayout::Portrait;
  const QMarginsF Margins(MarginMillimetres, MarginMillimetres, MarginMillimetres,
                          MarginMillimetres);
  FPrinter->setPageLayout(
      QPageLayout(QPageSize(Paper), Orientation, Margins, QPageLayout::Millimeter));
}

void PrintDialog::refresh() {
  applyLayout();
  const PageSetup Setup = setup();
  const PagePlan Plan = PlanPage(FMap, TQtPrinter(*FPrinter), Setup);
  FPrintButton->setEnabled(!Plan.Part.isEmpty());
  FPdfButton->setEnabled(!Plan.Part.isEmpty());
  FPreview->updatePreview();
  if (!FPreviewProblem.isEmpty()) return tell(FPreviewProblem);
  if (Plan.Part.isEmpty()) return tell(tr("There is nothing to print: no part of a map is shown."));
  const bool Read = Setup.Denominator > 0 || FScale->currentText() == FScale->itemText(0);
  const QString Scale = PaperScaleText(Plan.Denominator);
  if (!Read && FScale->isEnabled())
    tell(tr("This is no scale. Write it as 1:25,000. The map is now as large as the page holds."));
  else if (Plan.Cut)
    tell(tr("At %1 the page holds only the middle of it. Choose larger paper or a smaller scale, "
            "or show in the window what is to be printed.")
             .arg(Scale));
  else if (Setup.Denominator > 0)
    tell(tr("The map has the scale %1, measured along its middle row.").arg(Scale));
  else if (!Scale.isEmpty())
    tell(tr("The map will have a scale of about %1.").arg(Scale));
  else
    tell(tr("The scale is not known: the map is not calibrated."));
}

void PrintDialog::tell(const QString& Problem) { FNote->setText(Problem); }

// Runs Print, with what it throws as a text.
QString PrintDialog::run(const QString& Target, const std::function<void()>& Print) {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  QString Problem;
  try {
    Print();
  } catch (const EInOutError& Error) {
    Problem = tr("\"%1\" cannot be written: %2. Choose another folder or make room on the disk.")
                  .arg(Target, ReasonText(Error.Reason()));
  } catch (const std::exception& Error) {
    Problem = tr("The map cannot be printed: %1.").arg(ReasonText(Error.what()));
  }
  QApplication::restoreOverrideCursor();
  return Problem;
}

QString PrintDialog::savePdf(const QString& Path) {
  const QString Native = QDir::toNativeSeparators(Path);
  for (const QString& Each : FProtected)
    if (IsSameFile(FromQString(Path), FromQString(Each)))
      return tr("\"%1\" belongs to the map that is shown. Give the PDF another name.").arg(Native);
  return run(Native, [&] {
    TPdfPrinter Pdf(FromQString(Path), FPrinter->pageLayout());
    Pdf.BeginDoc(FromQString(FCaption));
    DrawPage(FMap, Pdf, setup(), FCaption);
    Pdf.EndDoc();
  });
}

QString PrintDialog::printOn(QPrinter& Printer) {
  return run(Printer.printerName(), [&] {
    TQtPrinter Target(Printer);
    Target.BeginDoc(FromQString(FCaption));
    DrawPage(FMap, Target, setup(), FCaption);
    Target.EndDoc();
  });
}

void PrintDialog::askAndPrint() {
  QPrinter Printer(QPrinter::HighResolution);
  Printer.setPageLayout(FPrinter->pageLayout());
  QPrintDialog Dialog(&Printer, this);
  Dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
  if (Dialog.exec() != QDialog::Accepted) return;
  FPrinter->setPageLayout(Printer.pageLayout());
  // A file is written whole or not at all; the printer's own way does not see a full disk.
  const bool ToFile = Printer.outputFormat() == QPrinter::PdfFormat;
  const QString File = Printer.outputFileName();
  const QString Problem = ToFile && !File.isEmpty() ? savePdf(File) : printOn(Printer);
  if (!Problem.isEmpty()) return tell(Problem);
  emit done(ToFile ? tr("Saved: %1").arg(QDir::toNativeSeparators(File)) : tr("Printed."));
  accept();
}

void PrintDialog::askAndSavePdf() {
  const QString Key = SettingsKey("folder");
  const QString Folder = FSettings != nullptr ? FSettings->value(Key).toString() : QString();
  QFileDialog Dialog(this, tr("Save PDF"), Folder, tr("PDF (*.pdf)"));
  Dialog.setObjectName(QStringLiteral("savePdf"));
  Dialog.setAcceptMode(QFileDialog::AcceptSave);
  Dialog.setDefaultSuffix(QStringLiteral("pdf"));
  QString Name = FCaption;
  Name.replace(QLatin1Char('/'), QLatin1Char('-'));
  Dialog.selectFile(Name + QStringLiteral(".pdf"));
  if (Dialog.exec() != QDialog::Accepted) return;
  const QString Path = Dialog.selectedFiles().constFirst();
  const QString Problem = savePdf(Path);
  if (!Problem.isEmpty()) return tell(Problem);
  if (FSettings != nullptr) FSettings->setValue(Key, QFileInfo(Path).absolutePath());
  emit done(tr("Saved: %1").arg(QDir::toNativeSeparators(Path)));
  accept();
}

}  // namespace zav
