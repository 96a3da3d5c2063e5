// tool_selection.h - a rectangle selected on the map, and a bar beside it with what can be done
// with it.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_TOOL_SELECTION_H
#define ZAV_APPS_VIEWER_TOOL_SELECTION_H

#include <functional>
#include <optional>

#include <QFrame>
#include <QPointF>
#include <QRect>
#include <QString>

class QAbstractButton;
class QLabel;

namespace zav {

class GeoMapWidget;
class ToolOverlay;

class SelectionTool final : public QFrame {
  Q_OBJECT

 public:
  // A pixel of the map image as text for people: its position where there is one.
  using TextAt = std::function<QString(QPointF MapPixel)>;

  // The bar is a child of the widget.
  SelectionTool(GeoMapWidget& Widget, ToolOverlay& Overlay, TextAt Text);

  bool isEmpty() const { return !FRectangle; }
  void clear();
  // Pixels of the map image: of what was dragged, the part on the image.
  const std::optional<QRect>& rectangle() const { return FRectangle; }
  // Top left and bottom right corner, a line each.
  QString cornersText() const;
  QString sizeText() const;

 signals:
  void changed();
  void copyText(const QString& Text);
  void saveRectangle(const QRect& MapPixels);
  void zoomTo(const QRect& MapPixels);
  // The rectangle lies beside the map.
  void refused(const QString& Reason);

 protected:
  bool eventFilter(QObject* Watched, QEvent* Event) override;
  void paintEvent(QPaintEvent* Event) override;

 private:
  void select(QPoint From, QPoint To);
  void place();
  QAbstractButton* addButton(const QString& Text, const QString& Tip);

  GeoMapWidget& FWidget;
  ToolOverlay& FOverlay;
  TextAt FTextAt;
  std::optional<QRect> FRectangle;
  QLabel* FSize;
};

}  // namespace zav

#endif
