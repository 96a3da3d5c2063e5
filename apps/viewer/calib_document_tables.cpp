// calib_document_tables.cpp - points of the calibration document as comma-separated values.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <QDir>

#include <platform/base/atomic_file.h>
#include <platform/base/errors.h>
#include <platform/qt/qt_convert.h>

#include "calib_document.h"
#include "calib_document_private.h"
#include "common/calibration_points.h"
#include "common/table_row.h"
#include "reason_text.h"

namespace zav {

namespace {

CalibItem ItemOf(const TPointRow& Row, const CalibState& State) {
  CalibItem Item;
  Item.Pixel = Row.Pixel;
  Item.Name = CleanName(ToQString(Row.Name));
  Item.Enabled = Row.Enabled;
  if (Row.Line) {
    Item.Kind = ItemKindOf(*Row.Line);
    Item.Value = Row.Value + 0.0;
  } else if (!Row.IsUtm) {
    Item.Position = CalibPosition::OfDegrees(Row.Degrees.Latit, Row.Degrees.Longit);
  } else {
    const int Zone = Row.Zone.value_or(0);
    Item.Position =
        CalibPosition::OfUtm(Row.Northing, Row.Easting, Zone, Row.South.value_or(State.Grid.South));
  }
  return Item;
}

// What of the columns a table needs.
struct TableColumns {
  bool Lines = false;
  bool Points = false;
  bool Utm = false;
};

TableColumns ColumnsFor(const CalibState& State) {
  TableColumns Columns;
  for (const CalibItemPtr& Item : State.Items) {
    Columns.Lines |= Item->IsLinePoint();
    Columns.Points |= !Item->IsLinePoint();
    Columns.Utm |= !Item->IsLinePoint() && Item->Position.IsUtm;
  }
  Columns.Points |= !Columns.Lines;
  return Columns;
}

void AppendHeader(TRow& Row, const TableColumns& Columns) {
  if (Columns.Lines)
    Row << "kind"
        << "value";
  if (Columns.Points)
    Row << "lat"
        << "long";
  if (Columns.Utm)
    Row << "northing"
        << "easting"
        << "zone"
        << "hemisphere";
  Row << "pixel_x"
      << "pixel_y"
      << "name"
      << "enabled";
}

void AppendBlanks(TRow& Row, int Count) {
  for (int i = 0; i < Count; ++i) Row << "";
}

void AppendPosition(TRow& Row, const TableColumns& Columns, const CalibItem& Item,
                    const UtmGrid& Grid) {
  if (const auto Degrees = DegreesOf(Item.Position, Grid))
    Row << Degrees->Latit << Degrees->Longit;
  else
    AppendBlanks(Row, 2);
  if (!Columns.Utm) return;
  if (!Item.Position.IsUtm) return AppendBlanks(Row, 4);
  Row << Item.Position.Metres.Northing << Item.Position.Metres.Easting;
  const bool Own = Item.Position.Zone != 0;
  const int Zone = Own ? Item.Position.Zone : Grid.Zone;
  if (Zone == 0) return AppendBlanks(Row, 2);
  Row << Zone << ((Own ? Item.Position.South : Grid.South) ? "south" : "north");
}

void AppendItem(TRow& Row, const TableColumns& Columns, const CalibItem& Item,
                const UtmGrid& Grid) {
  const bool Line = Item.IsLinePoint();
  if (Line)
    Row << (Item.Kind == CalibItemKind::Meridian ? "meridian" : "parallel") << Item.Value;
  else if (Columns.Lines)
    Row << "point"
        << "";
  if (!Line)
    AppendPosition(Row, Columns, Item, Grid);
  else
    AppendBlanks(Row, (Columns.Points ? 2 : 0) + (Columns.Utm ? 4 : 0));
  Row << Item.Pixel.X << Item.Pixel.Y << FromQString(Item.Name) << Item.Enabled;
}

}  // namespace

QString CalibDocument::importPoints(const QString& FileName, CalibImport Mode) {
  const std::string File = FromQString(FileName);
  try {
    const std::vector<TPointRow> Rows = ReadPointRows(File, F->State->Model);
    if (Rows.empty()) return tr("\"%1\" holds no points.").arg(QDir::toNativeSeparators(FileName));
    return F->Edit(tr("Import %n point(s)", nullptr, static_cast<int>(Rows.size())),
                   [&](CalibState& State) {
                     if (Mode == CalibImport::Replace) State.Items.clear();
                     for (const TPointRow& Row : Rows) {
                       State.Items.push_back(F->NewItem(ItemOf(Row, State)));
                       AdoptZone(State);
                       QString Problem = LimitProblem(State.Items);
                       if (Problem.isEmpty() && !Row.Line)
                         Problem = PositionProblem(State, State.Items.back()->Position);
                       if (!Problem.isEmpty()) FailPointRow(File, Row, FromQString(Problem));
                     }
                     // The zone follows from all points, not from the first one.
                     if (F->State->Grid.Zone == 0) State.Grid.Zone = 0;
                     AdoptZone(State);
                     return QString();
                   });
  } catch (const EInOutError& Error) {
    return ReasonText(Error.what());
  }
}

QString CalibDocument::exportPoints(const QString& FileName) const {
  const TableColumns Columns = ColumnsFor(*F->State);
  TRow Row;
  AppendHeader(Row, Columns);
  std::string Text = Row.Take();
  for (const CalibItemPtr& Item : F->State->Items) {
    AppendItem(Row, Columns, *Item, F->State->Grid);
    Text += Row.Take();
  }
  try {
    WriteWholeFile(FromQString(FileName), Text);
  } catch (const EInOutError& Error) {
    return ReasonText(Error.what());
  }
  return {};
}

}  // namespace zav
