// driver.h - the hands of the tour: keys, clicks and drags in the viewer's window, and pictures of
// it.
//
// All input goes in where that of the window system does, so that what is covered, not focused or
// disabled does not react here either. What is not there ends the tour with a message.
// SPDX-License-Identifier: MIT
#ifndef ZAV_DOCS_TOUR_DRIVER_H
#define ZAV_DOCS_TOUR_DRIVER_H

#include <functional>
#include <memory>

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QTest>
#include <QWidget>

#include <main_window.h>

namespace zav::tour {

[[noreturn]] void Fail(const QString& What);

class Driver {
 public:
  // Pictures go to a folder; Scratch is where the tour keeps its own copies of maps.
  Driver(QDir Pictures, QDir Scratch);

  // A new window of its own size with new settings, the last one closed.
  void begin(QSize Size, const QStringList& Paths);
  MainWindow& window() { return *FWindow; }
  TGeoMap& map() { return FWindow->mapWidget().map(); }
  // A copy of a sample, and of its image with it.
  QString copy(const QString& Sample);
  const QDir& scratch() const { return FScratch; }

  // Any visible widget or dialog of the program by its type and accessible name.
  template <typename T>
  T& named(const QString& Name) {
    for (QWidget* Each : QApplication::allWidgets())
      if (auto* Widget = qobject_cast<T*>(Each))
        if (Widget->isVisible() && Widget->accessibleName() == Name) return *Widget;
    Fail("there is no " + Name);
  }

  void key(Qt::Key Key, Qt::KeyboardModifiers Modifiers = {});
  void type(const QString& Text);
  void click(QWidget& Widget, QPoint At, Qt::MouseButton Button = Qt::LeftButton,
             Qt::KeyboardModifiers Modifiers = {});
  void click(QWidget& Widget) { click(Widget, Widget.rect().center()); }
  // On the map, at a pixel of its image or at a position.
  QPoint at(int X, int Y);
  QPoint at(double Latitude, double Longitude);
  void hover(QPoint Control);
  void clickMap(QPoint Control, Qt::KeyboardModifiers Modifiers = {}) {
    click(FWindow->mapWidget(), Control, Qt::LeftButton, Modifiers);
  }
  void dragMap(QPoint From, QPoint To);
  // Chooses an entry of a menu bar's menu by the beginnings of their texts, with the mouse.
  // Meanwhile is done while the dialog that the entry opens is there.
  void menu(const QString& Menu, const QString& Entry,
            const std::function<void(QWidget&)>& Meanwhile = nullptr);
  // Chooses an entry of the menu that is open.
  void popup(const QString& Entry);
  // Does something as soon as a dialog is open, another than the one open now.
  void whenDialogOpens(const std::function<void(QWidget&)>& Do);
  // Types a name into the dialog for files that is open, and Enter.
  static void answerFileDialog(QWidget& Dialog, const QString& Path);
  void choose(const QString& Box, const QString& Entry);

  // What stands on the screen where the widget is, or in a part of it.
  void picture(const QString& Name, QWidget& Of, QRect Part = {});
  void picture(const QString& Name, QRect Part = {}) { picture(Name, *FWindow, Part); }
  int pictureCount() const { return FCount; }

 private:
  QDir FPictures;
  QDir FScratch;
  std::unique_ptr<QSettings> FSettings;
  std::unique_ptr<MainWindow> FWindow;
  int FExpected = 0;  // dialogs that have not opened yet
  int FCount = 0;
};

}  // namespace zav::tour

#endif
