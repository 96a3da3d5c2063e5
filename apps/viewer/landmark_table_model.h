// landmark_table_model.h - landmarks as a table: all, or those that a text is found in.
//
// Searching goes on piece by piece between the events, so that the window stays alive with a
// million landmarks. No more than MostRows rows are shown.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LANDMARK_TABLE_MODEL_H
#define ZAV_APPS_VIEWER_LANDMARK_TABLE_MODEL_H

#include <string>
#include <vector>

#include <QAbstractTableModel>
#include <QTimer>

#include <geomap/landmarks/landmark_list.h>

#include "position_readout.h"

namespace zav {

class LandmarkDocument;

class LandmarkTableModel final : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Columns { Name, Class, Position, ColumnCount };
  static constexpr int MostRows = 5000;

  // The document must outlive the model.
  LandmarkTableModel(LandmarkDocument& Document, QObject* Parent);

  // Finds landmarks whose caption or identifier contains the text, whatever the case and with or
  // without accents. All of them for an empty text.
  void setFilter(const QString& Text);
  void setFormat(ReadoutFormat Format);
  // How many were found, in words.
  QString summary() const;
  bool isSearching() const { return FNext != 0; }

  // The landmark of a row, 0 = none; the row of a landmark, -1 = none.
  int landmarkAt(int Row) const;
  int rowOf(int Landmark) const;

  int rowCount(const QModelIndex& Parent = {}) const override;
  int columnCount(const QModelIndex& Parent = {}) const override;
  QVariant data(const QModelIndex& Index, int Role) const override;
  QVariant headerData(int Section, Qt::Orientation Orientation, int Role) const override;

 signals:
  // Rows or summary are others.
  void searched();

 private:
  void documentChanged();
  void restart();
  void searchOn();

  LandmarkDocument& FDocument;
  ReadoutFormat FFormat = ReadoutFormat::Degrees;
  std::string FFilter;      // folded
  TLandMarkList FSearched;  // as it was when the search began
  int FNext = 0;            // the landmark at which it goes on; 0 = it has ended
  int FFound = 0;
  std::vector<int> FRows;
  int FShownCount = 0;  // of landmarks when no text is searched
  QTimer FSlice;
  QTimer FDelay;  // changes that follow each other are searched once
};

}  // namespace zav

#endif
