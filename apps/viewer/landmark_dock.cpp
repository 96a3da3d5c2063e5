// landmark_dock.cpp - see landmark_dock.h.
// SPDX-License-Identifier: MIT
#include "landmark_dock.h"

#include <QAccessible>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSplitter>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

#include <geomap/geo_map.h>

#include "landmark_classes.h"
#include "landmark_document.h"
#include "landmark_palette.h"
#include "landmark_panel.h"
#include "landmark_table_model.h"

namespace zav {

LandmarkDock::LandmarkDock(LandmarkDocument& Document, TGeoMap& Map, QWidget* Parent)
    : QDockWidget(tr("Landmarks"), Parent),
      FModel(new LandmarkTableModel(Document, this)),
      FToolBar(new QToolBar(this)),
      FPalette(new LandmarkPalette(this)),
      FPanel(new LandmarkPanel(*FPalette, this)),
      FClasses(new LandmarkClasses(Document, Map, this)),
      FHint(new QLabel(this)) {
  setObjectName(QStringLiteral("landmarks"));
  FPanel->addTab(FClasses, tr("Classes"));
  auto* Content = new QWidget(this);
  auto* Layout = new QVBoxLayout(Content);
  Layout->setContentsMargins(6, 4, 6, 6);
  FToolBar->setIconSize(QSize(18, 18));
  Layout->addWidget(FToolBar);
  auto* Parts = new QSplitter(Qt::Vertical, this);
  Parts->setChildrenCollapsible(false);
  Parts->addWidget(makeSearch());
  Parts->addWidget(FPanel);
  Parts->setStretchFactor(0, 1);
  Layout->addWidget(Parts, 1);
  FHint->setWordWrap(true);
  FHint->setAccessibleName(tr("Refused"));
  FHint->hide();
  Layout->addWidget(FHint);
  setWidget(Content);
  connect(FModel, &LandmarkTableModel::searched, this, &LandmarkDock::updateSummary);
  connect(FModel, &QAbstractItemModel::modelReset, this, [this] { select(FSelected); });
  updateSummary();
}

QWidget* LandmarkDock::makeSearch() {
  auto* Part = new QWidget(this);
  auto* Layout = new QVBoxLayout(Part);
  Layout->setContentsMargins(0, 0, 0, 0);
  FSearch = new QLineEdit(Part);
  FSearch->setPlaceholderText(tr("Find a caption or identifier"));
  FSearch->setAccessibleName(tr("Find"));
  FSearch->setClearButtonEnabled(true);
  FSummary = new QLabel(Part);
  FTable = new QTableView(Part);
  FTable->setAccessibleName(tr("Landmarks"));
  FTable->setModel(FModel);
  FTable->setSelectionBehavior(QAbstractItemView::SelectRows);
  FTable->setSelectionMode(QAbstractItemView::SingleSelection);
  FTable->setTabKeyNavigation(false);
  FTable->setAlternatingRowColors(true);
  FTable->setShowGrid(false);
  FTable->setWordWrap(false);
  FTable->verticalHeader()->hide();
  FTable->verticalHeader()->setDefaultSectionSize(FTable->fontMetrics().height() + 6);
  FTable->horizontalHeader()->setHighlightSections(false);
  FTable->setColumnWidth(LandmarkTableModel::Name, 140);
  FTable->setColumnWidth(LandmarkTableModel::Class, 46);
  FTable->horizontalHeader()->setStretchLastSection(true);
  FTable->setMinimumHeight(90);
  Layout->addWidget(FSearch);
  Layout->addWidget(FTable, 1);
  Layout->addWidget(FSummary);
  connect(FSearch, &QLineEdit::textChanged, FModel, &LandmarkTableModel::setFilter);
  // Enter goes to the first one found.
  connect(FSearch, &QLineEdit::returnPressed, this, [this] {
    if (const int Landmark = FModel->landmarkAt(0); Landmark != 0) emit selected(Landmark);
  });
  connect(FTable->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& Current) {
            if (!FUpdating && Current.isValid()) emit selected(FModel->landmarkAt(Current.row()));
          });
  connect(FTable, &QTableView::clicked, this,
          [this](const QModelIndex& Index) { emit selected(FModel->landmarkAt(Index.row())); });
  return Part;
}

void LandmarkDock::updateSummary() {
  FSummary->setText(FModel->summary());
  if (FTable->currentIndex().isValid() || FSelected == 0) return;
  select(FSelected);
}

void LandmarkDock::select(int Landmark) {
  FSelected = Landmark;
  const int Row = FModel->rowOf(Landmark);
  FUpdating = true;
  if (Row < 0) {
    FTable->clearSelection();
    FTable->setCurrentIndex({});
  } else if (FTable->currentIndex().row() != Row) {
    FTable->setCurrentIndex(FModel->index(Row, LandmarkTableModel::Name));
  }
  FUpdating = false;
}

void LandmarkDock::keyPressEvent(QKeyEvent* Event) {
  if (Event->key() == Qt::Key_Escape) return emit left();
  QDockWidget::keyPressEvent(Event);
}

void LandmarkDock::focusSearch() {
  FSearch->setFocus();
  FSearch->selectAll();
}

void LandmarkDock::showClasses() { FPanel->setCurrentWidget(FClasses); }

void LandmarkDock::tell(const QString& Reason) {
  FHint->setText(Reason);
  FHint->setVisible(!Reason.isEmpty());
  if (Reason.isEmpty()) return;
  QAccessibleEvent Alert(FHint, QAccessible::Alert);
  QAccessible::updateAccessibility(&Alert);
}

}  // namespace zav
