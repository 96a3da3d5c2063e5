// map_list.cpp - the list of a folder's maps.
// SPDX-License-Identifier: MIT
#include "map_list.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QPainter>
#include <QStyle>

#include "icons.h"

namespace zav {

namespace {

constexpr int Margin = 6;

QString DetailText(const MapSource& Source) {
  if (!Source.Problem.isEmpty()) return MapList::tr("cannot be shown");
  return MapList::tr("%1 x %2, %3")
      .arg(Source.ImageSize.width())
      .arg(Source.ImageSize.height())
      .arg(ModelName(Source.Model));
}

QString ToolTipText(const MapSource& Source) {
  if (Source.Problem.isEmpty()) return QDir::toNativeSeparators(Source.Path).toHtmlEscaped();
  return QStringLiteral("<p>") + Source.Problem.toHtmlEscaped() + QStringLiteral("</p>");
}

}  // namespace

void MapList::setSources(const QList<MapSource>& Sources) {
  beginResetModel();
  FSources = Sources;
  endResetModel();
}

int MapList::rowOf(const QString& Path) const {
  for (int Row = 0; Row < FSources.size(); ++Row)
    if (FSources[Row].Path == Path) return Row;
  return -1;
}

void MapList::setProblem(const QString& Path, const QString& Problem) {
  const int Row = rowOf(Path);
  if (Row < 0) return;
  FSources[Row].Problem = Problem;
  emit dataChanged(index(Row), index(Row));
}

int MapList::rowCount(const QModelIndex& Parent) const {
  return Parent.isValid() ? 0 : static_cast<int>(FSources.size());
}

QVariant MapList::data(const QModelIndex& Index, int DataRole) const {
  if (!Index.isValid() || Index.row() >= FSources.size()) return {};
  const MapSource& Source = FSources[Index.row()];
  switch (DataRole) {
    case Qt::DisplayRole:
      return Source.Caption;
    case Qt::ToolTipRole:
      return ToolTipText(Source);
    case Qt::AccessibleDescriptionRole:
    case DetailRole:
      return DetailText(Source);
    case PathRole:
      return Source.Path;
    case ProblemRole:
      return Source.Problem;
    default:
      return {};
  }
}

void MapListDelegate::paint(QPainter* Painter, const QStyleOptionViewItem& Option,
                            const QModelIndex& Index) const {
  QStyleOptionViewItem Item = Option;
  initStyleOption(&Item, Index);
  Item.text.clear();
  const QStyle* Style = Item.widget != nullptr ? Item.widget->style() : QApplication::style();
  Style->drawControl(QStyle::CE_ItemViewItem, &Item, Painter, Item.widget);

  const bool Selected = (Item.state & QStyle::State_Selected) != 0;
  const auto Group =
      (Item.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive;
  QColor Color = Item.palette.color(Group, Selected ? QPalette::HighlightedText : QPalette::Text);
  QRect Area = Item.rect.adjusted(Margin, Margin, -Margin, -Margin);
  const int LineHeight = Item.fontMetrics.height();
  Painter->save();
  if (!Index.data(MapList::ProblemRole).toString().isEmpty()) {
    const QRect Sign(Area.right() - LineHeight, Area.top() + (Area.height() - LineHeight) / 2,
                     LineHeight, LineHeight);
    MakeIcon(ViewerIcon::Warning)
        .paint(Painter, Sign, Qt::AlignCenter, Selected ? QIcon::Selected : QIcon::Normal);
    Area.setRight(Sign.left() - Margin);
  }
  const auto DrawLine = [&](int Role, int Top) {
    const QString Text =
        Item.fontMetrics.elidedText(Index.data(Role).toString(), Qt::ElideRight, Area.width());
    Painter->drawText(QRect(Area.left(), Top, Area.width(), LineHeight), Qt::AlignLeft, Text);
  };
  Painter->setFont(Item.font);
  Painter->setPen(Color);
  DrawLine(Qt::DisplayRole, Area.top());
  Color.setAlphaF(0.65F);
  Painter->setPen(Color);
  DrawLine(MapList::DetailRole, Area.top() + LineHeight);
  Painter->restore();
}

QSize MapListDelegate::sizeHint(const QStyleOptionViewItem& Option,
                                const QModelIndex& Index) const {
  const int Width =
      std::max(Option.fontMetrics.horizontalAdvance(Index.data(Qt::DisplayRole).toString()),
               Option.fontMetrics.horizontalAdvance(Index.data(MapList::DetailRole).toString()));
  return {Width + 2 * Margin, 2 * Option.fontMetrics.height() + 2 * Margin};
}

}  // namespace zav
