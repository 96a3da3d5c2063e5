// qt_convert.cpp - this library's values as Qt's, and back.
// SPDX-License-Identifier: MIT
#include <platform/qt/qt_convert.h>

#include <cmath>

#include <QRect>
#include <QRgb>

#include <platform/base/utf8.h>

namespace zav {

QString ToQString(std::string_view Text) { return QString::fromStdString(DisplayText(Text)); }

TColor FromQColor(const QColor& Color) {
  const QRgb Value = Color.rgb();
  return RgbColor(static_cast<uint8_t>(qRed(Value)), static_cast<uint8_t>(qGreen(Value)),
                  static_cast<uint8_t>(qBlue(Value)));
}

TPoint PixelAt(QPointF Position) {
  return {static_cast<int32_t>(std::floor(Position.x())),
          static_cast<int32_t>(std::floor(Position.y()))};
}

QRegion ToQRegion(std::span<const TRect> Areas) {
  QRegion Region;
  for (const TRect& Area : Areas)
    if (!Area.Empty()) Region += QRect(Area.Left, Area.Top, Area.Width(), Area.Height());
  return Region;
}

std::optional<TMouseButton> ToMouseButton(Qt::MouseButton Button) {
  switch (Button) {
    case Qt::LeftButton:
      return TMouseButton::mbLeft;
    case Qt::RightButton:
      return TMouseButton::mbRight;
    case Qt::MiddleButton:
      return TMouseButton::mbMiddle;
    default:
      return std::nullopt;
  }
}

TShiftState ToShiftState(Qt::KeyboardModifiers Modifiers, Qt::MouseButtons Buttons) {
  int State = 0;
  if (Modifiers.testFlag(Qt::ShiftModifier)) State |= ssShift;
  if (Modifiers.testFlag(Qt::AltModifier)) State |= ssAlt;
  if (Modifiers.testFlag(Qt::ControlModifier)) State |= ssCtrl;
  if (Buttons.testFlag(Qt::LeftButton)) State |= ssLeft;
  if (Buttons.testFlag(Qt::RightButton)) State |= ssRight;
  if (Buttons.testFlag(Qt::MiddleButton)) State |= ssMiddle;
  return static_cast<TShiftState>(State);
}

}  // namespace zav
