// landmark_menu.cpp - see landmark_menu.h.
// SPDX-License-Identifier: MIT
#include "landmark_menu.h"

#include <array>

#include <QAction>
#include <QActionGroup>
#include <QLabel>
#include <QSettings>
#include <QStatusBar>
#include <QToolBar>

#include <platform/qt/geo_map_widget.h>

#include "icons.h"
#include "landmark_workbench.h"

namespace zav {

namespace {

struct ModeRow {
  LandmarkMode Mode;
  ViewerIcon Icon;
  Qt::Key Key;
  const char* Text;
  const char* Tip;
  const char* Hint;
};

// clang-format off
constexpr std::array<ModeRow, 5> Modes{{
    {LandmarkMode::Select, ViewerIcon::LandmarkSelect, Qt::Key_S,
     QT_TRANSLATE_NOOP("zav::LandmarkMenu", "&Select and Move"),
     QT_TRANSLATE_NOOP("zav::LandmarkMenu", "Select a landmark by a click, move it by dragging"),
     QT_TRANSLATE_NOOP("zav::LandmarkMenu", "Click a landmark: select it. Drag it: move it. Drag elsewhere: move the map")},
    {LandmarkMode::Add, ViewerIcon::LandmarkAdd, Qt::Key_A,
     QT_TRANSLATE_NOOP("zav::LandmarkMenu", "&Add"),
     QT_TRANSLATE_NOOP("zav::LandmarkMenu", "Add a landmark by a click"),
     QT_TRANSLATE_NOOP("zav::LandmarkMenu", "Click: new landmark, then type its caption. Drag: move the map. Esc: end")},
    {LandmarkMode::Delete, ViewerIcon::LandmarkDelete, Qt::Key_X,
     QT_TRANSLATE_NOOP("zav::LandmarkMenu", "&Delete by a Click"),
     QT_TRANSLATE_NOOP("zav::LandmarkMenu", "Delete landmarks by clicks"),
     QT_TRANSLATE_NOOP("zav::LandmarkMenu", "Click a landmark: delete it. Drag: move the map. Esc: end")},
    {LandmarkMode::DeleteCircle, ViewerIcon::LandmarkDeleteCircle, Qt::Key_C,
     QT_TRANSLATE_NOOP("zav::LandmarkMenu", "Delete in a C&ircle"),
     QT_TRANSLATE_NOOP("zav::LandmarkMenu", "Delete the landmarks in a circle of degrees"),
     QT_TRANSLATE_NOOP("zav::LandmarkMenu", "Drag from the middle outwards: what is shown inside is deleted. Esc: end")},
    {LandmarkMode::DeleteRectangle, ViewerIcon::LandmarkDeleteRectangle, Qt::Key_B,
     QT_TRANSLATE_NOOP("zav::LandmarkMenu", "Delete in a &Rectangle"),
     QT_TRANSLATE_NOOP("zav::LandmarkMenu", "Delete the landmarks between two parallels and two meridians"),
     QT_TRANSLATE_NOOP("zav::LandmarkMenu", "Drag across: what is shown inside is deleted. Esc: end")},
}};
// clang-format on

const ModeRow& RowOf(LandmarkMode Mode) { return Modes.at(static_cast<size_t>(Mode)); }

}  // namespace

LandmarkMenu::LandmarkMenu(LandmarkWorkbench& Workbench, GeoMapWidget& Widget, QWidget* Parent)
    : QMenu(tr("&Landmarks"), Parent), FWorkbench(Workbench), FWidget(Widget) {
  setToolTipsVisible(true);
  FEdit = Workbench.dock().toggleViewAction();
  FEdit->setText(tr("&Edit Landmarks"));
  FEdit->setIcon(MakeIcon(ViewerIcon::Landmark));
  FEdit->setShortcut(Qt::Key_F6);
  FEdit->setToolTip(tr("Place, find and change landmarks (F6)"));
  addAction(FEdit);
  connect(FEdit, &QAction::toggled, this, &LandmarkMenu::setEditing);
  addFiles();
  addSeparator();
  addModes();
  addSeparator();
  addCommands();
  addCaptions();
  LandmarkTool& Tool = Workbench.tool();
  connect(&Workbench.document(), &LandmarkDocument::changed, this, &LandmarkMenu::update);
  connect(&Tool, &LandmarkTool::selectionChanged, this, &LandmarkMenu::update);
  connect(&Tool, &LandmarkTool::activeChanged, this, &LandmarkMenu::update);
  connect(&Tool, &LandmarkTool::modeChanged, this, &LandmarkMenu::update);
  connect(&Widget, &GeoMapWidget::settingsChanged, this, &LandmarkMenu::updateHint);
  connect(&Widget, &GeoMapWidget::mapChanged, this, &LandmarkMenu::updateHint);
  connect(&Tool, &LandmarkTool::menuRequested, this,
          [this](QPoint Position) { exec({FRemove}, Position, nullptr, parentWidget()); });
  update();
}

QAction* LandmarkMenu::add(const QString& Text, const QKeySequence& Key, const QString& Tip,
                           const std::function<void()>& Run) {
  QAction* Action = addAction(Text);
  if (!Key.isEmpty()) Action->setShortcut(Key);
  const QString Keys = Key.toString(QKeySequence::NativeText);
  Action->setToolTip(Keys.isEmpty() ? Tip : QStringLiteral("%1 (%2)").arg(Tip, Keys));
  // Not to the menu: it cuts what leads to it when an action moves to another menu.
  connect(Action, &QAction::triggered, &FWorkbench, Run);
  return Action;
}

void LandmarkMenu::addFiles() {
  LandmarkWorkbench& Work = FWorkbench;
  add(tr("&New"), {}, tr("Begin anew without landmarks"), [&Work] { Work.startNew(); });
  QAction* Open = add(tr("&Open..."), {}, tr("Open a file of landmarks"), [&Work] { Work.open(); });
  Open->setIcon(MakeIcon(ViewerIcon::OpenFile));
  add(tr("I&mport..."), {}, tr("Add the lines of a table (CSV) as landmarks"),
      [&Work] { Work.importTable(); });
  FSave = add(tr("&Save Landmarks"), QKeySequence::Save, tr("Write the file of landmarks"),
              [&Work] { Work.save(); });
  FSave->setIcon(MakeIcon(ViewerIcon::Save));
  FSave->setIconText(tr("Save"));
  FSaveAs = add(tr("Save Landmarks &As..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
                tr("Write the landmarks to another file"), [&Work] { Work.saveAs(); });
  FUndo = add(tr("&Undo"), QKeySequence::Undo, tr("Undo"), [&Work] { Work.undo(); });
  FUndo->setIcon(MakeIcon(ViewerIcon::Undo));
  FRedo = add(tr("&Redo"), {}, tr("Redo"), [&Work] { Work.redo(); });
  FRedo->setShortcuts(
      {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
  FRedo->setIcon(MakeIcon(ViewerIcon::Redo));
  FMine = {FSave, FSaveAs, FUndo, FRedo};
  for (QAction* Elsewhere : FMine) removeAction(Elsewhere);
  QToolBar& Bar = Work.dock().toolBar();
  Bar.addActions({Open, FSave, FUndo, FRedo});
  Bar.addSeparator();
}

void LandmarkMenu::addModes() {
  FModes = new QActionGroup(this);
  for (const ModeRow& Row : Modes) {
    QAction* Action = FModes->addAction(MakeIcon(Row.Icon), tr(Row.Text));
    Action->setCheckable(true);
    Action->setData(static_cast<int>(Row.Mode));
    Action->setShortcut(Row.Key);
    // A letter is a shortcut on the map only; elsewhere it is what is typed.
    Action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    Action->setToolTip(QStringLiteral("%1 (%2)").arg(
        tr(Row.Tip), Action->shortcut().toString(QKeySequence::NativeText)));
    addAction(Action);
    FWidget.addAction(Action);
    FWorkbench.dock().toolBar().addAction(Action);
  }
  connect(FModes, &QActionGroup::triggered, &FWorkbench, [this](const QAction* Action) {
    FWidget.setMouseMode(GeoMapWidget::MouseMode::Pan);  // no other tool of the map
    FWorkbench.tool().setMode(static_cast<LandmarkMode>(Action->data().toInt()));
    FWidget.setFocus();
  });
}

void LandmarkMenu::addCommands() {
  LandmarkWorkbench& Work = FWorkbench;
  FRemove = add(tr("Delete &Landmark"), QKeySequence::Delete, tr("Delete the selected landmark"),
                [&Work] { Work.tool().removeSelected(); });
  // In a field the key deletes a letter.
  FRemove->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  FWidget.addAction(FRemove);
  FRemoveAll = add(tr("Delete All"), {}, tr("Delete all landmarks"), [&Work] { Work.removeAll(); });
  addSeparator();
  add(tr("&Find..."), QKeySequence::Find, tr("Find landmarks by their text"), [&Work] {
    Work.dock().show();
    Work.dock().focusSearch();
  });
  add(tr("&Classes..."), {}, tr("Show, hide and delete classes"), [&Work] {
    Work.dock().show();
    Work.dock().showClasses();
  });
  add(tr("S&ymbols..."), {}, tr("Change the palette of symbols"), [&Work] { Work.editSymbols(); });
}

void LandmarkMenu::addCaptions() {
  QMenu* Captions = addMenu(tr("Ca&ptions"));
  FCaptions = new QActionGroup(this);
  const struct {
    TCaptions Captions;
    QString Text;
  } Choices[] = {{TCaptions::Free, tr("&Where There Is Room")},
                 {TCaptions::All, tr("&All")},
                 {TCaptions::None, tr("&None")}};
  for (const auto& Each : Choices) {
    QAction* Action = Captions->addAction(Each.Text);
    Action->setCheckable(true);
    Action->setData(static_cast<int>(Each.Captions));
    Action->setChecked(Each.Captions == FWorkbench.captions());
    FCaptions->addAction(Action);
  }
  connect(FCaptions, &QActionGroup::triggered, &FWorkbench, [this](const QAction* Action) {
    FWorkbench.setCaptions(static_cast<TCaptions>(Action->data().toInt()));
  });
}

void LandmarkMenu::addToFile(QMenu& File, QAction* Before, const QList<QAction*>& Instead) {
  File.insertActions(Before, {FSave, FSaveAs});
  FOthers += Instead;
  update();
}

void LandmarkMenu::addToEdit(QMenu& Edit, QAction* Before, const QList<QAction*>& Instead) {
  Edit.insertActions(Before, {FUndo, FRedo});
  FOthers += Instead;
  update();
}

void LandmarkMenu::addHintTo(QStatusBar& Bar) {
  FHint = new QLabel;
  FHint->setContentsMargins(6, 0, 6, 0);
  FHint->setAccessibleName(tr("Landmarks"));
  // What does not fit is cut off instead of widening the window.
  FHint->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  Bar.insertWidget(0, FHint, 3);
  FStatus = &Bar;
  connect(&Bar, &QStatusBar::messageChanged, this, &LandmarkMenu::updateHint);
  updateHint();
}

// --- following

void LandmarkMenu::setEditing(bool On) {
  FWorkbench.tool().setActive(On);
  if (On) FWidget.setFocus();
}

void LandmarkMenu::updateHint() {
  if (FHint == nullptr) return;
  const QString Text = tr(RowOf(FWorkbench.tool().mode()).Hint);
  FHint->setText(Text);
  FHint->setToolTip(Text);
  // A message takes its place for a while.
  if (FStatus->currentMessage().isEmpty()) FHint->setVisible(FWorkbench.tool().hasMouse());
}

void LandmarkMenu::update() {
  const LandmarkDocument& Document = FWorkbench.document();
  const LandmarkTool& Tool = FWorkbench.tool();
  const bool Active = Tool.isActive();
  // First those that go, so that no shortcut is there twice.
  for (QAction* Action : Active ? FOthers : FMine) Action->setVisible(false);
  for (QAction* Action : Active ? FMine : FOthers) Action->setVisible(true);
  FSave->setEnabled(Document.isModified());
  FSaveAs->setEnabled(Document.count() > 0 || !Document.fileName().isEmpty());
  FUndo->setEnabled(Document.canUndo());
  FRedo->setEnabled(Document.canRedo());
  FUndo->setText(Document.canUndo() ? tr("&Undo: %1").arg(Document.undoText()) : tr("&Undo"));
  FRedo->setText(Document.canRedo() ? tr("&Redo: %1").arg(Document.redoText()) : tr("&Redo"));
  for (QAction* Action : {FUndo, FRedo}) {
    const QString Keys = Action->shortcut().toString(QKeySequence::NativeText);
    Action->setToolTip(
        QStringLiteral("%1 (%2)").arg(QString(Action->text()).remove(QLatin1Char('&')), Keys));
    Action->setIconText(Action == FUndo ? tr("Undo") : tr("Redo"));
  }
  for (QAction* Action : FModes->actions()) {
    Action->setEnabled(Active);
    Action->setChecked(Action->data().toInt() == static_cast<int>(Tool.mode()));
  }
  FRemove->setEnabled(Active && Tool.selected() != 0);
  FRemoveAll->setEnabled(Document.count() > 0);
  updateHint();
}

void LandmarkMenu::load(const QSettings& Settings) {
  const int Captions =
      Settings.value("landmarks/captions", static_cast<int>(TCaptions::Free)).toInt();
  for (QAction* Action : FCaptions->actions())
    if (Action->data().toInt() == Captions) Action->trigger();
}

void LandmarkMenu::save(QSettings& Settings) const {
  Settings.setValue("landmarks/captions", static_cast<int>(FWorkbench.captions()));
}

}  // namespace zav
