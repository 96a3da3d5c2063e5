/// @file
/// geo_map_widget.h - a widget that shows a calibrated map: TGeoMap for Qt developers.
///
/// @code
///   auto* Map = new zav::GeoMapWidget;
///   layout->addWidget(Map);
///   connect(Map, &zav::GeoMapWidget::errorOccurred, this, &Window::showError);
///   Map->loadMap("europe.xml");
/// @endcode
///
/// Users drag the map with the left button, zoom about the mouse with the wheel or a touchpad, and
/// use the keyboard: arrows pan (farther with Shift), + and - zoom, 0 shows the map at its own
/// size, F or Home all of it. mouseMode gives the left button other tools; Escape ends what was
/// begun with one, and so does the right button.
///
/// What has no Qt member is done on map(), the control itself. It belongs to the widget; sizes and
/// mouse events come from the widget only. docs/properties.md lists all properties and events.
///
/// No exception leaves this class but from its constructor and map(): the text of one that an
/// operation, a handler or a connected slot throws goes to errorOccurred(). A handler may delete
/// the widget during a mouse, wheel or key event; deleteLater() is right at any time.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_QT_GEO_MAP_WIDGET_H
#define ZAV_PLATFORM_QT_GEO_MAP_WIDGET_H

#include <functional>
#include <memory>
#include <optional>

#include <QColor>
#include <QPoint>
#include <QPointF>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <geomap/geo_map.h>
#include <platform/base/api.h>
#include <platform/qt/qt_host.h>

namespace zav {

class TQtControlWindow;

/// A calibrated map in a window of Qt.
class ZAVGEO_API GeoMapWidget : public QWidget, private TGeoMapObserver {
  Q_OBJECT

  Q_PROPERTY(QString mapFile READ mapFile WRITE loadMap NOTIFY mapChanged)
  Q_PROPERTY(QString imageFile READ imageFile WRITE loadImage NOTIFY mapChanged)
  Q_PROPERTY(QString caption READ caption WRITE setCaption NOTIFY calibrationChanged)
  Q_PROPERTY(CalibrationModel calibrationModel READ calibrationModel WRITE setCalibrationModel
                 NOTIFY calibrationChanged)
  Q_PROPERTY(
      double magnification READ magnification WRITE setMagnification NOTIFY magnificationChanged)
  Q_PROPERTY(QPoint topLeft READ topLeft WRITE setTopLeft NOTIFY topLeftChanged)
  Q_PROPERTY(bool confinePanToMapImage READ confinePanToMapImage WRITE setConfinePanToMapImage
                 NOTIFY settingsChanged)
  Q_PROPERTY(bool allowPan READ allowPan WRITE setAllowPan NOTIFY settingsChanged)
  Q_PROPERTY(MouseMode mouseMode READ mouseMode WRITE setMouseMode NOTIFY settingsChanged)
  Q_PROPERTY(bool antiAlias READ antiAlias WRITE setAntiAlias NOTIFY settingsChanged)
  Q_PROPERTY(double cacheMagnificationLimit READ cacheMagnificationLimit WRITE
                 setCacheMagnificationLimit NOTIFY settingsChanged)
  Q_PROPERTY(
      Graticule showGraticule READ showGraticule WRITE setShowGraticule NOTIFY settingsChanged)
  Q_PROPERTY(double graticuleSpacing READ graticuleSpacing WRITE setGraticuleSpacing NOTIFY
                 settingsChanged)
  Q_PROPERTY(int utmGridSpacing READ utmGridSpacing WRITE setUtmGridSpacing NOTIFY settingsChanged)
  Q_PROPERTY(
      QColor backgroundColor READ backgroundColor WRITE setBackgroundColor NOTIFY settingsChanged)
  Q_PROPERTY(
      QColor graticuleColor READ graticuleColor WRITE setGraticuleColor NOTIFY settingsChanged)
  Q_PROPERTY(QColor calibrationPointColor READ calibrationPointColor WRITE setCalibrationPointColor
                 NOTIFY settingsChanged)
  Q_PROPERTY(QColor emptyMessageColor READ emptyMessageColor WRITE setEmptyMessageColor NOTIFY
                 settingsChanged)
  Q_PROPERTY(QString emptyMessage READ emptyMessage WRITE setEmptyMessage NOTIFY settingsChanged)
  Q_PROPERTY(Frame frameStyle READ frameStyle WRITE setFrameStyle NOTIFY settingsChanged)

 public:
  /// What of the calibration is shown, as TShowGrat.
  enum class Graticule {
    NoGraticule,      ///< nothing
    Points,           ///< calibration points
    Lines,            ///< parallels and meridians
    PointsAndLines,   ///< both
    UtmGrid,          ///< whole metres of UTM
    PointsAndUtmGrid  ///< grid and calibration points
  };
  Q_ENUM(Graticule)
  /// The edge of the map, as TFrameStyle.
  enum class Frame {
    NoFrame,  ///< nothing
    Sunken,   ///< two pixels
    Raised,   ///< two pixels
    Single,   ///< one black line
    Etched    ///< a groove
  };
  Q_ENUM(Frame)
  /// What the left button does, as TMouseActMode.
  enum class MouseMode {
    NoAction = 0,       ///< nothing
    Pan = 1,            ///< drags the map
    PanHorizontal = 2,  ///< to the left and right only
    PanVertical = 3,    ///< up and down only
    RubberBand = 5,     ///< a line from click to click
    ZoomBox = 7,        ///< drags a box that then fills the widget
    ZoomDrag = 9,       ///< up zooms in, down out
    SelectRect = 16,    ///< drags a box that is reported
    MouseTrace = 17     ///< leaves a trace
  };
  Q_ENUM(MouseMode)
  /// How pixels and positions are tied, as TCalibModel.
  enum class CalibrationModel {
    Parabolic,          ///< parabolas through graticule lines
    Biquadratic,        ///< second-order polynomial
    ConicConformal,     ///< cone
    MillerCylindrical,  ///< Miller's projection
    Equirectangular,    ///< first order in degrees
    Utm,                ///< first order in UTM metres
    Undefined           ///< none
  };
  Q_ENUM(CalibrationModel)

  // Forms of Qt Designer name enumerators without their type.
  using enum Graticule;
  using enum Frame;
  using enum MouseMode;
  using enum CalibrationModel;

  /// An empty map. Throws std::bad_alloc when there is no memory for it.
  explicit GeoMapWidget(QWidget* Parent = nullptr);
  ~GeoMapWidget() override;

  /// The control. Its errors are thrown here, not signalled. Changes of view, calibration and image
  /// made on it are signalled as usual, other ones are not.
  TGeoMap& map() noexcept { return *FMap; }
  /// The same for reading.
  const TGeoMap& map() const noexcept { return *FMap; }
  /// The picture as it is shown, in device pixels.
  QImage picture() const;

  /// The calibration file of the map, empty when it was not loaded by loadMap().
  QString mapFile() const { return FMapFile; }
  /// The name of the map image, empty without a map.
  QString imageFile() const;
  /// The map's name for people.
  QString caption() const;
  /// The model that is fitted.
  CalibrationModel calibrationModel() const;
  /// Control pixels per pixel of the map image.
  double magnification() const;
  /// The pixel of the map image at the widget's top left corner.
  QPoint topLeft() const;
  /// Whether the user cannot leave the map image. True at first.
  bool confinePanToMapImage() const;
  /// Whether mouseMode is Pan.
  bool allowPan() const;
  /// What the left button does. Pan at first.
  MouseMode mouseMode() const;
  /// Whether the image is scaled smoothly. True at first.
  bool antiAlias() const;
  /// Below this magnification the scaled map is kept. 2/3 at first.
  double cacheMagnificationLimit() const;
  /// What of the calibration is shown. Nothing at first.
  Graticule showGraticule() const;
  /// Degrees; 0, at first, is automatic.
  double graticuleSpacing() const;
  /// Metres; 0, at first, is automatic.
  int utmGridSpacing() const;
  /// Around the map. Silver at first.
  QColor backgroundColor() const;
  /// Of graticule and grid. Blue at first.
  QColor graticuleColor() const;
  /// Red at first.
  QColor calibrationPointColor() const;
  /// Black at first.
  QColor emptyMessageColor() const;
  /// The message on an empty map.
  QString emptyMessage() const;
  /// Sunken at first.
  Frame frameStyle() const;

  /// 500 x 400.
  QSize sizeHint() const override { return {500, 400}; }
  /// 60 x 40.
  QSize minimumSizeHint() const override { return {60, 40}; }

 public Q_SLOTS:
  /// Shows the map that a calibration file tells of; the zoom history begins anew. False, and
  /// errorOccurred() tells why, when there is no such file, it is damaged, holds no calibration
  /// (the map shown before then stays), or its map image is missing or cannot be read.
  bool loadMap(const QString& CalibrationFile);
  /// Shows an image file (BMP, JPEG) with the calibration as it is. False in the same way.
  bool loadImage(const QString& ImageFile);
  /// No map, no calibration.
  void clear();
  /// The map's name for people.
  void setCaption(const QString& Caption);
  /// Fits the calibration points to another model.
  void setCalibrationModel(zav::GeoMapWidget::CalibrationModel Model);

  /// 0.5 to 2; beyond, errorOccurred() is emitted and nothing changes.
  void setMagnification(double Magnification);
  /// May leave the map.
  void setTopLeft(QPoint MapPixel);
  /// About the middle of the widget. At a limit nothing happens.
  void zoomIn();
  /// The same outwards.
  void zoomOut();
  /// Magnification 1.
  void zoomOneToOne();
  /// The whole map, whatever magnification that takes.
  void zoomToFit();
  /// Moves the view over the map by so many control pixels.
  void panBy(QPoint Distance);
  /// Degrees; as near as the edges allow. Nothing for a position that has no pixel.
  void centerOn(double Latitude, double Longitude);

  /// Turning it on moves the view inside the map.
  void setConfinePanToMapImage(bool On);
  /// Pan, or NoAction for false.
  void setAllowPan(bool On);
  /// Cancels what the mouse has begun with another one.
  void setMouseMode(zav::GeoMapWidget::MouseMode Mode);
  /// Repaints.
  void setAntiAlias(bool On);
  void setCacheMagnificationLimit(double Limit);  ///< 0 to 2/3
  /// Repaints.
  void setShowGraticule(zav::GeoMapWidget::Graticule Shown);
  void setGraticuleSpacing(double Degrees);  ///< 0 to 60; 0 is automatic
  void setUtmGridSpacing(int Metres);        ///< 0 to 10000000; 0 is automatic
  /// The opacity is dropped here and below.
  void setBackgroundColor(const QColor& Color);
  /// Repaints.
  void setGraticuleColor(const QColor& Color);
  /// Repaints.
  void setCalibrationPointColor(const QColor& Color);
  /// Repaints.
  void setEmptyMessageColor(const QColor& Color);
  /// One line; empty for nothing.
  void setEmptyMessage(const QString& Text);
  /// Repaints.
  void setFrameStyle(zav::GeoMapWidget::Frame Style);

 Q_SIGNALS:
  /// Something went wrong in an operation or a handler; the text is for people.
  void errorOccurred(const QString& text);

  /// Corner or magnification are others, by the user or the program; so with the next two.
  void viewChanged();
  /// Control pixels per pixel of the map image.
  void magnificationChanged(double magnification);
  /// The pixel at the top left corner.
  void topLeftChanged(QPoint mapPixel);
  /// Points, model, corners or caption are others.
  void calibrationChanged();
  /// Another map image, or none.
  void mapChanged();
  /// A setting was changed by one of this class's setters.
  void settingsChanged();
  /// A map image is being loaded.
  void dataLoading(int percentDone);

  /// The user zoomed or panned.
  void zoomPanned();
  /// A click began, continued (with Ctrl) or ended a rubber band; a selection begins like one.
  void rubberBandBegun(QPoint mapPixel);
  /// A click with Ctrl ended a line and began another.
  void rubberBandContinued(QPoint mapPixel);
  /// A click ended the line.
  void rubberBandEnded(QPoint mapPixel);
  /// A rectangle was selected: its corners where the mouse went down and up, in pixels of the map
  /// image, which may lie outside it; then in degrees, when both have a position.
  void pixelsSelected(QPoint from, QPoint to);
  /// The same in degrees, only when both corners have a position.
  void areaSelected(double fromLatitude, double fromLongitude, double toLatitude,
                    double toLongitude);

  /// Another position is under the mouse, because it moved or the map did, by the user or the
  /// program: in pixels of the map image and degrees. Not valid, and 0 degrees, without a map or
  /// calibration there, and when the mouse left.
  void mousePositionChanged(QPointF mapPosition, double latitude, double longitude, bool valid);
  /// The left button went up where it went down; a position in the widget.
  void clicked(QPoint position);
  /// The same for a double click.
  void doubleClicked(QPoint position);

 protected:
  // Qt's events, translated and passed on to the control.
  /// @cond
  bool event(QEvent* Event) override;
  bool eventFilter(QObject* Watched, QEvent* Event) override;
  void hideEvent(QHideEvent* Event) override;
  void paintEvent(QPaintEvent* Event) override;
  void resizeEvent(QResizeEvent* Event) override;
  void mousePressEvent(QMouseEvent* Event) override;
  void mouseMoveEvent(QMouseEvent* Event) override;
  void mouseReleaseEvent(QMouseEvent* Event) override;
  void mouseDoubleClickEvent(QMouseEvent* Event) override;
  void leaveEvent(QEvent* Event) override;
  void wheelEvent(QWheelEvent* Event) override;
  void keyPressEvent(QKeyEvent* Event) override;
  /// @endcond

 private:
  void ViewChanged(TGeoMap& Map) override;
  void CalibrationChanged(TGeoMap& Map) override;
  void ImageChanged(TGeoMap& Map) override;
  void Painted(TGeoMap& Map) override { FPaintedView = Map.View(); }
  void DataLoading(TGeoMap&, int PercentDone) override { Q_EMIT dataLoading(PercentDone); }
  void ZoomPanned(TGeoMap&) override { Q_EMIT zoomPanned(); }
  void RubberBandBegun(TGeoMap& Map, TPoint MapPixel) override;
  void RubberBandContinued(TGeoMap& Map, TPoint MapPixel) override;
  void RubberBandEnded(TGeoMap& Map, TPoint MapPixel) override;
  void PixelsSelected(TGeoMap& Map, TPoint From, TPoint To) override;
  void RectSelected(TGeoMap& Map, int Kind, double X1, double Y1, double X2, double Y2) override;
  void MouseBoxChanged(TGeoMap& Map) override;

  TQtControlWindow& Window() const;
  // Runs Call and reports what it throws. True when it threw nothing and the widget still exists.
  bool Guarded(const std::function<void()>& Call);
  // Runs Set, and tells when what Get returns is another value then.
  template <class TValue>
  void Change(TValue (GeoMapWidget::*Get)() const, const std::function<void()>& Set);
  // Runs Draw, which repaints, knowing that a paint event of all the widget follows.
  void BeforePaintEvent(const std::function<void()>& Draw);

  void LoadCalibration(const QString& CalibrationFile);
  void FollowScreen();
  void PressButton(const QMouseEvent& Event, TMouseButton Button);
  bool MouseEvent(const std::function<void()>& Call);
  bool MouseBusy() const { return FMap->MouseDragging() || FMap->RubberBandActive(); }
  void ZoomAt(QPointF Position, int Steps);
  // Qt counts eighths of a degree; a notch of an ordinary wheel is 15 degrees.
  static constexpr double UnitsPerStep = 120;
  static constexpr double UnitsPerDoubling = UnitsPerStep * TZoomGesture::StepsPerDoubling;
  // Turns by UnitsPerStep make a step; smaller ones add up.
  void TurnWheel(QPointF Position, double Units);
  bool HandleKey(int Key, bool Far);
  void ViewChangedByUser();
  void EndGesture();
  void ReportMousePosition();

  TQtHost FHost;
  std::unique_ptr<TGeoMap> FMap;
  QString FMapFile;
  TViewState FShownView;

  // What mousePositionChanged tells.
  struct TMousePosition {
    QPointF Map;
    TCoords Position;
    bool Valid = false;
    friend bool operator==(const TMousePosition&, const TMousePosition&) = default;
  };
  QPointF FMouse;
  bool FMouseInside = false;
  std::optional<TMousePosition> FToldPosition;
  QPoint FPressed;
  bool FRightEnds = false;  // the right button gives something up, so that it opens no menu
  TViewState FPaintedView;
  double FWheelUnits = 0;
  QTimer FGestureEnd;  // a pause in zooming and panning without the mouse makes one step of history
  TViewState FGestureView;  // what it led to
};

}  // namespace zav

#endif
