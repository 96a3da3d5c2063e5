// new_map_dialog.h - a map of a rectangle of degrees, as it will look, and its two files.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_NEW_MAP_DIALOG_H
#define ZAV_APPS_VIEWER_NEW_MAP_DIALOG_H

#include <array>
#include <optional>

#include <QDialog>

#include <geomap/view/empty_map.h>

class QCheckBox;
class QDoubleSpinBox;
class QLabel;
class QPushButton;
class QSpinBox;

namespace zav {

class NewMapDialog final : public QDialog {
  Q_OBJECT

 public:
  // Begins with the rectangle, where there is one.
  NewMapDialog(const std::optional<TCornerArray>& Around, QWidget* Parent);

  struct Rectangle {
    double South, West, North, East;
  };
  void setRectangle(const Rectangle& Degrees);
  void setWidthInPixels(int Pixels);
  // What would be made; nothing while problem() tells why not.
  std::optional<TEmptyMap> plan() const;
  QString problem() const;
  const QImage& preview() const { return FPreviewImage; }

 protected:
  void resizeEvent(QResizeEvent* Event) override;

 private:
  void rectangleChanged();
  void suggestGrid();
  void followProportions();
  void update();
  void showPreview();

  QDoubleSpinBox* FSouth;
  QDoubleSpinBox* FWest;
  QDoubleSpinBox* FNorth;
  QDoubleSpinBox* FEast;
  QDoubleSpinBox* FLatGrid;
  QDoubleSpinBox* FLongGrid;
  QSpinBox* FWidth;
  QSpinBox* FHeight;
  QCheckBox* FProportional;
  QLabel* FPreview;
  QLabel* FProblem;
  QPushButton* FCreate;
  QImage FPreviewImage;
  bool FGridChosen = false;  // by the user; it is not suggested any more
};

// Writes image and calibration; Path ends in ".xml". Returns what went wrong, empty = nothing.
QString WriteEmptyMap(const TEmptyMap& Map, const QString& Path);

}  // namespace zav

#endif
