// go_to_dialog.h - one field for where to go; and the mark that shows where one arrived.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_GO_TO_DIALOG_H
#define ZAV_APPS_VIEWER_GO_TO_DIALOG_H

#include <optional>

#include <QDialog>
#include <QPointF>
#include <QTimer>
#include <QWidget>

#include "go_to_places.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace zav {

class GeoMapWidget;

// Stays open beside the map while one goes from place to place.
class GoToDialog final : public QDialog {
  Q_OBJECT

 public:
  explicit GoToDialog(QWidget* Parent);

  // The ellipsoid that typed metres are of.
  void setEllipsoid(TGeoEllipsoid Ellipsoid);
  QLineEdit& field() { return *FField; }
  // What is wrong with the text, or with the place after it was chosen.
  QString problem() const;
  void setProblem(const QString& Text);

 signals:
  void chosen(const GoToPlace& Place);

 private:
  void check();
  void go();

  TGeoEllipsoid FEllipsoid = TGeoEllipsoid::gelWGS84;
  QLineEdit* FField;
  QLabel* FProblem;
  QPushButton* FGo;
};

// A ring around a pixel of the map, for some seconds.
class PlaceMark final : public QWidget {
  Q_OBJECT

 public:
  explicit PlaceMark(GeoMapWidget& Widget);

  void showAt(QPointF MapPixel);
  std::optional<QPointF> place() const { return FPlace; }

 protected:
  bool eventFilter(QObject* Watched, QEvent* Event) override;
  void paintEvent(QPaintEvent* Event) override;

 private:
  void clear();

  GeoMapWidget& FWidget;
  std::optional<QPointF> FPlace;
  QTimer FTimer;
};

}  // namespace zav

#endif
