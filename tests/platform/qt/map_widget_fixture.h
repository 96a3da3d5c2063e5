// map_widget_fixture.h - a widget with a map in it, and the events that users cause.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_PLATFORM_QT_MAP_WIDGET_FIXTURE_H
#define ZAV_TESTS_PLATFORM_QT_MAP_WIDGET_FIXTURE_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <QApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>

#include <platform/qt/geo_map_widget.h>

namespace zav {

inline TBitmap Gradient(int32_t Width, int32_t Height) {
  TBitmap Bitmap(Width, Height, TPixelFormat::pf32bit);
  for (int32_t Y = 0; Y < Height; ++Y)
    for (int32_t X = 0; X < Width; ++X)
      Bitmap.SetPixel(X, Y,
                      RgbColor(static_cast<uint8_t>(X / 4), static_cast<uint8_t>(Y / 4), 128));
  return Bitmap;
}

// Longitude X / 100, latitude 50 - Y / 100.
inline TCalibData PlainCalibration() {
  TCalibData Data;
  for (const TPoint P : {TPoint{0, 0}, TPoint{1000, 0}, TPoint{0, 800}, TPoint{1000, 800}})
    Data.CalQuads[static_cast<size_t>(Data.NumCalQuads++)] = {50 - P.Y / 100.0, P.X / 100.0, P.X,
                                                              P.Y};
  return Data;
}

// A widget of 500 x 400 with a map of 1000 x 800 in it.
class GeoMapWidgetTest : public testing::Test {
 protected:
  GeoMapWidgetTest() {
    Widget->map().SetMapBitMap(Gradient(1000, 800));
    QObject::connect(Widget, &GeoMapWidget::errorOccurred,
                     [this](const QString& Text) { Errors.push_back(Text.toStdString()); });
  }
  ~GeoMapWidgetTest() override { delete Widget; }

  TGeoMap& Map() { return Widget->map(); }
  bool Wheel(QPointF At, int Units, bool PixelsOnly = false) {
    const QPoint Turn(0, Units);
    QWheelEvent Event(At, At, PixelsOnly ? Turn : QPoint(), PixelsOnly ? QPoint() : Turn,
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    Event.ignore();
    QApplication::sendEvent(Widget, &Event);
    return Event.isAccepted();
  }

  void MoveTo(QPointF At, Qt::MouseButtons Buttons = Qt::NoButton) {
    QMouseEvent Event(QEvent::MouseMove, At, At, Qt::NoButton, Buttons, Qt::NoModifier);
    QApplication::sendEvent(Widget, &Event);
  }

  QPointer<GeoMapWidget> Widget = new GeoMapWidget;
  std::vector<std::string> Errors;
};

}  // namespace zav

#endif
