// map_list.h - the list of a folder's maps: caption, size in pixels, model, and what is wrong with
// them.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_MAP_LIST_H
#define ZAV_APPS_VIEWER_MAP_LIST_H

#include <QAbstractListModel>
#include <QList>
#include <QStyledItemDelegate>

#include "atlas_thumbnails.h"
#include "map_source.h"

namespace zav {

class MapList final : public QAbstractListModel {
  Q_OBJECT

 public:
  enum Role { PathRole = Qt::UserRole, DetailRole, ProblemRole, ThumbnailRole };

  explicit MapList(QObject* Parent = nullptr);

  void setSources(const QList<MapSource>& Sources);
  // The row of the map with this path, -1 when it is not in the list.
  int rowOf(const QString& Path) const;
  // Notes what was found wrong with a map only when it was opened.
  void setProblem(const QString& Path, const QString& Problem);

  const QList<MapSource>& sources() const { return FSources; }

  int rowCount(const QModelIndex& Parent = {}) const override;
  QVariant data(const QModelIndex& Index, int DataRole) const override;

 private:
  QList<MapSource> FSources;
  AtlasThumbnails* FThumbnails;
};

// Draws a small picture of the map, its caption, and its details in a fainter line below.
class MapListDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* Painter, const QStyleOptionViewItem& Option,
             const QModelIndex& Index) const override;
  QSize sizeHint(const QStyleOptionViewItem& Option, const QModelIndex& Index) const override;

 private:
  static void drawThumbnail(QPainter& Painter, const QRect& Box, const QModelIndex& Index);
};

}  // namespace zav

#endif
