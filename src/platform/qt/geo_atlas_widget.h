/// @file
/// geo_atlas_widget.h - a widget that shows one of several maps: TGeoAtlas for Qt developers.
///
/// @code
///   auto* Atlas = new zav::GeoAtlasWidget;
///   layout->addWidget(Atlas);
///   connect(Atlas, &zav::GeoAtlasWidget::errorOccurred, this, &Window::showError);
///   for (const QString& File : Files) Atlas->registerMap(File);
///   Atlas->selectMap(1);
/// @endcode
///
/// The map is shown in a GeoMapWidget, mapWidget(), whose members and signals are all there to be
/// used. Above it a panel holds a pointer button, a zoom button and the list of maps; it can be
/// hidden. While the zoom button is down, a click with the left button goes to a more detailed map
/// of the place, with any other button to a less detailed one.
///
/// What has no Qt member is done on atlas(), the control itself; changes made there are signalled
/// at the next event. Exceptions end as with GeoMapWidget: in errorOccurred().
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_QT_GEO_ATLAS_WIDGET_H
#define ZAV_PLATFORM_QT_GEO_ATLAS_WIDGET_H

#include <functional>
#include <memory>

#include <QColor>
#include <QString>
#include <QWidget>

#include <geoatlas/geo_atlas.h>
#include <platform/base/api.h>
#include <platform/qt/geo_map_widget.h>

namespace zav {

/// One of several maps in a window of Qt, with the panel to choose.
class ZAVGEO_API GeoAtlasWidget : public QWidget, private TGeoMapObserver {
  Q_OBJECT

  Q_PROPERTY(int mapCount READ mapCount NOTIFY mapsChanged)
  Q_PROPERTY(int currentMap READ currentMap WRITE selectMap NOTIFY currentMapChanged)
  Q_PROPERTY(bool zoomMode READ zoomMode WRITE setZoomMode NOTIFY zoomModeChanged)
  Q_PROPERTY(bool commandPanelVisible READ commandPanelVisible WRITE setCommandPanelVisible NOTIFY
                 settingsChanged)
  Q_PROPERTY(
      QColor mapOutlineColor READ mapOutlineColor WRITE setMapOutlineColor NOTIFY settingsChanged)
  Q_PROPERTY(bool mapOutlineVisible READ mapOutlineVisible WRITE setMapOutlineVisible NOTIFY
                 settingsChanged)
  Q_PROPERTY(double minResDiff READ minResDiff WRITE setMinResDiff NOTIFY settingsChanged)
  Q_PROPERTY(
      qint64 keptImagesLimit READ keptImagesLimit WRITE setKeptImagesLimit NOTIFY settingsChanged)

 public:
  /// An empty atlas.
  explicit GeoAtlasWidget(QWidget* Parent = nullptr);
  ~GeoAtlasWidget() override;

  /// The control; it belongs to the widget.
  TGeoAtlas& atlas() noexcept { return *FAtlas; }
  /// The same for reading.
  const TGeoAtlas& atlas() const noexcept { return *FAtlas; }
  /// The widget in which the map is shown. It belongs to this one.
  GeoMapWidget& mapWidget() const noexcept { return *FMapWidget; }

  /// Maps are numbered from 1, 0 is none.
  int mapCount() const;
  /// The map selected last, also when it could not be loaded.
  int currentMap() const;
  /// The calibration file of a map; empty for an index that is none.
  QString mapFile(int Index) const;
  /// The caption of a map, or its file's name; empty for an index that is none.
  QString mapCaption(int Index) const;
  /// Whether clicks go to other maps. False at first.
  bool zoomMode() const;
  /// Whether the panel is there. True at first.
  bool commandPanelVisible() const;
  /// Colour of the outlines of the other maps. Blue at first.
  QColor mapOutlineColor() const;
  /// Whether they are drawn. True at first.
  bool mapOutlineVisible() const;
  /// Percent by which a map must be more detailed to be gone to.
  double minResDiff() const;
  /// Bytes of images that are kept in memory besides the one that is shown, those shown longest ago
  /// go first; 96,000,000 at first, room for eight maps of the largest size.
  qint64 keptImagesLimit() const;

  /// 480 x 320.
  QSize sizeHint() const override { return {480, 320}; }

 public Q_SLOTS:
  /// Adds a map by its calibration file, or reads it again. False, and errorOccurred() tells why,
  /// when it cannot be read or 200 maps are there.
  bool registerMap(const QString& CalibrationFile);
  /// The next map takes its place, also on the screen.
  void unregisterMap(int Index);
  /// No maps; the one that is shown stays.
  void unregisterAll();
  /// False, and errorOccurred() tells why, when there is no such map or it cannot be loaded. A
  /// missing image is told by errorOccurred() only.
  bool selectMap(int Index);
  /// Shows the map that covers a position and is the least step more (less) detailed than the one
  /// that is shown, with the position in the middle as far as the edges allow. False when there is
  /// none.
  bool zoomIn(double Latitude, double Longitude);
  /// The same towards less detail.
  bool zoomOut(double Latitude, double Longitude);
  /// As the buttons do: in zoom mode clicks go to other maps and the mouse does not move the map.
  void setZoomMode(bool On);

  /// Shows or hides the panel.
  void setCommandPanelVisible(bool On);
  /// Repaints; the opacity is dropped.
  void setMapOutlineColor(const QColor& Color);
  /// Repaints.
  void setMapOutlineVisible(bool On);
  /// Percent.
  void setMinResDiff(double Percent);
  /// 0 keeps none.
  void setKeptImagesLimit(qint64 Bytes);

 Q_SIGNALS:
  /// Something went wrong in an operation, a handler or the map's widget; the text is for people.
  void errorOccurred(const QString& text);
  /// Maps were registered or unregistered.
  void mapsChanged();
  /// Another map was selected, by the user or the program.
  void currentMapChanged(int index);
  /// By the buttons or by the program.
  void zoomModeChanged(bool on);
  /// A setting was changed by one of this class's setters.
  void settingsChanged();

  /// The user has pressed a button of the panel, or chosen a map in its list.
  void zoomButtonClicked();
  /// The user has pressed the pointer button.
  void pointerButtonClicked();
  /// The user has chosen a map, counted from 1.
  void mapChosen(int index);
  /// On the map.
  void clicked(QPoint position);
  /// A double click on the map.
  void doubleClicked(QPoint position);

 protected:
  // Qt's events, translated and passed on to the control.
  /// @cond
  void resizeEvent(QResizeEvent* Event) override;
  void showEvent(QShowEvent* Event) override;
  /// @endcond

 private:
  class TAtlasHost;

  void MousePressed(TGeoMap& Map, TMouseButton, TShiftState, TPoint Control) override;

  bool Guarded(const std::function<void()>& Call);
  // Runs an operation of the atlas, and tells what it changed and what went wrong.
  bool Operate(const std::function<bool()>& Operation);
  void Change(const std::function<void()>& Set);
  void TellChanges();
  void FollowScreen();

  GeoMapWidget* FMapWidget;
  std::unique_ptr<TAtlasHost> FHost;
  std::unique_ptr<TGeoAtlas> FAtlas;

  // What was told last.
  int FToldCount = 0;
  int FToldCurrent = 0;
  bool FToldZoomMode = false;
};

}  // namespace zav

#endif
