// calibration_menu.cpp - the menu of calibrating by hand.
// SPDX-License-Identifier: MIT
#include "calibration_menu.h"

#include <QAction>
#include <QActionGroup>
#include <QLabel>
#include <QSettings>
#include <QStatusBar>
#include <QToolBar>

#include "calibration_workbench.h"
#include "graticule_menu.h"
#include "icons.h"

namespace zav {

namespace {

constexpr int ResidualFactors[] = {0, 1, 10, 50, 200};

QAction* AddChoice(QMenu& Menu, QActionGroup& Group, const QString& Text, int Value) {
  QAction* Action = Menu.addAction(Text);
  Action->setCheckable(true);
  Action->setData(Value);
  Group.addAction(Action);
  return Action;
}

QString ArrowsText(int Factor) {
  if (Factor == 0) return CalibrationMenu::tr("&None");
  if (Factor == 1) return CalibrationMenu::tr("&True to scale");
  return CalibrationMenu::tr("%1 times as long").arg(Factor);
}

void CheckValue(const QActionGroup& Group, int Value) {
  for (QAction* Action : Group.actions())
    if (Action->data().toInt() == Value) Action->setChecked(true);
}

}  // namespace

CalibrationMenu::CalibrationMenu(CalibrationWorkbench& Workbench, GeoMapWidget& Widget,
                                 GraticuleMenu& Graticule, QWidget* Parent)
    : QMenu(tr("&Calibration"), Parent),
      FWorkbench(Workbench),
      FWidget(Widget),
      FGraticuleMenu(Graticule) {
  FCalibrate = Workbench.dock().toggleViewAction();
  FCalibrate->setText(tr("&Calibrate"));
  FCalibrate->setIcon(MakeIcon(ViewerIcon::Calibrate));
  FCalibrate->setShortcut(Qt::Key_F8);
  FCalibrate->setToolTip(tr("Set and check the points that calibrate the map (F8)"));
  addAction(FCalibrate);
  connect(FCalibrate, &QAction::toggled, this, &CalibrationMenu::setEditing);
  addFiles();
  addSeparator();
  addPointCommands();
  addSeparator();
  addLook();
  fillDock();
  CalibrationTool& Tool = Workbench.tool();
  connect(&Workbench.document(), &CalibDocument::changed, this, &CalibrationMenu::update);
  connect(&Tool, &CalibrationTool::selectionChanged, this, &CalibrationMenu::update);
  connect(&Tool, &CalibrationTool::activeChanged, this, &CalibrationMenu::update);
  connect(&Widget, &GeoMapWidget::settingsChanged, this, &CalibrationMenu::updateHint);
  connect(&Widget, &GeoMapWidget::mapChanged, this, &CalibrationMenu::updateHint);
  connect(&Tool, &CalibrationTool::menuRequested, this, [this](QPoint Position) {
    exec({FEdit, FSwitch, FRemove}, Position, nullptr, parentWidget());
  });
  connect(&Tool, &CalibrationTool::magnifierChanged, this,
          [this] { CheckValue(*FFactors, FWorkbench.tool().magnifier().factor()); });
  update();
}

QAction* CalibrationMenu::add(const QString& Text, const QKeySequence& Key, const QString& Tip,
                              const std::function<void()>& Run) {
  QAction* Action = addAction(Text);
  if (!Key.isEmpty()) Action->setShortcut(Key);
  const QString Keys = Key.toString(QKeySequence::NativeText);
  Action->setToolTip(Keys.isEmpty() ? Tip : QStringLiteral("%1 (%2)").arg(Tip, Keys));
  // Not to the menu: it cuts what leads to it when an action moves to another menu.
  connect(Action, &QAction::triggered, &FWorkbench, Run);
  return Action;
}

void CalibrationMenu::addFiles() {
  CalibrationWorkbench& Work = FWorkbench;
  FNew = add(tr("&New Calibration"), {}, tr("Begin anew with the open image, without points"),
             [&Work] { Work.startNew(); });
  FSave = add(tr("&Save Calibration"), QKeySequence::Save,
              tr("Write the calibration file; the image stays as it is"), [&Work] { Work.save(); });
  FSave->setIcon(MakeIcon(ViewerIcon::Save));
  FSaveAs = add(tr("Save Calibration &As..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
                tr("Write the calibration to another file"), [&Work] { Work.saveAs(); });
  FRevert = add(tr("Re&vert"), {}, tr("Back to the calibration as it was saved"),
                [&Work] { Work.revert(); });
  FImport = add(tr("&Import Points..."), {}, tr("Read points from a table (CSV)"),
                [&Work] { Work.importPoints(); });
  FExport = add(tr("&Export Points..."), {}, tr("Write the points to a table (CSV)"),
                [&Work] { Work.exportPoints(); });
  FUndo = add(tr("&Undo"), QKeySequence::Undo, tr("Undo"), [&Work] {
    Work.tool().abort();
    Work.document().undo();
  });
  FUndo->setIcon(MakeIcon(ViewerIcon::Undo));
  FRedo = add(tr("&Redo"), {}, tr("Redo"), [&Work] {
    Work.tool().abort();
    Work.document().redo();
  });
  FRedo->setShortcuts(
      {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
  FRedo->setIcon(MakeIcon(ViewerIcon::Redo));
  for (QAction* Elsewhere : {FSave, FSaveAs, FUndo, FRedo}) removeAction(Elsewhere);
}

void CalibrationMenu::addPointCommands() {
  CalibrationWorkbench& Work = FWorkbench;
  FAdd = add(tr("A&dd Point"), QKeySequence(Qt::Key_Insert),
             tr("Add a point at the mouse, or in the middle of the view"),
             [&Work] { Work.tool().addAtMouse(); });
  FEdit = add(tr("&Position of the Point..."), {}, tr("Type another position (Enter on the map)"),
              [&Work] { Work.tool().editSelected(); });
  FSwitch = add(tr("S&witch the Point Off"), QKeySequence(Qt::CTRL | Qt::Key_E),
                tr("Whether the point counts"), [&Work] {
                  CalibDocument& Document = Work.document();
                  const CalibItem* Item = Document.findItem(Work.tool().selected());
                  if (Item != nullptr) Document.setEnabled(Item->Id, !Item->Enabled);
                });
  FRemove = add(tr("&Remove Point"), QKeySequence::Delete, tr("Remove the selected point"),
                [&Work] { Work.removeSelected(); });
  FRemoveNearest = add(
      tr("Remove Point Nearest to the Mo&use"), QKeySequence(Qt::SHIFT | Qt::Key_Delete),
      tr("Remove the point nearest to the mouse"), [&Work] { Work.tool().removeNearestToMouse(); });
  FRestore =
      add(tr("Restore &Last Removed"), QKeySequence(Qt::CTRL | Qt::Key_R),
          tr("Put the point back that was removed last"), [&Work] { Work.restoreRemoved(); });
  FNext = add(tr("Ne&xt Point"), QKeySequence(Qt::CTRL | Qt::Key_PageDown), tr("Next point"),
              [&Work] { Work.tool().selectNext(1); });
  FPrevious = add(tr("Previous P&oint"), QKeySequence(Qt::CTRL | Qt::Key_PageUp),
                  tr("Previous point"), [&Work] { Work.tool().selectNext(-1); });
}

void CalibrationMenu::addLook() {
  CalibrationTool& Tool = FWorkbench.tool();
  FMagnifier = addAction(tr("Ma&gnifier"));
  FMagnifier->setCheckable(true);
  FMagnifier->setShortcut(Qt::Key_M);
  FMagnifier->setChecked(Tool.magnifierOn());
  connect(FMagnifier, &QAction::toggled, &Tool, &CalibrationTool::setMagnifierOn);
  QMenu* Factors = addMenu(tr("Magnifier Si&ze"));
  FFactors = new QActionGroup(this);
  for (int Factor = CalibrationMagnifier::MinFactor; Factor <= CalibrationMagnifier::MaxFactor;
       ++Factor)
    AddChoice(*Factors, *FFactors, tr("&%1 times").arg(Factor), Factor);
  connect(FFactors, &QActionGroup::triggered, this,
          [this](const QAction* Action) { setFactor(Action->data().toInt()); });
  setFactor(Tool.magnifier().factor());

  FNames = addAction(tr("Na&mes of the Points"));
  FNames->setCheckable(true);
  FNames->setChecked(Tool.overlay().showNames());
  connect(FNames, &QAction::toggled, &Tool.overlay(), &CalibrationOverlay::setShowNames);
  QMenu* Residuals = addMenu(tr("Residuals as &Arrows"));
  FResiduals = new QActionGroup(this);
  for (const int Factor : ResidualFactors)
    AddChoice(*Residuals, *FResiduals, ArrowsText(Factor), Factor);
  CheckValue(*FResiduals, 0);
  connect(FResiduals, &QActionGroup::triggered, this, [&Tool](const QAction* Action) {
    Tool.overlay().setResidualFactor(Action->data().toInt());
  });
  FGraticule = addAction(tr("Graticule w&hile Calibrating"));
  FGraticule->setCheckable(true);
  FGraticule->setChecked(true);
  connect(FGraticule, &QAction::toggled, this,
          [this](bool On) { showGraticule(On && FWorkbench.tool().isActive()); });
}

void CalibrationMenu::fillDock() {
  QToolBar& Bar = FWorkbench.dock().toolBar();
  Bar.addActions({FSave, FUndo, FRedo});
  Bar.addSeparator();
  Bar.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  // All of them are seen, however long their names are in a language.
  Bar.setMinimumWidth(Bar.sizeHint().width());
}

void CalibrationMenu::addToFile(QMenu& File, QAction* Before) {
  File.insertActions(Before, {FSave, FSaveAs});
  File.insertSeparator(Before);
}

void CalibrationMenu::addToEdit(QMenu& Edit, QAction* Before) {
  Edit.insertActions(Before, {FUndo, FRedo});
  Edit.insertSeparator(Before);
}

void CalibrationMenu::addHintTo(QStatusBar& Bar) {
  FHint = new QLabel;
  const QString Hint =
      tr("Click: new point. Drag a point, or arrow keys: move it. Drag elsewhere, middle button or "
         "Space: move the map. Wheel: zoom; with Ctrl: magnifier");
  FHint->setText(Hint);
  FHint->setToolTip(Hint);
  FHint->setContentsMargins(6, 0, 6, 0);
  // What does not fit is cut off instead of widening the window.
  FHint->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  Bar.insertWidget(0, FHint, 3);
  FHint->hide();
}

// --- following

void CalibrationMenu::setEditing(bool On) {
  FWorkbench.tool().setActive(On);
  showGraticule(On && FGraticule->isChecked());
  updateHint();
  if (On) FWidget.setFocus();
}

void CalibrationMenu::updateHint() {
  if (FHint != nullptr) FHint->setVisible(FWorkbench.tool().hasMouse());
}

void CalibrationMenu::showGraticule(bool On) {
  using Kind = GeoMapWidget::Graticule;
  const Kind Shown = FWidget.showGraticule();
  if (On && (Shown == Kind::NoGraticule || Shown == Kind::Points)) {
    FGraticuleBefore = Shown;
    FGraticuleShown = true;
    FGraticuleMenu.setKind(Kind::Lines);
  } else if (!On && FGraticuleShown) {
    FGraticuleShown = false;
    if (Shown == Kind::Lines) FGraticuleMenu.setKind(FGraticuleBefore);
  }
}

void CalibrationMenu::setFactor(int Factor) {
  FWorkbench.tool().magnifier().setFactor(Factor);
  CheckValue(*FFactors, FWorkbench.tool().magnifier().factor());
}

void CalibrationMenu::update() {
  const CalibDocument& Document = FWorkbench.document();
  const CalibrationTool& Tool = FWorkbench.tool();
  const bool Open = !Document.isEmpty();
  const bool Active = Open && Tool.isActive();
  const CalibItem* Item = Document.findItem(Tool.selected());
  const bool Any = Active && Document.itemCount() > 0;
  FNew->setEnabled(!Document.imagePath().isEmpty());
  FSave->setEnabled(Open && (Document.isModified() || Document.fileName().isEmpty()));
  FSaveAs->setEnabled(Open);
  FRevert->setEnabled(Document.isModified());
  FImport->setEnabled(Open);
  FExport->setEnabled(Document.itemCount() > 0);
  FUndo->setEnabled(Document.canUndo());
  FUndo->setText(Document.canUndo() ? tr("&Undo: %1").arg(Document.undoText()) : tr("&Undo"));
  FRedo->setEnabled(Document.canRedo());
  FRedo->setText(Document.canRedo() ? tr("&Redo: %1").arg(Document.redoText()) : tr("&Redo"));
  for (QAction* Action : {FUndo, FRedo}) {
    const QString Keys = Action->shortcut().toString(QKeySequence::NativeText);
    Action->setToolTip(
        QStringLiteral("%1 (%2)").arg(QString(Action->text()).remove(QLatin1Char('&')), Keys));
    Action->setIconText(Action == FUndo ? tr("Undo") : tr("Redo"));
  }
  FSave->setIconText(tr("Save"));
  FAdd->setEnabled(Active);
  FEdit->setEnabled(Active && Item != nullptr);
  FSwitch->setEnabled(Active && Item != nullptr);
  FSwitch->setText(Item != nullptr && !Item->Enabled ? tr("S&witch the Point On")
                                                     : tr("S&witch the Point Off"));
  FRemove->setEnabled(Active && Item != nullptr);
  FRemoveNearest->setEnabled(Any);
  FRestore->setEnabled(Active && Document.canRestoreRemoved());
  FNext->setEnabled(Any);
  FPrevious->setEnabled(Any);
}

void CalibrationMenu::load(const QSettings& Settings) {
  FMagnifier->setChecked(Settings.value("calibration/magnifier", true).toBool());
  setFactor(Settings.value("calibration/magnifierFactor", 6).toInt());
  FNames->setChecked(Settings.value("calibration/names", true).toBool());
  FGraticule->setChecked(Settings.value("calibration/graticule", true).toBool());
}

void CalibrationMenu::save(QSettings& Settings) const {
  Settings.setValue("calibration/magnifier", FMagnifier->isChecked());
  Settings.setValue("calibration/magnifierFactor", FWorkbench.tool().magnifier().factor());
  Settings.setValue("calibration/names", FNames->isChecked());
  Settings.setValue("calibration/graticule", FGraticule->isChecked());
}

}  // namespace zav
