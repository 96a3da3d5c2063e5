// main_window_tools.cpp - the viewer's window: the tools of the mouse.
// SPDX-License-Identifier: MIT
#include <QAction>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

#include <platform/qt/geo_map_widget.h>

#include "calibration_workbench.h"
#include "export_menu.h"
#include "main_window.h"
#include "map_pointer.h"
#include "message_bar.h"
#include "tool_menu.h"
#include "view_menu.h"

namespace zav {

void MainWindow::makeTools() {
  FTools = new ToolMenu(
      *FWidget, [this](QPointF MapPixel) { return textAt(MapPixel); }, this);
  menuBar()->insertMenu(menuBar()->actions().constLast(), FTools);  // before the help
  FTools->addHintTo(*statusBar());
  connect(FTools, &ToolMenu::told, this,
          [this](const QString& Text) { statusBar()->showMessage(Text, 5000); });
  connect(FTools, &ToolMenu::copyText, this, &MainWindow::copyText);
  connect(FTools, &ToolMenu::saveRectangle, FExport, &ExportMenu::saveRectangle);
  connect(FTools, &ToolMenu::viewChosen, FView, &ViewMenu::remember);
  connect(&FCalibration->tool(), &CalibrationTool::activeChanged, FTools, &ToolMenu::setMouseTaken);
  connect(FWidget, &GeoMapWidget::errorOccurred, this, [this](const QString& Text) {
    if (!FTools->dealsWith(Text)) report(Text);
  });
  QToolBar* Bar = addToolBar(tr("Mouse"));
  Bar->setObjectName(QStringLiteral("mouse-tools"));
  FTools->addTo(*Bar);
}

// After all other parts that look at the map's events.
void MainWindow::makePointer() {
  FPointer = new MapPointer(*FWidget);
  QAction* Action = new QAction(tr("Pointer b&y Keys"), this);
  Action->setCheckable(true);
  Action->setShortcut(Qt::Key_K);
  Action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  Action->setToolTip(tr("Do what the mouse does on the map with the arrow keys and Enter (K)"));
  FWidget->addAction(Action);
  FView->addAction(Action);
  connect(Action, &QAction::toggled, this, [this](bool On) {
    FPointer->setActive(On);
    if (On)
      statusBar()->showMessage(
          tr("Arrows: move. Shift: farther. Enter: click. Shift+Enter: drag. K: end"), 15000);
  });
}

bool MainWindow::mouseIsOnMap() const {
  return FWidget->underMouse() || (FPointer != nullptr && FPointer->isActive());
}

}  // namespace zav
