// calibration_dock.cpp - the panel of the viewer in which a map is calibrated.
// SPDX-License-Identifier: MIT
#include "calibration_dock.h"

#include <algorithm>
#include <array>

#include <QAccessible>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

#include <geobasics/ellipsoids.h>
#include <platform/qt/qt_convert.h>

#include "calibration_table.h"
#include "icons.h"
#include "map_source.h"

namespace zav {

namespace {

using enum TCalibModel;

constexpr std::array Models{cmUndefined,      cmEquiRect,      cmUTM,        cmMillerCylindrical,
                            cmConicConformal, cmBiquadraticPn, cmParabolicIp};

QString Advice(TCalibModel Model) {
  switch (Model) {
    case cmEquiRect:
      return CalibrationDock::tr(
          "For maps whose parallels and meridians are straight, evenly spaced lines. 3 points or "
          "more.");
    case cmUTM:
      return CalibrationDock::tr(
          "For topographic maps with a UTM grid, within one zone. 3 points or more.");
    case cmMillerCylindrical:
      return CalibrationDock::tr(
          "For world maps whose parallels get farther apart towards the poles. 3 points or more.");
    case cmConicConformal:
      return CalibrationDock::tr(
          "For maps whose meridians are straight and meet in a point, parallels are arcs. 3 points "
          "or more.");
    case cmBiquadraticPn:
      return CalibrationDock::tr(
          "For anything that is bent a little, the paper included. 6 points or more, spread over "
          "the map.");
    case cmParabolicIp:
      return CalibrationDock::tr(
          "For any graticule: mark 3 points or more on each of at least 2 parallels and 2 "
          "meridians.");
    case cmUndefined:
      break;
  }
  return CalibrationDock::tr(
      "Choose how the map was drawn. It can be changed at any time: the points stay.");
}

constexpr std::array Figures{
    CalibFigure::Rms,       CalibFigure::RmsX,      CalibFigure::RmsY,
    CalibFigure::QualX,     CalibFigure::QualY,     CalibFigure::Max,
    CalibFigure::RmsMetres, CalibFigure::MaxMetres, CalibFigure::Resolution};
constexpr int FigureRows = 5;

bool IsMetres(CalibFigure Figure) {
  return Figure == CalibFigure::RmsMetres || Figure == CalibFigure::MaxMetres ||
         Figure == CalibFigure::Resolution;
}

QString FigureText(CalibFigure Figure, const CalibQuality& Quality) {
  if (!Quality.Valid) return QStringLiteral("-");
  const double Value = Quality.Value(Figure);
  return IsMetres(Figure)
             ? CalibrationDock::tr("%1 m").arg(QLocale().toString(Value, 'f', Value < 100 ? 2 : 0))
             : CalibrationDock::tr("%1 px").arg(QLocale().toString(Value, 'f', 2));
}

}  // namespace

CalibrationDock::CalibrationDock(CalibDocument& Document, QWidget* Parent)
    : QDockWidget(tr("Calibration"), Parent),
      FDocument(Document),
      FModel(new CalibrationTable(Document, this)),
      FToolBar(new QToolBar(this)) {
  setObjectName(QStringLiteral("calibration"));
  auto* Content = new QWidget(this);
  auto* Layout = new QVBoxLayout(Content);
  Layout->setContentsMargins(6, 4, 6, 6);
  FToolBar->setIconSize(QSize(18, 18));
  Layout->addWidget(FToolBar);
  Layout->addWidget(makeModelPart());
  Layout->addWidget(makeTable(), 1);
  FHint = new QLabel(this);
  FHint->setWordWrap(true);
  FHint->setAccessibleName(tr("Refused"));
  FHint->hide();
  Layout->addWidget(FHint);
  Layout->addWidget(makeFigures());
  FWarnings = new QListWidget(this);
  FWarnings->setAccessibleName(tr("Warnings"));
  FWarnings->setWordWrap(true);
  FWarnings->setTextElideMode(Qt::ElideNone);
  FWarnings->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  FWarnings->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  FWarnings->setMaximumHeight(150);
  Layout->addWidget(FWarnings);
  setWidget(Content);

  const auto GoTo = [this](const QListWidgetItem* Item) {
    if (const int Id = Item->data(Qt::UserRole).toInt(); Id != 0) emit selected(Id);
  };
  connect(FWarnings, &QListWidget::itemClicked, this, GoTo);
  connect(FWarnings, &QListWidget::itemActivated, this, GoTo);
  connect(FModel, &CalibrationTable::refused, this, &CalibrationDock::tell);
  FWarningDelay.setSingleShot(true);
  FWarningDelay.setInterval(250);
  connect(&FWarningDelay, &QTimer::timeout, this, &CalibrationDock::updateWarnings);
  connect(&Document, &CalibDocument::changed, this, &CalibrationDock::documentChanged);
  documentChanged();
}

QWidget* CalibrationDock::makeModelPart() {
  auto* Part = new QWidget(this);
  auto* Layout = new QFormLayout(Part);
  Layout->setContentsMargins(0, 0, 0, 0);
  FModels = new QComboBox(Part);
  FModels->setAccessibleName(tr("Model"));
  for (const TCalibModel Model : Models) {
    FModels->addItem(ModelName(Model), static_cast<int>(Model));
    FModels->setItemData(FModels->count() - 1, Advice(Model), Qt::ToolTipRole);
  }
  Layout->addRow(tr("&Model:"), FModels);
  FAdvice = new QLabel(Part);
  FAdvice->setWordWrap(true);
  Layout->addRow(FAdvice);

  FUtm = new QWidget(Part);
  auto* Utm = new QFormLayout(FUtm);
  Utm->setContentsMargins(0, 0, 0, 0);
  FZone = new QSpinBox(FUtm);
  FZone->setRange(0, 60);
  FZone->setSpecialValueText(tr("not set"));
  FZone->setAccessibleName(tr("UTM zone"));
  FZone->setKeyboardTracking(false);
  FHemisphere = new QComboBox(FUtm);
  FHemisphere->addItems({tr("North"), tr("South")});
  FHemisphere->setAccessibleName(tr("Hemisphere"));
  auto* Zone = new QHBoxLayout;
  Zone->addWidget(FZone);
  Zone->addWidget(FHemisphere, 1);
  auto* ZoneLabel = new QLabel(tr("&Zone:"), FUtm);
  ZoneLabel->setBuddy(FZone);
  Utm->addRow(ZoneLabel, Zone);
  FEllipsoid = new QComboBox(FUtm);
  FEllipsoid->setAccessibleName(tr("Ellipsoid"));
  for (const std::string_view Name : GeoEllipsoidName) FEllipsoid->addItem(ToQString(Name));
  Utm->addRow(tr("&Ellipsoid:"), FEllipsoid);
  Layout->addRow(FUtm);

  connect(FModels, &QComboBox::activated, this, [this](int Row) {
    FDocument.setModel(static_cast<TCalibModel>(FModels->itemData(Row).toInt()));
  });
  connect(FZone, &QSpinBox::valueChanged, this, &CalibrationDock::zoneEdited);
  connect(FHemisphere, &QComboBox::activated, this, &CalibrationDock::zoneEdited);
  connect(FEllipsoid, &QComboBox::activated, this,
          [this](int Row) { FDocument.setEllipsoid(static_cast<TGeoEllipsoid>(Row)); });
  return Part;
}

QWidget* CalibrationDock::makeTable() {
  FTable = new QTableView(this);
  FTable->setAccessibleName(tr("Calibration points"));
  FTable->setModel(FModel);
  FTable->setSelectionBehavior(QAbstractItemView::SelectRows);
  FTable->setSelectionMode(QAbstractItemView::ExtendedSelection);
  FTable->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
  FTable->setTabKeyNavigation(false);
  FTable->setAlternatingRowColors(true);
  FTable->setShowGrid(false);
  FTable->setWordWrap(false);
  FTable->verticalHeader()->hide();
  FTable->verticalHeader()->setDefaultSectionSize(FTable->fontMetrics().height() + 6);
  FTable->horizontalHeader()->setHighlightSections(false);
  FTable->horizontalHeader()->setMinimumSectionSize(30);
  // As wide as an example and the header, whatever its language.
  const auto SetWidth = [this](int Column, const char* Example, int More) {
    const QFontMetrics Metrics = FTable->fontMetrics();
    const QString Header = FModel->headerData(Column, Qt::Horizontal, Qt::DisplayRole).toString();
    const int Widest = std::max(Metrics.horizontalAdvance(QLatin1String(Example)),
                                Metrics.horizontalAdvance(Header));
    FTable->setColumnWidth(Column, Widest + 12 + More);
  };
  SetWidth(CalibrationTable::Number, "888", 22);
  SetWidth(CalibrationTable::Name, "Church 88", 0);
  SetWidth(CalibrationTable::Pixels, "888.88", 18);
  SetWidth(CalibrationTable::Metres, "88888 m", 0);
  FTable->horizontalHeader()->setSectionResizeMode(CalibrationTable::Position,
                                                   QHeaderView::ResizeToContents);
  // How good a point is must be seen without scrolling; its pixel is on the map.
  FTable->horizontalHeader()->moveSection(CalibrationTable::Pixel, CalibrationTable::Metres);
  FTable->horizontalHeader()->setStretchLastSection(true);
  FTable->installEventFilter(this);
  connect(FTable->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& Current) {
            if (FUpdating || !Current.isValid()) return;
            FSelected = FDocument.item(Current.row()).Id;
            emit selected(FSelected);
          });
  return FTable;
}

QWidget* CalibrationDock::makeFigures() {
  auto* Part = new QWidget(this);
  auto* Layout = new QGridLayout(Part);
  Layout->setContentsMargins(0, 0, 0, 0);
  Layout->setHorizontalSpacing(10);
  Layout->setVerticalSpacing(2);
  for (int i = 0; i < FigureCount; ++i) {
    const CalibFigure Figure = Figures.at(static_cast<size_t>(i));
    FNames[i] = new QLabel(CalibFigureName(Figure), Part);
    FValues[i] = new QLabel(Part);
    for (QLabel* Label : {FNames[i], FValues[i]}) {
      Label->setToolTip(CalibFigureFormula(Figure));
      Label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    FValues[i]->setAccessibleName(CalibFigureName(Figure));
    FValues[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const int Row = i % FigureRows;
    const int Column = i / FigureRows * 2;
    Layout->addWidget(FNames[i], Row, Column);
    Layout->addWidget(FValues[i], Row, Column + 1);
  }
  Layout->setColumnStretch(1, 1);
  Layout->setColumnStretch(3, 1);
  return Part;
}

// --- following the document

void CalibrationDock::documentChanged() {
  FHint->hide();
  updateModelPart();
  updateFigures();
  select(FSelected);
  FWarningDelay.start();
}

void CalibrationDock::updateModelPart() {
  const TCalibModel Model = FDocument.model();
  const UtmGrid Grid = FDocument.utmGrid();
  const QSignalBlocker Blocked(FZone);
  FModels->setCurrentIndex(FModels->findData(static_cast<int>(Model)));
  FAdvice->setText(Advice(Model));
  FUtm->setVisible(Model == cmUTM);
  FZone->setValue(Grid.Zone);
  FHemisphere->setCurrentIndex(Grid.South ? 1 : 0);
  FEllipsoid->setCurrentIndex(static_cast<int>(FDocument.ellipsoid()));
  widget()->setEnabled(!FDocument.isEmpty());
}

void CalibrationDock::updateFigures() {
  const CalibQuality Quality = FDocument.quality();
  for (int i = 0; i < FigureCount; ++i)
    FValues[i]->setText(FigureText(Figures.at(static_cast<size_t>(i)), Quality));
}

void CalibrationDock::updateWarnings() {
  FWarningDelay.stop();
  FWarnings->clear();
  for (const CalibWarning& Warning : FDocument.warnings()) {
    auto* Item = new QListWidgetItem(MakeIcon(ViewerIcon::Warning), Warning.Text, FWarnings);
    Item->setData(Qt::UserRole, Warning.ItemId);
    if (Warning.ItemId != 0) Item->setToolTip(tr("A click goes to the point"));
  }
  FWarnings->setVisible(FWarnings->count() > 0);
}

void CalibrationDock::zoneEdited() {
  if (FZone->value() == 0) return updateModelPart();
  const QString Reason = FDocument.setZone(FZone->value(), FHemisphere->currentIndex() == 1);
  if (Reason.isEmpty()) return;
  updateModelPart();
  tell(Reason);
}

void CalibrationDock::tell(const QString& Reason) {
  FHint->setText(Reason);
  FHint->show();
  QAccessibleEvent Alert(FHint, QAccessible::Alert);
  QAccessible::updateAccessibility(&Alert);
}

void CalibrationDock::setFormat(ReadoutFormat Format) { FModel->setFormat(Format); }

// --- selection

void CalibrationDock::select(int Id) {
  FSelected = Id;
  const int Row = FDocument.indexOf(Id);
  FUpdating = true;
  if (Row < 0) {
    FTable->clearSelection();
    FTable->setCurrentIndex({});
  } else if (FTable->currentIndex().row() != Row) {
    const int Column = std::max(FTable->currentIndex().column(), int{CalibrationTable::Position});
    FTable->setCurrentIndex(FModel->index(Row, Column));
  }
  FUpdating = false;
}

std::vector<int> CalibrationDock::selectedItems() const {
  std::vector<int> Ids;
  for (const QModelIndex& Index : FTable->selectionModel()->selectedRows())
    Ids.push_back(FDocument.item(Index.row()).Id);
  return Ids;
}

bool CalibrationDock::eventFilter(QObject* Watched, QEvent* Event) {
  if (Watched == FTable && Event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(Event)->key() == Qt::Key_Space && FTable->currentIndex().isValid()) {
    const CalibItem& Item = FDocument.item(FTable->currentIndex().row());
    FDocument.setEnabled(Item.Id, !Item.Enabled);
    return true;
  }
  return QDockWidget::eventFilter(Watched, Event);
}

}  // namespace zav
