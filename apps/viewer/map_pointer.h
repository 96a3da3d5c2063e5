// map_pointer.h - a cross on the map that is moved with keys and does what the mouse does; and the
// frame that shows that the map has the keyboard.
//
// The map and the tools get mouse events where the cross is, so that every one of them can be used
// without a mouse: reading positions, placing points and landmarks, measuring, boxes. A real mouse
// takes the cross with it.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_MAP_POINTER_H
#define ZAV_APPS_VIEWER_MAP_POINTER_H

#include <QEvent>
#include <QPoint>
#include <QWidget>

class QKeyEvent;

namespace zav {

class GeoMapWidget;

class MapPointer final : public QWidget {
  Q_OBJECT

 public:
  static constexpr int FarStep = 20;  // control pixels, with Shift

  // Lies over the map's widget. To be made after everything else that looks at its events.
  explicit MapPointer(GeoMapWidget& Widget);

  // Active, it takes arrows, Enter, Space and the menu key of the map.
  bool isActive() const { return FActive; }
  void setActive(bool Active);
  QPoint position() const { return FAt; }

 protected:
  bool eventFilter(QObject* Watched, QEvent* Event) override;
  void paintEvent(QPaintEvent* Event) override;

 private:
  bool takesKey(const QKeyEvent& Event) const;
  void pressKey(const QKeyEvent& Event);
  void moveBy(QPoint Direction, int Step);
  void button(bool Down, Qt::KeyboardModifiers Modifiers);
  void tellMap(QEvent::Type Type, Qt::KeyboardModifiers Modifiers = {});
  void openMenu();
  void follow();

  GeoMapWidget& FWidget;
  QPoint FAt;
  bool FActive = false;
  bool FFrame = false;    // the keyboard came to the map by a key
  bool FHeld = false;     // the left button, for dragging
  bool FTelling = false;  // an event of its own is under way
  int FRepeats = 0;       // of an arrow key that is held
};

}  // namespace zav

#endif
