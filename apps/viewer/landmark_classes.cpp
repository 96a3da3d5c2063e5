// landmark_classes.cpp - see landmark_classes.h.
// SPDX-License-Identifier: MIT
#include "landmark_classes.h"

#include <array>

#include <QGridLayout>
#include <QHeaderView>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <geomap/geo_map.h>

#include "landmark_document.h"

namespace zav {

namespace {
constexpr int ClassRole = Qt::UserRole;
}  // namespace

LandmarkClasses::LandmarkClasses(LandmarkDocument& Document, TGeoMap& Map, QWidget* Parent)
    : QWidget(Parent), FDocument(Document), FMap(Map), FList(new QTreeWidget(this)) {
  FList->setAccessibleName(tr("Classes of landmarks"));
  FList->setHeaderLabels({tr("Class"), tr("Landmarks")});
  FList->setRootIsDecorated(false);
  FList->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  FList->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
  FList->header()->setStretchLastSection(false);
  auto* All = new QPushButton(tr("Show &All"), this);
  FOnly = new QPushButton(tr("Show Onl&y This"), this);
  FLook = new QPushButton(tr("Give Loo&k"), this);
  FLook->setToolTip(
      tr("All landmarks of the class get the symbol and caption style of the selected landmark, or "
         "of new ones"));
  FRemove = new QPushButton(tr("Delete Cla&ss"), this);
  auto* Buttons = new QGridLayout;
  Buttons->addWidget(All, 0, 0);
  Buttons->addWidget(FOnly, 0, 1);
  Buttons->addWidget(FLook, 1, 0);
  Buttons->addWidget(FRemove, 1, 1);
  auto* Layout = new QVBoxLayout(this);
  Layout->addWidget(FList, 1);
  Layout->addLayout(Buttons);

  FDelay.setSingleShot(true);
  FDelay.setInterval(300);
  connect(&FDelay, &QTimer::timeout, this, &LandmarkClasses::refresh);
  connect(&Document, &LandmarkDocument::changed, this, [this] {
    if (isVisible()) FDelay.start();
  });
  connect(FList, &QTreeWidget::itemChanged, this, &LandmarkClasses::itemChanged);
  connect(FList, &QTreeWidget::currentItemChanged, this, &LandmarkClasses::updateButtons);
  connect(All, &QPushButton::clicked, this, [this] { show([](int) { return true; }); });
  connect(FOnly, &QPushButton::clicked, this,
          [this] { show([Only = current()](int Class) { return Class == Only; }); });
  connect(FLook, &QPushButton::clicked, this, [this] { emit lookRequested(current()); });
  connect(FRemove, &QPushButton::clicked, this, [this] { emit removeRequested(current()); });
  updateButtons();
}

int LandmarkClasses::current() const {
  const QTreeWidgetItem* Item = FList->currentItem();
  return Item == nullptr ? -1 : Item->data(0, ClassRole).toInt();
}

void LandmarkClasses::showEvent(QShowEvent* Event) {
  refresh();
  QWidget::showEvent(Event);
}

void LandmarkClasses::refresh() {
  FDelay.stop();
  std::array<int, 256> Counts{};
  const TLandMarkList& List = FDocument.list();
  for (int Index = 1; Index <= List.Count(); ++Index) ++Counts[List[Index].ClassFlag];
  const int Current = current();
  FUpdating = true;
  FList->clear();
  for (int Class = 0; Class < 256; ++Class) {
    const bool Shown = FMap.GetClassVisibility(static_cast<uint8_t>(Class));
    const int Count = Counts.at(static_cast<size_t>(Class));
    if (Count == 0 && Shown) continue;
    auto* Item = new QTreeWidgetItem(FList, {QString::number(Class), QLocale().toString(Count)});
    Item->setData(0, ClassRole, Class);
    Item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    Item->setCheckState(0, Shown ? Qt::Checked : Qt::Unchecked);
    if (Class == Current) FList->setCurrentItem(Item);
  }
  FUpdating = false;
  updateButtons();
}

void LandmarkClasses::show(const std::function<bool(int Class)>& Shown) {
  FMap.SetSuppressPaint(true);
  for (int Class = 0; Class < 256; ++Class)
    FMap.SetClassVisibility(static_cast<uint8_t>(Class), Shown(Class));
  FMap.SetSuppressPaint(false);
  refresh();
  emit shownChanged();
}

void LandmarkClasses::itemChanged(const QTreeWidgetItem* Item) {
  if (FUpdating) return;
  FMap.SetClassVisibility(static_cast<uint8_t>(Item->data(0, ClassRole).toInt()),
                          Item->checkState(0) == Qt::Checked);
  emit shownChanged();
}

void LandmarkClasses::updateButtons() {
  for (QPushButton* Button : {FOnly, FLook, FRemove}) Button->setEnabled(current() >= 0);
}

}  // namespace zav
