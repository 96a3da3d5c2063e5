// readout_button.h - the position under the mouse in the status bar: a click changes how it is
// written.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_READOUT_BUTTON_H
#define ZAV_APPS_VIEWER_READOUT_BUTTON_H

#include <optional>

#include <QToolButton>

#include "position_readout.h"

class QActionGroup;
class QMenu;

namespace zav {

class ReadoutButton final : public QToolButton {
  Q_OBJECT

 public:
  explicit ReadoutButton(QWidget* Parent = nullptr);

  // What positions are taken on: the map's ellipsoid and resolution.
  void setMap(TGeoEllipsoid Ellipsoid, double MetresPerPixel);
  // Nothing when the mouse is not over a calibrated map.
  void setPosition(const std::optional<TCoords>& Position);
  ReadoutFormat format() const { return FFormat; }
  void setFormat(ReadoutFormat Format);

  // The formats as a choice, and copying; owned by this button.
  QMenu* formatMenu() const { return FMenu; }
  // A position in the present format.
  QString textFor(const TCoords& Position) const;

 signals:
  void formatChanged();

 private:
  void updateText();

  ReadoutFormat FFormat = ReadoutFormat::Degrees;
  TGeoEllipsoid FEllipsoid = TGeoEllipsoid::gelWGS84;
  double FMetresPerPixel = 0;
  std::optional<TCoords> FPosition;
  QMenu* FMenu;
  QActionGroup* FFormats;
};

}  // namespace zav

#endif
