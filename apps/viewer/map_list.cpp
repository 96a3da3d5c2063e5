// map_list.cpp - the list of a folder's maps.
// SPDX-License-Identifier: MIT
#include "map_list.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QPainter>
#include <QStyle>

#include "atlas_sources.h"
#include "icons.h"

namespace zav {

namespace {

constexpr int Margin = 6;
constexpr QSize ThumbnailSize{56, 42};

QString DetailText(const MapSource& Source) {
  if (!Source.Problem.isEmpty()) return MapList::tr("cannot be shown");
  const QString Scale = ResolutionText(Source.Resolution);
  if (!Scale.isEmpty())
    return MapList::tr("%1, %2 x %3, %4")
        .arg(Scale)
        .arg(Source.ImageSize.width())
        .arg(Source.ImageSize.height())
        .arg(ModelName(Source.Model));
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

// Twice the size on ordinary screens, so that high resolution has its pixels.
MapList::MapList(QObject* Parent)
    : QAbstractListModel(Parent), FThumbnails(new AtlasThumbnails(2 * ThumbnailSize, this)) {
  connect(FThumbnails, &AtlasThumbnails::ready, this, [this](const QString& ImagePath) {
    for (int Row = 0; Row < FSources.size(); ++Row)
      if (FSources[Row].ImagePath == ImagePath)
        emit dataChanged(index(Row), index(Row), {ThumbnailRole});
  });
}

void MapList::setSources(const QList<MapSource>& Sources) {
  beginResetModel();
  FThumbnails->clear();
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
    case ThumbnailRole:
      return Source.Problem.isEmpty() ? FThumbnails->thumbnail(Source.ImagePath) : QImage();
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
  drawThumbnail(*Painter, QRect(Area.topLeft(), QSize(ThumbnailSize.width(), Area.height())),
                Index);
  Area.setLeft(Area.left() + ThumbnailSize.width() + Margin);
  Area.setTop(Area.top() + (Area.height() - 2 * LineHeight) / 2);
  Area.setHeight(2 * LineHeight);
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
  Color.setAlphaF(0.85F);  // legible on every ground
  Painter->setPen(Color);
  DrawLine(MapList::DetailRole, Area.top() + LineHeight);
  Painter->restore();
}

// In the middle of the box; empty until it is made.
void MapListDelegate::drawThumbnail(QPainter& Painter, const QRect& Box, const QModelIndex& Index) {
  const QImage Image = Index.data(MapList::ThumbnailRole).value<QImage>();
  if (Image.isNull()) return;
  QRect Area(QPoint(0, 0), Image.size().scaled(ThumbnailSize, Qt::KeepAspectRatio));
  Area.moveCenter(Box.center());
  Painter.setRenderHint(QPainter::SmoothPixmapTransform);
  Painter.drawImage(Area, Image);
}

QSize MapListDelegate::sizeHint(const QStyleOptionViewItem& Option,
                                const QModelIndex& Index) const {
  const int Width =
      std::max(Option.fontMetrics.horizontalAdvance(Index.data(Qt::DisplayRole).toString()),
               Option.fontMetrics.horizontalAdvance(Index.data(MapList::DetailRole).toString()));
  return {Width + ThumbnailSize.width() + 3 * Margin,
          std::max(2 * Option.fontMetrics.height(), ThumbnailSize.height()) + 2 * Margin};
}

}  // namespace zav
