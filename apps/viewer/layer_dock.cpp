// layer_dock.cpp - the panel of the databases over the map: what is shown, how, and finding items.
// SPDX-License-Identifier: MIT
#include "layer_dock.h"

#include <algorithm>

#include <QColorDialog>
#include <QDir>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QShortcut>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <platform/qt/qt_convert.h>

#include "sharp_pixmap.h"

namespace zav {

namespace {

constexpr size_t MostFound = 500;
constexpr int LayerRole = Qt::UserRole;
constexpr int RecordRole = Qt::UserRole + 1;

QString NameOf(const TgdbData& Data) {
  const QString Name = ToQString(Data.Name.View()).trimmed();
  return Name.isEmpty() ? LayerDock::tr("(no name)") : Name;
}

QIcon ColorIcon(const KindStyle& Style) {
  QPixmap Pixmap = SharpPixmap({16, 16});
  if (Style.Fill.isValid()) Pixmap.fill(Style.Fill);
  QPainter Painter(&Pixmap);
  Painter.setPen(QPen(Style.Color, Style.Fill.isValid() ? 2 : 4));
  if (Style.Fill.isValid())
    Painter.drawRect(1, 1, 13, 13);
  else
    Painter.drawLine(1, 14, 14, 1);
  return QIcon(Pixmap);
}

LayerItem ItemOf(const QTreeWidgetItem& Row) {
  return {Row.data(0, LayerRole).toInt(), Row.data(0, RecordRole).toInt()};
}

QString PlaceOf(const TgdbData& Data) {
  const auto Position = [](double Latit, double Longit) {
    return ToQString(GeoLatitude(Latit, TDegreeFormat::dfDegrees, 3)) + QStringLiteral(", ") +
           ToQString(GeoLongitude(Longit, TDegreeFormat::dfDegrees, 3));
  };
  QString First = Position(Data.LatLow, Data.LongLow);
  if (Data.LatLow == Data.LatHigh && Data.LongLow == Data.LongHigh) return First;
  return LayerDock::tr("%1 to %2").arg(First, Position(Data.LatHigh, Data.LongHigh));
}

}  // namespace

LayerDock::LayerDock(Layers& Layers, QWidget* Parent)
    : QDockWidget(tr("Databases"), Parent), FLayers(Layers) {
  setObjectName(QStringLiteral("layers"));
  auto* Body = new QWidget(this);
  auto* Layout = new QVBoxLayout(Body);
  Layout->setContentsMargins(4, 4, 4, 4);
  Layout->addWidget(makeLayers());
  Layout->addWidget(makeKinds());
  Layout->addWidget(makeSearch(), 1);
  FDetails = new QLabel(Body);
  FDetails->setWordWrap(true);
  FDetails->setTextFormat(Qt::PlainText);
  FDetails->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  FDetails->setAccessibleName(tr("About the item"));
  Layout->addWidget(FDetails);
  setWidget(Body);
  connect(&FLayers, &Layers::changed, this, &LayerDock::fill);
  connect(&FLayers, &Layers::selectionChanged, this, &LayerDock::tellSelected);
  fillKinds();
  fill();
}

QWidget* LayerDock::makeLayers() {
  auto* Part = new QWidget(this);
  FList = new QListWidget(Part);
  FList->setAccessibleName(tr("Databases"));
  FList->setMaximumHeight(fontMetrics().height() * 5);
  auto* Open = new QPushButton(tr("&Open..."), Part);
  Open->setToolTip(tr("Lay a database over the map"));
  auto* Close = new QPushButton(tr("&Close"), Part);
  Close->setToolTip(tr("Take the marked database away"));
  connect(Open, &QPushButton::clicked, this, &LayerDock::openWanted);
  connect(Close, &QPushButton::clicked, this, [this] { FLayers.close(FList->currentRow()); });
  connect(FList, &QListWidget::itemChanged, this, [this](const QListWidgetItem* Item) {
    if (!FFilling) FLayers.setShown(FList->row(Item), Item->checkState() == Qt::Checked);
  });
  auto* Buttons = new QHBoxLayout;
  Buttons->addWidget(Open);
  Buttons->addWidget(Close);
  Buttons->addStretch(1);
  auto* Layout = new QVBoxLayout(Part);
  Layout->setContentsMargins(0, 0, 0, 0);
  Layout->addWidget(FList);
  Layout->addLayout(Buttons);
  return Part;
}

QWidget* LayerDock::makeKinds() {
  FKinds = new QListWidget(this);
  FKinds->setAccessibleName(tr("What is shown"));
  FKinds->setToolTip(tr("What is shown; a double click or Enter chooses the colour"));
  FKinds->setFlow(QListView::LeftToRight);
  FKinds->setWrapping(true);
  FKinds->setResizeMode(QListView::Adjust);
  int Widest = 0;
  for (size_t Kind = 0; Kind < LayerKinds; ++Kind)
    Widest = std::max(Widest,
                      fontMetrics().horizontalAdvance(LayerKindsName(static_cast<TgdbItem>(Kind))));
  FKinds->setGridSize({Widest + 70, fontMetrics().height() + 8});
  FKinds->setFixedHeight((fontMetrics().height() + 8) * 4 + 8);
  connect(FKinds, &QListWidget::itemChanged, this, [this](const QListWidgetItem* Item) {
    if (FFilling) return;
    LayerStyle Style = FLayers.style();
    Style.of(static_cast<TgdbItem>(FKinds->row(Item))).Shown = Item->checkState() == Qt::Checked;
    FLayers.setStyle(Style);
  });
  connect(FKinds, &QListWidget::itemDoubleClicked, this, &LayerDock::chooseColor);
  auto* Choose = new QShortcut(Qt::Key_Return, FKinds, nullptr, nullptr, Qt::WidgetShortcut);
  connect(Choose, &QShortcut::activated, this, [this] {
    if (FKinds->currentItem() != nullptr) chooseColor(FKinds->currentItem());
  });
  return FKinds;
}

QWidget* LayerDock::makeSearch() {
  auto* Part = new QWidget(this);
  FSearch = new QLineEdit(Part);
  FSearch->setPlaceholderText(tr("Find a name or a part of it"));
  FSearch->setAccessibleName(tr("Find in databases"));
  FSearch->setClearButtonEnabled(true);
  FFound = new QTreeWidget(Part);
  FFound->setAccessibleName(tr("Found items"));
  FFound->setHeaderLabels({tr("Name"), tr("Kind")});
  FFound->setRootIsDecorated(false);
  FFound->setUniformRowHeights(true);
  FFound->header()->setStretchLastSection(false);
  FFound->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  FFound->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
  connect(FSearch, &QLineEdit::textChanged, this, &LayerDock::search);
  connect(FSearch, &QLineEdit::returnPressed, this, [this] {
    if (FFound->topLevelItemCount() == 0) return;
    if (FFound->currentItem() == nullptr) FFound->setCurrentItem(FFound->topLevelItem(0));
    emit FFound->itemActivated(FFound->currentItem(), 0);
  });
  connect(FFound, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* Row) {
    if (Row != nullptr && !FFilling) FLayers.select(ItemOf(*Row));
  });
  const auto Go = [this](const QTreeWidgetItem* Row) {
    if (Row == nullptr) return;
    FLayers.select(ItemOf(*Row));
    FLayers.showSelected();
    emit selectedShown();
  };
  connect(FFound, &QTreeWidget::itemActivated, this, Go);
  connect(FFound, &QTreeWidget::itemDoubleClicked, this, Go);
  auto* Layout = new QVBoxLayout(Part);
  Layout->setContentsMargins(0, 0, 0, 0);
  Layout->addWidget(FSearch);
  Layout->addWidget(FFound, 1);
  return Part;
}

void LayerDock::startSearch() {
  FSearch->setFocus(Qt::ShortcutFocusReason);
  FSearch->selectAll();
}

void LayerDock::fill() {
  const int Row = FList->currentRow();
  FFilling = true;
  FList->clear();
  for (int Index = 0; Index < FLayers.count(); ++Index) {
    DatabaseLayer& Layer = FLayers.at(Index);
    auto* Item = new QListWidgetItem(
        tr("%1 (%Ln item(s))", nullptr, static_cast<int>(Layer.database().NumEntries()))
            .arg(Layer.title()),
        FList);
    Item->setToolTip(QDir::toNativeSeparators(Layer.path()));
    Item->setFlags(Item->flags() | Qt::ItemIsUserCheckable);
    Item->setCheckState(Layer.isShown() ? Qt::Checked : Qt::Unchecked);
  }
  FList->setCurrentRow(qBound(0, Row, FLayers.count() - 1));
  FFilling = false;
  fillKinds();
  search();
}

void LayerDock::fillKinds() {
  FFilling = true;
  for (int Kind = 0; Kind < static_cast<int>(LayerKinds); ++Kind) {
    if (FKinds->item(Kind) == nullptr) new QListWidgetItem(FKinds);
    QListWidgetItem* Item = FKinds->item(Kind);
    const KindStyle& Style = FLayers.style().of(static_cast<TgdbItem>(Kind));
    Item->setText(LayerKindsName(static_cast<TgdbItem>(Kind)));
    Item->setIcon(ColorIcon(Style));
    Item->setFlags(Item->flags() | Qt::ItemIsUserCheckable);
    Item->setCheckState(Style.Shown ? Qt::Checked : Qt::Unchecked);
  }
  FFilling = false;
}

void LayerDock::chooseColor(QListWidgetItem* Item) {
  const auto Kind = static_cast<TgdbItem>(FKinds->row(Item));
  LayerStyle Style = FLayers.style();
  const QColor Color = QColorDialog::getColor(Style.of(Kind).Color, this,
                                              tr("Colour of %1").arg(LayerKindsName(Kind)));
  if (!Color.isValid()) return;
  Style.of(Kind).Color = Color;
  FLayers.setStyle(Style);
}

void LayerDock::search() { list(FLayers.itemsNamed(FSearch->text(), MostFound)); }

void LayerDock::showItems(const std::vector<LayerItem>& Items) {
  list(Items);
  if (Items.empty())
    FLayers.select(std::nullopt);
  else
    FFound->setCurrentItem(FFound->topLevelItem(0));
}

void LayerDock::list(const std::vector<LayerItem>& Items) {
  FFilling = true;
  FFound->clear();
  QList<QTreeWidgetItem*> Rows;
  for (const LayerItem& Each : Items) {
    const TgdbData Data = FLayers.record(Each);
    auto* Row = new QTreeWidgetItem({NameOf(Data), LayerKindName(Data.ItemKind)});
    Row->setData(0, LayerRole, Each.Layer);
    Row->setData(0, RecordRole, Each.RecNo);
    Rows.append(Row);
  }
  FFound->addTopLevelItems(Rows);
  FFilling = false;
}

void LayerDock::tellSelected() {
  if (!FLayers.selected()) return FDetails->clear();
  const TgdbData Data = FLayers.record(*FLayers.selected());
  QStringList Lines{NameOf(Data) + QStringLiteral(", ") + LayerKindName(Data.ItemKind)};
  Lines << PlaceOf(Data);
  if (HasPointList(Data.ItemKind))
    Lines << tr("%Ln point(s)", nullptr, static_cast<int>(Data.NumPoints));
  if (Data.ItemKind == TgdbItem::gitBLOB)
    Lines << tr("%Ln byte(s)", nullptr, static_cast<int>(Data.Size()));
  if (Data.Altitude != 0)
    Lines << tr("Altitude %1 m").arg(QLocale().toString(static_cast<double>(Data.Altitude)));
  Lines << tr("Class %1, item %2").arg(Data.ClassFlag).arg(Data.ItemId);
  Lines << FLayers.at(FLayers.selected()->Layer).title();
  FDetails->setText(Lines.join(QLatin1Char('\n')));
}

}  // namespace zav
