// readout_button.cpp - the position under the mouse in the status bar.
// SPDX-License-Identifier: MIT
#include "readout_button.h"

#include <algorithm>

#include <QAction>
#include <QActionGroup>
#include <QContextMenuEvent>
#include <QMenu>

namespace zav {

ReadoutButton::ReadoutButton(QWidget* Parent)
    : QToolButton(Parent),
      FMenu(new QMenu(tr("&Position As"), this)),
      FFormats(new QActionGroup(this)) {
  setAutoRaise(true);
  setToolTip(
      tr("Position under the mouse. Click for the next way to write it, right-click to choose."));
  setAccessibleName(tr("Position under the mouse"));
  setContextMenuPolicy(Qt::CustomContextMenu);
  for (const ReadoutFormat Format : AllReadoutFormats) {
    QAction* Action = FMenu->addAction(ReadoutFormatName(Format));
    Action->setCheckable(true);
    Action->setChecked(Format == FFormat);
    Action->setData(static_cast<int>(Format));
    FFormats->addAction(Action);
  }
  connect(FFormats, &QActionGroup::triggered, this, [this](QAction* Action) {
    setFormat(static_cast<ReadoutFormat>(Action->data().toInt()));
  });
  connect(this, &QToolButton::clicked, this, [this] { setFormat(NextReadoutFormat(FFormat)); });
  updateText();
}

void ReadoutButton::setMap(TGeoEllipsoid Ellipsoid, double MetresPerPixel) {
  FEllipsoid = Ellipsoid;
  FMetresPerPixel = MetresPerPixel;
  FPosition.reset();
  updateText();
}

void ReadoutButton::setPosition(const std::optional<TCoords>& Position) {
  FPosition = Position;
  updateText();
}

void ReadoutButton::setFormat(ReadoutFormat Format) {
  if (Format == FFormat) return;
  FFormat = Format;
  for (QAction* Action : FFormats->actions())
    Action->setChecked(Action->data().toInt() == static_cast<int>(Format));
  updateText();
  emit formatChanged();
}

QString ReadoutButton::textFor(const TCoords& Position) const {
  return PositionText(Position, FFormat, FEllipsoid, FMetresPerPixel);
}

void ReadoutButton::updateText() {
  const QString NoPosition = tr("Position: %1").arg(ReadoutFormatName(FFormat));
  setText(FPosition ? textFor(*FPosition) : NoPosition);
  // A width that hardly any position exceeds, so that nothing moves with the mouse.
  const QString Wide = textFor({-60.0 - 48.0 / 60 - 48.0 / 3600, -168.0 - 48.0 / 60 - 48.0 / 3600});
  const int Margins = 16;
  setMinimumWidth(
      std::max(fontMetrics().horizontalAdvance(Wide), fontMetrics().horizontalAdvance(NoPosition)) +
      Margins);
}

}  // namespace zav
