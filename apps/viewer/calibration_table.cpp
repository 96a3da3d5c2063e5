// calibration_table.cpp - the points of a calibration as a table that can be edited.
// SPDX-License-Identifier: MIT
#include "calibration_table.h"

#include <cmath>

#include <QFont>
#include <QLocale>
#include <QPalette>
#include <QRegularExpression>

#include <platform/base/text_format.h>

#include "icons.h"
#include "position_parser.h"

namespace zav {

namespace {

QString FixedText(double Value, int Decimals) { return QLocale().toString(Value, 'f', Decimals); }

// As many digits as make sense for a length on the ground.
QString MetresText(double Metres) {
  if (Metres >= 100000) return CalibrationTable::tr("%1 km").arg(FixedText(Metres / 1000, 0));
  if (Metres >= 10000) return CalibrationTable::tr("%1 km").arg(FixedText(Metres / 1000, 1));
  return CalibrationTable::tr("%1 m").arg(FixedText(Metres, Metres < 10 ? 2 : 0));
}

std::optional<TPoint> ParsePixel(const QString& Text) {
  static const QRegularExpression Form(
      QStringLiteral("^\\s*(-?\\d{1,9})\\s*[,; ]\\s*(-?\\d{1,9})\\s*$"));
  const QRegularExpressionMatch Match = Form.match(Text);
  if (!Match.hasMatch()) return std::nullopt;
  return TPoint{Match.captured(1).toInt(), Match.captured(2).toInt()};
}

}  // namespace

TGratLineKind LineKindOf(CalibItemKind Kind) {
  return Kind == CalibItemKind::Meridian ? TGratLineKind::gtlMeridian : TGratLineKind::gtlParallel;
}

CalibItemKind ItemKindOf(TGratLineKind Kind) {
  return Kind == TGratLineKind::gtlMeridian ? CalibItemKind::Meridian : CalibItemKind::Parallel;
}

TypedLine ParseTypedLine(const QString& Text, std::optional<TGratLineKind> Kind) {
  TypedLine Line;
  const QString Upper = Text.toUpper();
  const bool Parallel = Upper.contains(QLatin1Char('N')) || Upper.contains(QLatin1Char('S'));
  const bool Meridian = Upper.contains(QLatin1Char('E')) || Upper.contains(QLatin1Char('W'));
  if (Parallel != Meridian)
    Kind = Parallel ? TGratLineKind::gtlParallel : TGratLineKind::gtlMeridian;
  if (!Kind || (Parallel && Meridian)) {
    Line.Problem = CalibrationTable::tr(
        "Which line is it? Write 50 N for a parallel, 10.5 E or 10 30 E for a meridian.");
    return Line;
  }
  const TypedAngle Angle = ParseTypedAngle(Text, *Kind);
  Line.Degrees = Angle.Degrees;
  Line.Kind = *Kind;
  Line.Problem = Angle.Problem;
  return Line;
}

QString LineText(CalibItemKind Kind, double Degrees) {
  const bool Meridian = Kind == CalibItemKind::Meridian;
  const char Letter = Meridian ? (Degrees < 0 ? 'W' : 'E') : (Degrees < 0 ? 'S' : 'N');
  return QString::fromStdString(ShortestNumber(std::abs(Degrees))) + QLatin1Char(' ') +
         QLatin1Char(Letter);
}

CalibrationTable::CalibrationTable(CalibDocument& Document, QObject* Parent)
    : QAbstractTableModel(Parent), FDocument(Document) {
  connect(&Document, &CalibDocument::changed, this, &CalibrationTable::documentChanged);
  documentChanged();
}

void CalibrationTable::documentChanged() {
  if (FRows != FDocument.itemCount()) {
    beginResetModel();
    FRows = FDocument.itemCount();
    endResetModel();
  } else if (FRows > 0) {
    emit dataChanged(index(0, 0), index(FRows - 1, ColumnCount - 1));
  }
}

void CalibrationTable::setFormat(ReadoutFormat Format) {
  FFormat = Format;
  if (FRows > 0) emit dataChanged(index(0, Position), index(FRows - 1, Position));
}

int CalibrationTable::rowCount(const QModelIndex& Parent) const {
  return Parent.isValid() ? 0 : FRows;
}

int CalibrationTable::columnCount(const QModelIndex& Parent) const {
  return Parent.isValid() ? 0 : ColumnCount;
}

Qt::ItemFlags CalibrationTable::flags(const QModelIndex& Index) const {
  Qt::ItemFlags Flags = QAbstractTableModel::flags(Index);
  if (Index.column() == Number) Flags |= Qt::ItemIsUserCheckable;
  if (Index.column() == Name || Index.column() == Position || Index.column() == Pixel)
    Flags |= Qt::ItemIsEditable;
  return Flags;
}

QVariant CalibrationTable::headerData(int Section, Qt::Orientation Orientation, int Role) const {
  if (Orientation != Qt::Horizontal) return {};
  if (Role == Qt::TextAlignmentRole && (Section == Pixels || Section == Metres))
    return int(Qt::AlignRight | Qt::AlignVCenter);
  const bool Tip = Role == Qt::ToolTipRole;
  if (Role != Qt::DisplayRole && !Tip) return {};
  switch (Section) {
    case Number:
      return Tip ? tr("A point whose box is empty stays in the table, but does not count")
                 : tr("No.");
    case Name:
      return tr("Name");
    case Position:
      return Tip ? tr("As typed; shown in the way of the status bar") : tr("Position");
    case Pixel:
      return Tip ? tr("Column and row of the map image, from the top left") : tr("Pixel");
    case Pixels:
      return Tip ? tr("Residual: how far the map puts the position from the point, in pixels")
                 : tr("Off by px");
    case Metres:
      return Tip ? tr("Residual on the ground: from the position to the one read off the map")
                 : tr("Off by");
    default:
      return {};
  }
}

QString CalibrationTable::positionText(const CalibItem& Item) const {
  if (Item.IsLinePoint()) {
    const QString Line =
        LineText(Item.Kind, Item.Value).replace(QLatin1Char(' '), QStringLiteral("\u00b0 "));
    return Item.Kind == CalibItemKind::Meridian ? tr("Meridian %1").arg(Line)
                                                : tr("Parallel %1").arg(Line);
  }
  const std::optional<TCoords> Degrees = FDocument.degreesOf(Item);
  QString Text;
  if (Degrees)
    Text = PositionText(*Degrees, FFormat, FDocument.ellipsoid(),
                        FDocument.calibration().Data().Resolution);
  return Text.isEmpty() ? TypedText(Item.Position) : Text;
}

QString CalibrationTable::cellText(const CalibItem& Item, int Row, int Column) const {
  if (Column == Number) return QString::number(Row + 1);
  if (Column == Name) return Item.Name;
  if (Column == Position) return positionText(Item);
  if (Column == Pixel) return QStringLiteral("%1, %2").arg(Item.Pixel.X).arg(Item.Pixel.Y);
  const CalibResidual Residual = FDocument.residual(Row);
  if (!Residual.Valid) return QStringLiteral("-");
  return Column == Pixels ? FixedText(Residual.Pixels, 2) : MetresText(Residual.Metres);
}

QString CalibrationTable::editText(const CalibItem& Item, int Column) const {
  if (Column == Position)
    return Item.IsLinePoint() ? LineText(Item.Kind, Item.Value) : TypedText(Item.Position);
  return cellText(Item, 0, Column);
}

QString CalibrationTable::toolTip(const CalibItem& Item, int Row) const {
  const CalibResidual Residual = FDocument.residual(Row);
  QString Tip = FDocument.itemTitle(Row);
  if (!FDocument.isUsed(Item.Kind))
    Tip += QLatin1Char('\n') + tr("The model does not use this kind of point.");
  if (!Item.Enabled) Tip += QLatin1Char('\n') + tr("Switched off: it does not count.");
  if (!Residual.Valid) return Tip;
  Tip += QLatin1Char('\n') + tr("Off by %1 pixels to the right, %2 down, %3 on the ground")
                                 .arg(FixedText(Residual.Dx, 2), FixedText(Residual.Dy, 2),
                                      MetresText(Residual.Metres));
  if (Residual.Worst) Tip += QLatin1Char('\n') + tr("The largest residual of all");
  return Tip;
}

QVariant CalibrationTable::data(const QModelIndex& Index, int Role) const {
  if (!Index.isValid() || Index.row() >= FDocument.itemCount()) return {};
  const int Row = Index.row();
  const int Column = Index.column();
  const CalibItem& Item = FDocument.item(Row);
  const bool Counts = Item.Enabled && FDocument.isUsed(Item.Kind);
  const bool IsResidual = Column == Pixels || Column == Metres;
  switch (Role) {
    case Qt::DisplayRole:
      return cellText(Item, Row, Column);
    case Qt::EditRole:
      return editText(Item, Column);
    case Qt::ToolTipRole:
      return toolTip(Item, Row);
    case Qt::CheckStateRole:
      if (Column == Number) return Item.Enabled ? Qt::Checked : Qt::Unchecked;
      return {};
    case Qt::TextAlignmentRole:
      if (IsResidual) return int(Qt::AlignRight | Qt::AlignVCenter);
      return int(Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::ForegroundRole:
      if (!Counts) return QPalette().brush(QPalette::Disabled, QPalette::Text);
      return {};
    case Qt::DecorationRole:
      if (Column == Pixels && Counts && FDocument.residual(Row).Worst)
        return MakeIcon(ViewerIcon::Warning);
      return {};
    case Qt::FontRole:
      if (IsResidual && Counts && FDocument.residual(Row).Worst) {
        QFont Bold;
        Bold.setBold(true);
        return Bold;
      }
      return {};
    case Qt::AccessibleTextRole:
      if (Column == Number)
        return Item.Enabled ? tr("%1, counts").arg(Row + 1) : tr("%1, switched off").arg(Row + 1);
      if (Column == Pixels && FDocument.residual(Row).Worst)
        return tr("%1 pixels, the largest").arg(cellText(Item, Row, Column));
      return {};
    default:
      return {};
  }
}

QString CalibrationTable::change(const CalibItem& Item, int Column, const QString& Text) {
  if (Column == Name) {
    FDocument.setName(Item.Id, Text.trimmed());
    return {};
  }
  if (Column == Pixel) {
    const std::optional<TPoint> At = ParsePixel(Text);
    if (!At) return tr("\"%1\" is no pixel. Write column and row, such as 709, 87.").arg(Text);
    FDocument.moveItem(Item.Id, *At);
    return {};
  }
  if (Item.IsLinePoint()) {
    const TypedLine Line = ParseTypedLine(Text, LineKindOf(Item.Kind));
    return Line.Degrees ? FDocument.setLine(Item.Id, Line.Kind, *Line.Degrees) : Line.Problem;
  }
  const TypedPosition Typed = ParseTypedPosition(Text);
  return Typed.Position ? FDocument.setPosition(Item.Id, *Typed.Position) : Typed.Problem;
}

bool CalibrationTable::setData(const QModelIndex& Index, const QVariant& Value, int Role) {
  if (!Index.isValid() || Index.row() >= FDocument.itemCount()) return false;
  // The document's own may move while it changes.
  const CalibItem Item = FDocument.item(Index.row());
  if (Role == Qt::CheckStateRole && Index.column() == Number) {
    FDocument.setEnabled(Item.Id, Value.toInt() == Qt::Checked);
    return true;
  }
  if (Role != Qt::EditRole) return false;
  const QString Text = Value.toString();
  if (Text == editText(Item, Index.column())) return true;
  const QString Problem = change(Item, Index.column(), Text);
  if (!Problem.isEmpty()) emit refused(Problem);
  return Problem.isEmpty();
}

}  // namespace zav
