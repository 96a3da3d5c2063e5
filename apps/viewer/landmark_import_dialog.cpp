// landmark_import_dialog.cpp - see landmark_import_dialog.h.
// SPDX-License-Identifier: MIT
#include "landmark_import_dialog.h"

#include <array>
#include <fstream>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QTableWidget>
#include <QVBoxLayout>

#include <platform/qt/qt_convert.h>

namespace zav {

namespace {

// The fields as people know them, in the order of TLandMarkField.
constexpr std::array<const char*, NumLandMarkFields> FieldTitles{
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Caption"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Latitude"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Longitude"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Altitude"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Class (0 to 255)"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Tag"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Identifier"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Time"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Symbol"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Symbol size"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Symbol color"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Symbol fill"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Symbol filled"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Symbol direction"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Symbol length"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Caption size"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Caption font"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Caption style"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Caption color"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Caption ground"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Caption filled"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Caption dx"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Caption dy"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Caption direction"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Caption halign"),
    QT_TRANSLATE_NOOP("zav::LandmarkImportDialog", "Caption valign"),
};

QString FieldTitle(TLandMarkField Field) {
  return LandmarkImportDialog::tr(FieldTitles.at(static_cast<size_t>(Field)));
}

bool IsNeeded(size_t Field) { return !LandMarkColumn(static_cast<TLandMarkField>(Field)).Optional; }

}  // namespace

LandmarkImportDialog::LandmarkImportDialog(const QString& FileName, QWidget* Parent)
    : QDialog(Parent),
      FPreview(new QTableWidget(this)),
      FNote(new QLabel(this)),
      FButtons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this)) {
  setWindowTitle(tr("Import Landmarks from \"%1\"").arg(QFileInfo(FileName).fileName()));
  resize(860, 560);
  const TTable Table(FromQString(FileName));
  if (Table.Width() == 0) throw EInOutError(FromQString(FileName), "the table is empty");
  readPreview(FileName, Table.HasHeader());
  FPreview->setAccessibleName(tr("The first lines of the table"));
  FPreview->setEditTriggers(QAbstractItemView::NoEditTriggers);
  FPreview->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);

  auto* Columns = new QHBoxLayout;
  Columns->addWidget(makeFields(Table, static_cast<size_t>(FPreview->columnCount())));
  Columns->addWidget(FPreview, 1);
  FNote->setWordWrap(true);
  FButtons->button(QDialogButtonBox::Ok)->setText(tr("&Import"));
  auto* Layout = new QVBoxLayout(this);
  Layout->addWidget(new QLabel(
      tr("Choose the column for each field. What has none is as for new landmarks."), this));
  Layout->addLayout(Columns, 1);
  Layout->addWidget(FNote);
  Layout->addWidget(FButtons);
  connect(FButtons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(FButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  update();
}

QWidget* LandmarkImportDialog::makeFields(const TTable& Table, size_t Columns) {
  const TLandMarkSources Proposed = ProposeSources(Table);
  auto* Area = new QScrollArea(this);
  auto* Content = new QWidget(Area);
  auto* Layout = new QFormLayout(Content);
  for (size_t i = 0; i < NumLandMarkFields; ++i) {
    auto* Box = new QComboBox(Content);
    const QString Title = FieldTitle(static_cast<TLandMarkField>(i));
    Box->setAccessibleName(Title);
    Box->addItem(IsNeeded(i) ? tr("(choose)") : tr("(none)"));
    for (size_t k = 0; k < Columns; ++k)
      Box->addItem(FPreview->horizontalHeaderItem(static_cast<int>(k))->text());
    Box->setCurrentIndex(Proposed[i] ? static_cast<int>(*Proposed[i]) + 1 : 0);
    connect(Box, &QComboBox::currentIndexChanged, this, &LandmarkImportDialog::update);
    Layout->addRow(IsNeeded(i) ? tr("<b>%1</b>").arg(Title) : Title, Box);
    FFields.at(i) = Box;
  }
  Area->setWidget(Content);
  Area->setWidgetResizable(true);
  Area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  Area->setMinimumWidth(Content->sizeHint().width() + 24);
  return Area;
}

void LandmarkImportDialog::readPreview(const QString& FileName, bool HasHeader) {
  const std::string Name = FromQString(FileName);
  std::ifstream File(Name, std::ios::binary);
  TCsvReader Reader(File, Name);
  TCsvRecord Record;
  QStringList Titles;
  for (int Row = HasHeader ? -1 : 0; Row < PreviewRows && Reader.Next(Record); ++Row) {
    const auto Width = static_cast<int>(Record.Fields.size());
    if (Titles.isEmpty()) {
      for (int k = 0; k < Width; ++k) {
        const QString Title = ToQString(Record.Fields[static_cast<size_t>(k)]);
        Titles << (HasHeader && !Title.isEmpty() ? Title : tr("Column %1").arg(k + 1));
      }
      FPreview->setColumnCount(Width);
      FPreview->setHorizontalHeaderLabels(Titles);
    }
    if (Row < 0) continue;
    FPreview->setRowCount(Row + 1);
    for (int k = 0; k < std::min(Width, FPreview->columnCount()); ++k)
      FPreview->setItem(Row, k,
                        new QTableWidgetItem(ToQString(Record.Fields[static_cast<size_t>(k)])));
  }
}

void LandmarkImportDialog::update() {
  QStringList Missing;
  for (size_t i = 0; i < NumLandMarkFields; ++i)
    if (IsNeeded(i) && FFields.at(i)->currentIndex() == 0)
      Missing << FFields.at(i)->accessibleName();
  FNote->setText(Missing.isEmpty() ? QString() : tr("Missing: %1").arg(Missing.join(", ")));
  FButtons->button(QDialogButtonBox::Ok)->setEnabled(Missing.isEmpty());
}

TLandMarkSources LandmarkImportDialog::sources() const {
  TLandMarkSources Sources;
  for (size_t i = 0; i < NumLandMarkFields; ++i) {
    const int Row = FFields.at(i)->currentIndex();
    if (Row > 0) Sources[i] = static_cast<size_t>(Row - 1);
  }
  return Sources;
}

}  // namespace zav
