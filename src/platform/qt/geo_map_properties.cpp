// geo_map_properties.cpp - GeoMapWidget: its properties, each the control's in Qt's types.
// SPDX-License-Identifier: MIT
#include <QPointer>

#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_convert.h>

namespace zav {

template <class TValue>
void GeoMapWidget::Change(TValue (GeoMapWidget::*Get)() const, const std::function<void()>& Set) {
  const QPointer<GeoMapWidget> Self(this);
  Guarded([&] {
    const TValue Before = (this->*Get)();
    Set();
    if (Self && (this->*Get)() != Before) Q_EMIT settingsChanged();
  });
}

// --- image and calibration

QString GeoMapWidget::imageFile() const { return ToQString(FMap->MapImgFile()); }

QString GeoMapWidget::caption() const { return ToQString(FMap->GetMapCaption()); }
void GeoMapWidget::setCaption(const QString& Caption) {
  Guarded([&] { FMap->SetMapCaption(FromQString(Caption)); });
}

GeoMapWidget::CalibrationModel GeoMapWidget::calibrationModel() const {
  return static_cast<CalibrationModel>(FMap->CalibModel());
}
void GeoMapWidget::setCalibrationModel(CalibrationModel Model) {
  Guarded([&] { FMap->SetCalibModel(static_cast<TCalibModel>(Model)); });
}

// --- view

double GeoMapWidget::magnification() const { return FMap->Magnification(); }
void GeoMapWidget::setMagnification(double Magnification) {
  if (Magnification == magnification()) return;
  Guarded([&] { FMap->SetMagnification(Magnification); });
}

QPoint GeoMapWidget::topLeft() const { return ToQPoint(FMap->TopLeft()); }
void GeoMapWidget::setTopLeft(QPoint MapPixel) {
  if (MapPixel == topLeft()) return;
  Guarded([&] { FMap->SetTopLeft(FromQPoint(MapPixel)); });
}

bool GeoMapWidget::confinePanToMapImage() const { return FMap->ConfinePanToMapImage(); }
void GeoMapWidget::setConfinePanToMapImage(bool On) {
  Change(&GeoMapWidget::confinePanToMapImage, [&] { FMap->SetConfinePan(On); });
}

// --- mouse

bool GeoMapWidget::allowPan() const { return FMap->GetAllowPan(); }
void GeoMapWidget::setAllowPan(bool On) {
  Change(&GeoMapWidget::mouseMode, [&] { FMap->SetAllowPan(On); });
}

GeoMapWidget::MouseMode GeoMapWidget::mouseMode() const {
  return static_cast<MouseMode>(FMap->MouseAction());
}
void GeoMapWidget::setMouseMode(MouseMode Mode) {
  Change(&GeoMapWidget::mouseMode, [&] { FMap->SetMouseAction(static_cast<TMouseActMode>(Mode)); });
}

// --- look

bool GeoMapWidget::antiAlias() const { return FMap->AntiAlias(); }
void GeoMapWidget::setAntiAlias(bool On) {
  Change(&GeoMapWidget::antiAlias, [&] { FMap->SetAntiAlias(On); });
}

double GeoMapWidget::cacheMagnificationLimit() const { return FMap->CacheMagLimit(); }
void GeoMapWidget::setCacheMagnificationLimit(double Limit) {
  Change(&GeoMapWidget::cacheMagnificationLimit, [&] { FMap->SetCacheMagLimit(Limit); });
}

GeoMapWidget::Graticule GeoMapWidget::showGraticule() const {
  return static_cast<Graticule>(FMap->ShowGraticule());
}
void GeoMapWidget::setShowGraticule(Graticule Shown) {
  Change(&GeoMapWidget::showGraticule, [&] { FMap->SetShowGrat(static_cast<TShowGrat>(Shown)); });
}

double GeoMapWidget::graticuleSpacing() const { return FMap->GratLineDist(); }
void GeoMapWidget::setGraticuleSpacing(double Degrees) {
  Change(&GeoMapWidget::graticuleSpacing, [&] { FMap->SetGratLineDist(Degrees); });
}

int GeoMapWidget::utmGridSpacing() const { return FMap->UTMGridDist(); }
void GeoMapWidget::setUtmGridSpacing(int Metres) {
  Change(&GeoMapWidget::utmGridSpacing, [&] { FMap->SetUTMGridDist(Metres); });
}

QColor GeoMapWidget::backgroundColor() const { return ToQColor(FMap->ColorBackGnd()); }
void GeoMapWidget::setBackgroundColor(const QColor& Color) {
  Change(&GeoMapWidget::backgroundColor, [&] { FMap->SetColorBakGnd(FromQColor(Color)); });
}

QColor GeoMapWidget::graticuleColor() const { return ToQColor(FMap->ColorGraticule()); }
void GeoMapWidget::setGraticuleColor(const QColor& Color) {
  Change(&GeoMapWidget::graticuleColor, [&] { FMap->SetColorGratLine(FromQColor(Color)); });
}

QColor GeoMapWidget::calibrationPointColor() const { return ToQColor(FMap->ColorCalibPoints()); }
void GeoMapWidget::setCalibrationPointColor(const QColor& Color) {
  Change(&GeoMapWidget::calibrationPointColor,
         [&] { FMap->SetColorGratPoints(FromQColor(Color)); });
}

QColor GeoMapWidget::emptyMessageColor() const { return ToQColor(FMap->ColorFrame()); }
void GeoMapWidget::setEmptyMessageColor(const QColor& Color) {
  Change(&GeoMapWidget::emptyMessageColor, [&] { FMap->SetColorFrame(FromQColor(Color)); });
}

QString GeoMapWidget::emptyMessage() const { return ToQString(FMap->EmptyMsg()); }
void GeoMapWidget::setEmptyMessage(const QString& Text) {
  Change(&GeoMapWidget::emptyMessage, [&] { FMap->SetEmptyMsg(FromQString(Text)); });
}

GeoMapWidget::Frame GeoMapWidget::frameStyle() const {
  return static_cast<Frame>(FMap->FrameStyle());
}
void GeoMapWidget::setFrameStyle(Frame Style) {
  Change(&GeoMapWidget::frameStyle, [&] { FMap->SetFrameStyle(static_cast<TFrameStyle>(Style)); });
}

}  // namespace zav
