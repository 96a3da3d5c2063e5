// calibration_table.h - the points of a calibration as a table that can be edited.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_CALIBRATION_TABLE_H
#define ZAV_APPS_VIEWER_CALIBRATION_TABLE_H

#include <QAbstractTableModel>

#include "calib_document.h"
#include "position_readout.h"

namespace zav {

class CalibrationTable final : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Columns { Number, Name, Position, Pixel, Pixels, Metres, ColumnCount };

  CalibrationTable(CalibDocument& Document, QObject* Parent);

  void setFormat(ReadoutFormat Format);

  int rowCount(const QModelIndex& Parent = {}) const override;
  int columnCount(const QModelIndex& Parent = {}) const override;
  QVariant data(const QModelIndex& Index, int Role) const override;
  QVariant headerData(int Section, Qt::Orientation Orientation, int Role) const override;
  Qt::ItemFlags flags(const QModelIndex& Index) const override;
  // What is refused is told by refused().
  bool setData(const QModelIndex& Index, const QVariant& Value, int Role) override;

  // The position of an item in the read-out's format, or the line it is on.
  QString positionText(const CalibItem& Item) const;

 signals:
  void refused(const QString& Reason);

 private:
  void documentChanged();
  QString cellText(const CalibItem& Item, int Row, int Column) const;
  QString editText(const CalibItem& Item, int Column) const;
  QString toolTip(const CalibItem& Item, int Row) const;
  QString change(const CalibItem& Item, int Column, const QString& Text);

  CalibDocument& FDocument;
  ReadoutFormat FFormat = ReadoutFormat::Degrees;
  int FRows = 0;
};

TGratLineKind LineKindOf(CalibItemKind Kind);
CalibItemKind ItemKindOf(TGratLineKind Kind);

// A graticule line as a person writes it: "50 N" a parallel, "10.5 E" a meridian. The letter tells
// which; Kind is asked where there is none.
struct TypedLine {
  std::optional<double> Degrees;
  TGratLineKind Kind = TGratLineKind::gtlParallel;
  QString Problem;
};
TypedLine ParseTypedLine(const QString& Text, std::optional<TGratLineKind> Kind = std::nullopt);
// The line with all digits, "10.5 E"; ParseTypedLine gives the very same.
QString LineText(CalibItemKind Kind, double Degrees);

}  // namespace zav

#endif
