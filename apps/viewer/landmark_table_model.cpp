// landmark_table_model.cpp - see landmark_table_model.h.
// SPDX-License-Identifier: MIT
#include "landmark_table_model.h"

#include <algorithm>

#include <QElapsedTimer>
#include <QLocale>

#include <platform/base/text.h>
#include <platform/qt/qt_convert.h>

#include "landmark_document.h"

namespace zav {

namespace {

constexpr double ShownResolution = 500;  // metres; more digits would not fit
constexpr int SliceMilliseconds = 20;
constexpr int LandmarksBetweenLooks = 256;  // at the clock

std::string Folded(std::string_view Text) { return LowerCase(FoldAccents(Text)); }

bool Contains(std::string_view Text, const std::string& Wanted) {
  return !Text.empty() && Folded(Text).find(Wanted) != std::string::npos;
}

}  // namespace

LandmarkTableModel::LandmarkTableModel(LandmarkDocument& Document, QObject* Parent)
    : QAbstractTableModel(Parent), FDocument(Document) {
  FSlice.setInterval(0);
  connect(&FSlice, &QTimer::timeout, this, &LandmarkTableModel::searchOn);
  FDelay.setSingleShot(true);
  FDelay.setInterval(200);
  connect(&FDelay, &QTimer::timeout, this, &LandmarkTableModel::restart);
  connect(&Document, &LandmarkDocument::changed, this, &LandmarkTableModel::documentChanged);
  restart();
}

void LandmarkTableModel::setFilter(const QString& Text) {
  const std::string New = Folded(FromQString(Text.trimmed()));
  if (New == FFilter) return;
  FFilter = New;
  restart();
}

void LandmarkTableModel::setFormat(ReadoutFormat Format) {
  FFormat = Format;
  if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

void LandmarkTableModel::documentChanged() {
  if (!FFilter.empty()) {
    FDelay.start();
  } else if (FShownCount != FDocument.count()) {
    restart();
  }
  if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

void LandmarkTableModel::restart() {
  FDelay.stop();
  beginResetModel();
  FRows.clear();
  FFound = 0;
  FShownCount = FDocument.count();
  FSearched = FFilter.empty() ? TLandMarkList() : FDocument.list();
  FNext = FSearched.Count() == 0 ? 0 : 1;
  endResetModel();
  if (FNext != 0) searchOn();
  FNext != 0 ? FSlice.start() : FSlice.stop();
  emit searched();
}

void LandmarkTableModel::searchOn() {
  QElapsedTimer Clock;
  Clock.start();
  std::vector<int> New;
  for (; FNext <= FSearched.Count(); ++FNext) {
    if (FNext % LandmarksBetweenLooks == 0 && Clock.elapsed() >= SliceMilliseconds) break;
    const TLandMark& Each = FSearched[FNext];
    if (!Contains(Each.Caption.Text.View(), FFilter) && !Contains(Each.Identifier.View(), FFilter))
      continue;
    ++FFound;
    if (FFound <= MostRows) New.push_back(FNext);
  }
  if (FNext > FSearched.Count()) {
    FNext = 0;
    FSlice.stop();
    FSearched = {};
  }
  if (!New.empty()) {
    const auto First = static_cast<int>(FRows.size());
    beginInsertRows({}, First, First + static_cast<int>(New.size()) - 1);
    FRows.insert(FRows.end(), New.begin(), New.end());
    endInsertRows();
  }
  emit searched();
}

QString LandmarkTableModel::summary() const {
  const int Count = FFilter.empty() ? FShownCount : FFound;
  const QString Text =
      FFilter.empty() ? tr("%Ln landmark(s)", nullptr, Count) : tr("%Ln found", nullptr, Count);
  if (isSearching()) return tr("%1, searching...").arg(Text);
  if (Count > MostRows)
    return tr("%1, the first %2 of them here").arg(Text, QLocale().toString(MostRows));
  return Text;
}

int LandmarkTableModel::landmarkAt(int Row) const {
  if (Row < 0 || Row >= rowCount()) return 0;
  const int Landmark = FFilter.empty() ? Row + 1 : FRows[static_cast<size_t>(Row)];
  return FDocument.has(Landmark) ? Landmark : 0;
}

int LandmarkTableModel::rowOf(int Landmark) const {
  if (Landmark <= 0) return -1;
  if (FFilter.empty()) return Landmark <= rowCount() ? Landmark - 1 : -1;
  const auto Found = std::lower_bound(FRows.begin(), FRows.end(), Landmark);
  return Found != FRows.end() && *Found == Landmark ? static_cast<int>(Found - FRows.begin()) : -1;
}

int LandmarkTableModel::rowCount(const QModelIndex& Parent) const {
  if (Parent.isValid()) return 0;
  return FFilter.empty() ? std::min(FShownCount, MostRows) : static_cast<int>(FRows.size());
}

int LandmarkTableModel::columnCount(const QModelIndex& Parent) const {
  return Parent.isValid() ? 0 : ColumnCount;
}

QVariant LandmarkTableModel::data(const QModelIndex& Index, int Role) const {
  if (Role == Qt::TextAlignmentRole && Index.column() == Class)
    return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  const int Landmark = landmarkAt(Index.row());
  if (Landmark == 0 || (Role != Qt::DisplayRole && Role != Qt::ToolTipRole)) return {};
  const TLandMark& Each = FDocument.list()[Landmark];
  switch (Index.column()) {
    case Name:
      return FDocument.title(Landmark);
    case Class:
      return static_cast<int>(Each.ClassFlag);
    default:
      return PositionText({Each.Latitude, Each.Longitude}, FFormat, TGeoEllipsoid::gelWGS84,
                          ShownResolution);
  }
}

QVariant LandmarkTableModel::headerData(int Section, Qt::Orientation Orientation, int Role) const {
  if (Orientation != Qt::Horizontal || Role != Qt::DisplayRole) return {};
  switch (Section) {
    case Name:
      return tr("Name");
    case Class:
      return tr("Class");
    default:
      return tr("Position");
  }
}

}  // namespace zav
