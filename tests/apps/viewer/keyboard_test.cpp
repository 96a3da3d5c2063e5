// keyboard_test.cpp - the whole window without a mouse, and its colours.
// SPDX-License-Identifier: MIT
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QClipboard>
#include <QDockWidget>
#include <QMenuBar>
#include <QScrollBar>
#include <QSet>
#include <QStatusBar>
#include <QStyle>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>

#include "calibration_support.h"
#include "landmark_workbench.h"
#include "layers.h"
#include "map_pointer.h"
#include "readout_button.h"
#include "theme.h"

namespace zav {
namespace {

class KeyboardTest : public CalibrationTest {
 protected:
  void Press(Qt::Key Key, Qt::KeyboardModifiers Modifiers = {}, int Times = 1) {
    for (int i = 0; i < Times; ++i) QTest::keyClick(&Widget(), Key, Modifiers);
  }
  QString Readout() { return FWindow->findChild<ReadoutButton*>()->text(); }
};

// What a person can do something with.
bool IsInteractive(const QWidget* Widget) {
  return qobject_cast<const QAbstractButton*>(Widget) != nullptr ||
         qobject_cast<const QLineEdit*>(Widget) != nullptr ||
         qobject_cast<const QComboBox*>(Widget) != nullptr ||
         qobject_cast<const QAbstractSpinBox*>(Widget) != nullptr ||
         qobject_cast<const QAbstractItemView*>(Widget) != nullptr ||
         qobject_cast<const QTabBar*>(Widget) != nullptr ||
         (qobject_cast<const QAbstractSlider*>(Widget) != nullptr &&
          qobject_cast<const QScrollBar*>(Widget) == nullptr);
}

// Parts of another widget, which has the keyboard for them.
bool IsPart(const QWidget* Widget) {
  if (Widget->objectName().startsWith("qt_")) return true;
  const QWidget* Parent = Widget->parentWidget();
  for (; Parent != nullptr; Parent = Parent->parentWidget())
    if (qobject_cast<const QAbstractSpinBox*>(Parent) != nullptr ||
        qobject_cast<const QComboBox*>(Parent) != nullptr ||
        qobject_cast<const QLineEdit*>(Parent) != nullptr ||
        qobject_cast<const QAbstractItemView*>(Parent) != nullptr ||
        qobject_cast<const QTabBar*>(Parent) != nullptr)
      return true;
  return false;
}

void AddActionsOf(const QMenu& Menu, QSet<const QAction*>& Reached) {
  for (const QAction* Action : Menu.actions()) {
    Reached.insert(Action);
    if (Action->menu() != nullptr) AddActionsOf(*Action->menu(), Reached);
  }
}

TEST_F(KeyboardTest, EverythingIsReachedAndHasAName) {
  OpenBare("alps_utm32n.jpg");
  FWindow->landmarks().dock().show();
  for (QDockWidget* Dock : FWindow->findChildren<QDockWidget*>()) Dock->show();
  FWindow->calibration().document().addPoint(CalibPosition::OfDegrees(47, 8), {10, 10});
  QTest::qWait(1);
  QSet<const QAction*> InMenus;
  for (const QAction* Action : FWindow->menuBar()->actions())
    AddActionsOf(*Action->menu(), InMenus);

  // The round of Tab.
  QSet<const QWidget*> Round;
  Widget().setFocus();
  for (const QWidget* Each = Widget().nextInFocusChain(); Each != &Widget();
       Each = Each->nextInFocusChain())
    Round.insert(Each);
  int Walked = 0;
  for (QWidget* Each : FWindow->findChildren<QWidget*>()) {
    if (!Each->isVisible() || !Each->isEnabled() || !IsInteractive(Each) || IsPart(Each)) continue;
    const auto* Button = qobject_cast<const QToolButton*>(Each);
    const bool OnBar = qobject_cast<const QToolBar*>(Each->parentWidget()) != nullptr;
    const std::string Who = std::string(Each->metaObject()->className()) + " \"" +
                            Each->accessibleName().toStdString() + "\" in " +
                            Each->parentWidget()->metaObject()->className();
    ++Walked;
    // Tool bars repeat what the menus have.
    const bool InMenu = Button != nullptr && Button->defaultAction() != nullptr
                            ? InMenus.contains(Button->defaultAction())
                            : Button != nullptr && Button->menu() != nullptr &&
                                  InMenus.contains(Button->menu()->menuAction());
    if (!OnBar || !InMenu) {
      EXPECT_TRUE(Each->focusPolicy() & Qt::TabFocus) << Who;
      EXPECT_TRUE(Round.contains(Each)) << Who;
    }
    QAccessibleInterface* Face = QAccessible::queryAccessibleInterface(Each);
    ASSERT_NE(Face, nullptr) << Who;
    EXPECT_FALSE(Face->text(QAccessible::Name).isEmpty()) << Who;
  }
  EXPECT_GT(Walked, 40);
  EXPECT_TRUE(Widget().focusPolicy() & Qt::TabFocus);

  // No command is on a tool bar or a key only.
  int Commands = 0;
  for (const QToolBar* Bar : FWindow->findChildren<QToolBar*>())
    for (const QAction* Action : Bar->actions())
      if (!Action->isSeparator() && !Action->text().isEmpty()) {
        EXPECT_TRUE(InMenus.contains(Action)) << Action->text().toStdString();
        ++Commands;
      }
  for (const QAction* Action : FWindow->findChildren<QAction*>())
    if (!Action->shortcut().isEmpty()) {
      EXPECT_TRUE(InMenus.contains(Action)) << Action->text().toStdString();
      ++Commands;
    }
  EXPECT_GT(Commands, 40);
}

TEST_F(KeyboardTest, ThePointerReadsPlacesMeasuresAndDrags) {
  ASSERT_EQ(FWindow->openAll({Sample("alps_utm32n.xml")}), "");
  Action("Actual Size")->trigger();
  Widget().setTopLeft({200, 100});
  auto& Pointer = *FWindow->findChild<MapPointer*>();
  EXPECT_FALSE(Pointer.isVisible());
  Press(Qt::Key_Right);
  EXPECT_EQ(Widget().topLeft(), QPoint(240, 100));  // without it arrows move the map
  Action("Pointer by Keys")->trigger();
  EXPECT_TRUE(Pointer.isVisible());
  EXPECT_EQ(Pointer.position(), Widget().rect().center());
  const QString Middle = Readout();
  EXPECT_TRUE(Middle.contains("N")) << Middle.toStdString();
  Press(Qt::Key_Right, {}, 3);
  Press(Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(Pointer.position(), Widget().rect().center() + QPoint(3, -MapPointer::FarStep));
  EXPECT_EQ(Widget().topLeft(), QPoint(240, 100));
  EXPECT_NE(Readout(), Middle);

  // At the edge the map comes along.
  Press(Qt::Key_Down, Qt::ShiftModifier, Widget().height() / MapPointer::FarStep);
  EXPECT_GT(Widget().topLeft().y(), 100);
  EXPECT_TRUE(Widget().rect().contains(Pointer.position()));

  // Lengths: a click at either end.
  QTest::keyClick(&Widget(), Qt::Key_L);
  Press(Qt::Key_Return);
  Press(Qt::Key_Left, Qt::ShiftModifier, 5);
  Press(Qt::Key_Return);
  Action("Copy Length")->trigger();
  // 100 pixels of 250 metres, about.
  EXPECT_TRUE(QApplication::clipboard()->text().contains("km"))
      << QApplication::clipboard()->text().toStdString();
  Press(Qt::Key_Escape, {}, 2);

  // A drag with the hand: Shift+Enter holds the button, Enter lets it go.
  const QPoint Before = Widget().topLeft();
  Press(Qt::Key_Return, Qt::ShiftModifier);
  Press(Qt::Key_Right, Qt::ShiftModifier, 2);
  Press(Qt::Key_Return);
  // As with the mouse, the first step only tells that it is a drag.
  EXPECT_EQ(Widget().topLeft(), Before - QPoint(MapPointer::FarStep, 0));

  // A landmark.
  FWindow->landmarks().dock().show();
  FWindow->landmarks().tool().setMode(LandmarkMode::Add);
  Widget().setFocus();
  Press(Qt::Key_Space);
  ASSERT_EQ(FWindow->landmarks().document().count(), 1);
  FWindow->landmarks().tool().setMode(LandmarkMode::Select);

  // A calibration point, and the selected one moves again when the pointer is off.
  FWindow->calibration().dock().show();
  QTest::qWait(1);
  const int Points = Document().itemCount();
  Widget().setFocus();
  Press(Qt::Key_Up, Qt::ShiftModifier, 3);
  Press(Qt::Key_Return);
  Answer("46.5, 9.25");
  EXPECT_EQ(Document().itemCount(), Points + 1);
  Widget().setFocus();
  Action("Pointer by Keys")->trigger();
  EXPECT_FALSE(Pointer.isActive());
  const TPoint At = Document().item(Points).Pixel;
  Tool().select(Document().item(Points).Id);
  Press(Qt::Key_Right);
  EXPECT_EQ(Document().item(Points).Pixel.X, At.X + 1);
}

// Text by WCAG 2.1, 1.4.3; what is disabled need not be read, but seen.
TEST(Theme, WhatIsWrittenCanBeRead) {
  for (const Theme Each : {Theme::Light, Theme::Dark, Theme::Contrast}) {
    const QPalette Palette = PaletteOf(Each);
    const auto Ratio = [&](QPalette::ColorRole Text, QPalette::ColorRole Ground) {
      return ContrastRatio(Palette.color(Text), Palette.color(Ground));
    };
    using P = QPalette;
    const double Least = Each == Theme::Contrast ? 7 : 4.5;
    for (const auto& [Text, Ground] : std::initializer_list<std::pair<P::ColorRole, P::ColorRole>>{
             {P::WindowText, P::Window},
             {P::Text, P::Base},
             {P::Text, P::AlternateBase},
             {P::ButtonText, P::Button},
             {P::HighlightedText, P::Highlight},
             {P::ToolTipText, P::ToolTipBase},
             {P::Link, P::Window},
             {P::Link, P::Base},
             {P::PlaceholderText, P::Base},
             {P::BrightText, P::Window}})
      EXPECT_GE(Ratio(Text, Ground), Least)
          << ThemeKeyword(Each).toStdString() << " " << Text << " on " << Ground;
    EXPECT_GE(ContrastRatio(Palette.color(P::WindowText), MessageGround(Palette)), 4.5);
    EXPECT_GE(ContrastRatio(MessageStripe(Palette), Palette.color(P::Window)), 2.5);
    for (const auto& [Text, Ground] :
         {std::pair{P::WindowText, P::Window}, std::pair{P::Text, P::Base},
          std::pair{P::ButtonText, P::Button}})
      EXPECT_GE(ContrastRatio(Palette.color(P::Disabled, Text), Palette.color(Ground)), 3);
  }
  // The formula's own ends, and a pair from its publication: #777777 on white is 4.48.
  EXPECT_DOUBLE_EQ(ContrastRatio(Qt::black, Qt::white), 21);
  EXPECT_NEAR(ContrastRatio(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);
}

TEST_F(KeyboardTest, TheThemeIsRememberedAndTakenBack) {
  const QColor Before = QApplication::palette().color(QPalette::Window);
  const QString Style = QApplication::style()->name();
  Action("High Contrast")->trigger();
  EXPECT_EQ(QApplication::palette().color(QPalette::Window), QColor(Qt::black));
  EXPECT_EQ(ThemeIn(*FSettings), Theme::Contrast);
  Action("Dark")->trigger();
  QTest::qWait(1);
  EXPECT_EQ(FWindow->palette().color(QPalette::Window),
            PaletteOf(Theme::Dark).color(QPalette::Window));
  Action("As the System")->trigger();
  EXPECT_EQ(QApplication::palette().color(QPalette::Window), Before);
  EXPECT_EQ(QApplication::style()->name(), Style);
  EXPECT_EQ(ThemeIn(*FSettings), Theme::System);
  EXPECT_FALSE(ParseTheme("pink"));
}

}  // namespace
}  // namespace zav
