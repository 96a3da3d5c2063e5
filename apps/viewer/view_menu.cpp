// view_menu.cpp - the menu and the actions that change the view.
// SPDX-License-Identifier: MIT
#include "view_menu.h"

#include <algorithm>

#include <QAction>
#include <QActionGroup>
#include <QSettings>
#include <QToolBar>

#include "view_layout.h"

namespace zav {

ViewMenu::ViewMenu(GeoMapWidget& Widget, QWidget* Parent)
    : QMenu(tr("&View"), Parent),
      FWidget(Widget),
      FAliveWidget(&Widget),
      FMap(Widget.map()),
      FHistory(FMap) {
  addZoom();
  addSeparator();
  addHistory();
  addSeparator();
  addLook();
  FMap.AddObserver(this);
  FMap.OnResize = [this](TCustomControl*) { resized(); };
  FMap.OnDataRendered = [this](TGeoMap*, TCanvas& Canvas) {
    CoverMargin(FMap.View(), controlSize(), mapSize(), FMap.ColorBackGnd(), Canvas);
  };
  updateActions();
}

ViewMenu::~ViewMenu() {
  if (!FAliveWidget) return;
  FMap.RemoveObserver(this);
  FMap.OnResize = nullptr;
  FMap.OnDataRendered = nullptr;
}

QAction* ViewMenu::addCommand(ViewerIcon Icon, const QString& Text, const QString& Tip,
                              const QList<QKeySequence>& Keys) {
  QAction* Action = addAction(MakeIcon(Icon), Text);
  Action->setShortcuts(Keys);
  const QString Key = Keys.constFirst().toString(QKeySequence::NativeText);
  Action->setToolTip(QStringLiteral("%1 (%2)").arg(Tip, Key));
  return Action;
}

void ViewMenu::addZoom() {
  FZoomIn =
      addCommand(ViewerIcon::ZoomIn, tr("Zoom &In"), tr("Zoom in"),
                 {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)});
  FZoomOut = addCommand(ViewerIcon::ZoomOut, tr("Zoom &Out"), tr("Zoom out"),
                        {QKeySequence(Qt::CTRL | Qt::Key_Minus)});
  FWhole = addCommand(ViewerIcon::Fit, tr("&Whole Map"), tr("Show the whole map"),
                      {QKeySequence(Qt::CTRL | Qt::Key_0)});
  FActualSize =
      addCommand(ViewerIcon::ActualSize, tr("&Actual Size"),
                 tr("Show the map at its own size, 100 %"), {QKeySequence(Qt::CTRL | Qt::Key_1)});
  connect(FZoomIn, &QAction::triggered, &FWidget, &GeoMapWidget::zoomIn);
  connect(FZoomOut, &QAction::triggered, &FWidget, &GeoMapWidget::zoomOut);
  connect(FWhole, &QAction::triggered, this, [this] {
    showWhole();
    remember();
  });
  connect(FActualSize, &QAction::triggered, this, [this] {
    setMagnification(1);
    remember();
  });
}

void ViewMenu::addHistory() {
  FBack = addCommand(ViewerIcon::Back, tr("View &Before"), tr("The view before"),
                     {QKeySequence(Qt::ALT | Qt::Key_Left), QKeySequence(Qt::Key_Back)});
  FForward = addCommand(ViewerIcon::Forward, tr("View A&fter"), tr("The view after"),
                        {QKeySequence(Qt::ALT | Qt::Key_Right), QKeySequence(Qt::Key_Forward)});
  connect(FBack, &QAction::triggered, this, [this] {
    FHistory.canGoBack() ? FHistory.goBack() : emit mapWanted(-1);
    updateActions();
  });
  connect(FForward, &QAction::triggered, this, [this] {
    FHistory.canGoForward() ? FHistory.goForward() : emit mapWanted(1);
    updateActions();
  });
}

void ViewMenu::addLook() {
  FSmooth = addAction(tr("&Smooth Scaling"));
  FSmooth->setCheckable(true);
  FSmooth->setChecked(FMap.AntiAlias());
  connect(FSmooth, &QAction::toggled, this, [this](bool On) { FWidget.setAntiAlias(On); });
  FConfine = addAction(tr("&Keep Inside the Map"));
  FConfine->setCheckable(true);
  FConfine->setChecked(FMap.ConfinePanToMapImage());
  connect(FConfine, &QAction::toggled, this, [this](bool On) {
    FWidget.setConfinePanToMapImage(On);
    tidy();
  });

  QMenu* Frames = addMenu(tr("F&rame"));
  FFrames = new QActionGroup(this);
  for (const auto& [Style, Text] : {std::pair{GeoMapWidget::Frame::NoFrame, tr("No &Frame")},
                                    std::pair{GeoMapWidget::Frame::Sunken, tr("&Sunken")},
                                    std::pair{GeoMapWidget::Frame::Raised, tr("&Raised")},
                                    std::pair{GeoMapWidget::Frame::Single, tr("Single &Line")},
                                    std::pair{GeoMapWidget::Frame::Etched, tr("&Etched")}}) {
    QAction* Action = Frames->addAction(Text);
    Action->setCheckable(true);
    Action->setData(static_cast<int>(Style));
    Action->setChecked(Style == FWidget.frameStyle());
    FFrames->addAction(Action);
  }
  connect(FFrames, &QActionGroup::triggered, this, [this](QAction* Action) {
    FWidget.setFrameStyle(static_cast<GeoMapWidget::Frame>(Action->data().toInt()));
  });
}

void ViewMenu::addTo(QToolBar& ToolBar) const {
  ToolBar.addActions({FZoomIn, FZoomOut, FWhole, FActualSize});
  ToolBar.addSeparator();
  ToolBar.addActions({FBack, FForward});
}

void ViewMenu::show(const TViewState& View) {
  if (FMap.MapImgFile().empty()) return;
  FMap.SetView(View.TopLeft, View.Magnification);
}

void ViewMenu::showFitted(double Largest) {
  show(FittedView(FMap.View(), controlSize(), mapSize(), Largest));
  FFitted = FMap.View();
  FFittedLargest = Largest;
}

void ViewMenu::showOpened() {
  FArrived.reset();
  showFitted(1);
  FHistory.restart();
  updateActions();
}

void ViewMenu::showWhole() { showFitted(MaxMagnification); }

void ViewMenu::setMagnification(double Magnification) {
  TViewState View = WithMagnification(FMap.View(), controlSize(), Magnification);
  if (FMap.ConfinePanToMapImage()) View = TidyView(View, controlSize(), mapSize());
  show(View);
}

void ViewMenu::remember() {
  FHistory.remember();
  updateActions();
}

void ViewMenu::showArrived(const std::function<void()>& Place, bool Exact) {
  FFittedLargest = 0;
  FArrived.reset();
  FArriving = Exact;
  Place();
  FArriving = false;
  if (Exact) FArrived = FMap.View();
  tidy();
  FHistory.restart();
  updateActions();
}

void ViewMenu::showTrail(const ViewTrail& Trail) {
  FFittedLargest = 0;
  FArriving = true;
  FHistory.restore(Trail);
  FArriving = false;
  FArrived = FMap.View();
  updateActions();
}

void ViewMenu::setMapsAround(bool Before, bool After) {
  FMapBefore = Before;
  FMapAfter = After;
  updateActions();
}

// The control itself puts a map that is smaller than the window into the corner.
void ViewMenu::tidy() {
  if (!FMap.ConfinePanToMapImage() || FMap.MapImgFile().empty()) return;
  if (FArriving || FMap.View() == FArrived) return;
  const TViewState Tidy = TidyView(FMap.View(), controlSize(), mapSize());
  if (Tidy != FMap.View()) FMap.SetView(Tidy.TopLeft, Tidy.Magnification);
}

void ViewMenu::resized() {
  FArrived.reset();
  const bool OnlyView = !FHistory.canGoBack() && !FHistory.canGoForward();
  if (FFittedLargest > 0 && FMap.View() == FFitted)
    showFitted(FFittedLargest);
  else
    tidy();
  // It is still the view that the map was opened with.
  if (OnlyView) FHistory.restart();
  updateActions();
}

void ViewMenu::ViewChanged(TGeoMap&) {
  tidy();
  updateActions();
  emit viewChanged();
}

void ViewMenu::ImageChanged(TGeoMap&) { updateActions(); }

void ViewMenu::updateActions() {
  const bool HasMap = !FMap.MapImgFile().empty();
  FZoomIn->setEnabled(HasMap && FMap.Magnification() < MaxMagnification);
  FZoomOut->setEnabled(HasMap && FMap.Magnification() > MinMagnification);
  FWhole->setEnabled(HasMap);
  FActualSize->setEnabled(HasMap);
  FBack->setEnabled(FMapBefore || (HasMap && FHistory.canGoBack()));
  FForward->setEnabled(FMapAfter || (HasMap && FHistory.canGoForward()));
}

void ViewMenu::load(const QSettings& Settings) {
  FSmooth->setChecked(Settings.value("view/smooth", true).toBool());
  FConfine->setChecked(Settings.value("view/confine", true).toBool());
  const int Frame = Settings.value("view/frame", static_cast<int>(FWidget.frameStyle())).toInt();
  for (QAction* Action : FFrames->actions())
    if (Action->data().toInt() == Frame) Action->trigger();
}

void ViewMenu::save(QSettings& Settings) const {
  Settings.setValue("view/smooth", FSmooth->isChecked());
  Settings.setValue("view/confine", FConfine->isChecked());
  Settings.setValue("view/frame", static_cast<int>(FWidget.frameStyle()));
}

}  // namespace zav
