// arrow_step.h - the way that an arrow key goes.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_ARROW_STEP_H
#define ZAV_APPS_VIEWER_ARROW_STEP_H

#include <optional>

#include <QPoint>
#include <Qt>

namespace zav {

// One pixel to where an arrow key points; nothing for another key.
inline std::optional<QPoint> ArrowStep(int Key) {
  switch (Key) {
    case Qt::Key_Left:
      return QPoint(-1, 0);
    case Qt::Key_Right:
      return QPoint(1, 0);
    case Qt::Key_Up:
      return QPoint(0, -1);
    case Qt::Key_Down:
      return QPoint(0, 1);
    default:
      return std::nullopt;
  }
}

}  // namespace zav

#endif
