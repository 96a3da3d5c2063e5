// SPDX-License-Identifier: MIT
#include "driver.h"

#include <cstdio>
#include <cstdlib>

#include <QApplication>
#include <QComboBox>
#include <QCursor>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <platform/qt/geo_map_widget.h>

namespace zav::tour {

namespace {

constexpr int Settle = 60;          // milliseconds for the program to react to each step
constexpr int BeforePicture = 400;  // and to come to rest
constexpr int DialogTimeout = 5000;

QString Plain(QString Text) { return Text.remove('&'); }

QAction& Find(const QList<QAction*>& Actions, const QString& Text) {
  for (QAction* Each : Actions)
    if (Each->isVisible() && Plain(Each->text()).startsWith(Text)) return *Each;
  Fail("there is no entry " + Text);
}

}  // namespace

void Fail(const QString& What) {
  std::fprintf(stderr, "tour: %s\n", qPrintable(What));
  std::_Exit(1);
}

Driver::Driver(QDir Pictures, QDir Scratch)
    : FPictures(std::move(Pictures)), FScratch(std::move(Scratch)) {}

void Driver::begin(QSize Size, const QStringList& Paths) {
  FWindow.reset();
  FScratch.remove("settings.ini");
  FSettings = std::make_unique<QSettings>(FScratch.filePath("settings.ini"), QSettings::IniFormat);
  FWindow = std::make_unique<MainWindow>(FSettings.get());
  FWindow->move(0, 0);
  FWindow->resize(Size);
  FWindow->show();
  if (!QTest::qWaitForWindowExposed(FWindow.get())) Fail("the window does not open");
  FWindow->activateWindow();
  QTest::qWait(Settle);
  if (!Paths.isEmpty()) FWindow->openAll(Paths);
  FWindow->mapWidget().setFocus();
  QTest::qWait(Settle);
}

QString Driver::copy(const QString& Sample) {
  const QFileInfo From(QStringLiteral(ZAVGEO_SAMPLES "/maps/") + Sample);
  for (const char* Suffix : {"xml", "jpg", "bmp"}) {
    const QString Name = From.completeBaseName() + '.' + QLatin1String(Suffix);
    FScratch.remove(Name);
    QFile::copy(From.dir().filePath(Name), FScratch.filePath(Name));
  }
  if (!FScratch.exists(Sample)) Fail("there is no sample " + Sample);
  return FScratch.filePath(Sample);
}

void Driver::key(Qt::Key Key, Qt::KeyboardModifiers Modifiers) {
  QWidget* Window = QApplication::activePopupWidget();
  // On a display without a window manager nobody gives the keyboard back when a window closes.
  if (Window == nullptr && QApplication::activeWindow() == nullptr) {
    FWindow->activateWindow();
    static_cast<void>(QTest::qWaitForWindowActive(FWindow.get()));
  }
  if (Window == nullptr) Window = QApplication::activeWindow();
  if (Window == nullptr) Fail("no window takes keys");
  QTest::keyClick(Window->windowHandle(), Key, Modifiers);
  QTest::qWait(Settle);
}

void Driver::type(const QString& Text) {
  QWidget* Focus = QApplication::focusWidget();
  if (Focus == nullptr) Fail("nothing takes the text " + Text);
  QTest::keyClicks(Focus, Text);
  QTest::qWait(Settle);
}

void Driver::click(QWidget& Widget, QPoint At, Qt::MouseButton Button,
                   Qt::KeyboardModifiers Modifiers) {
  QWidget& Window = *Widget.window();
  const QPoint Place = Widget.mapTo(&Window, At);
  QCursor::setPos(Widget.mapToGlobal(At));
  QTest::mouseMove(Window.windowHandle(), Place);
  QTest::qWait(Settle);
  QTest::mouseClick(Window.windowHandle(), Button, Modifiers, Place);
  QTest::qWait(Settle);
}

QPoint Driver::at(int X, int Y) {
  const TPoint Control = map().MapImageToControl({X, Y});
  return {Control.X, Control.Y};
}

QPoint Driver::at(double Latitude, double Longitude) {
  TPoint Pixel;
  if (!map().CalcPixelCoords(Latitude, Longitude, Pixel.X, Pixel.Y)) Fail("a place is off the map");
  return at(Pixel.X, Pixel.Y);
}

void Driver::hover(QPoint Control) {
  GeoMapWidget& Widget = FWindow->mapWidget();
  QCursor::setPos(Widget.mapToGlobal(Control));
  QTest::mouseMove(FWindow->windowHandle(), Widget.mapTo(FWindow.get(), Control));
  QTest::qWait(Settle);
}

void Driver::dragMap(QPoint From, QPoint To) {
  GeoMapWidget& Widget = FWindow->mapWidget();
  QWindow* Window = FWindow->windowHandle();
  hover(From);
  QTest::mousePress(Window, Qt::LeftButton, {}, Widget.mapTo(FWindow.get(), From));
  for (int i = 1; i <= 8; ++i) {
    QTest::mouseMove(Window, Widget.mapTo(FWindow.get(), From + (To - From) * i / 8));
    QTest::qWait(20);
  }
  QTest::mouseRelease(Window, Qt::LeftButton, {}, Widget.mapTo(FWindow.get(), To));
  QTest::qWait(Settle);
}

void Driver::menu(const QString& Menu, const QString& Entry,
                  const std::function<void(QWidget&)>& Meanwhile) {
  QMenuBar& Bar = *FWindow->menuBar();
  QAction& Title = Find(Bar.actions(), Menu);
  click(Bar, Bar.actionGeometry(&Title).center());
  if (Meanwhile) whenDialogOpens(Meanwhile);
  popup(Entry);
  if (!QTest::qWaitFor([this] { return FExpected == 0; }, DialogTimeout))
    Fail(Entry + " opens no dialog");
}

void Driver::popup(const QString& Entry) {
  auto* Open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  if (Open == nullptr) Fail("no menu is open for " + Entry);
  QAction& Action = Find(Open->actions(), Entry);
  if (!Action.isEnabled()) Fail(Entry + " is disabled");
  click(*Open, Open->actionGeometry(&Action).center());
}

void Driver::whenDialogOpens(const std::function<void(QWidget&)>& Do) {
  ++FExpected;
  const QPointer<QWidget> Before = QApplication::activeModalWidget();
  // A dialog runs a loop of its own inside the step that opens it; the timer looks from there.
  auto* Look = new QTimer(FWindow.get());
  QObject::connect(Look, &QTimer::timeout, FWindow.get(), [this, Look, Before, Do] {
    QWidget* Dialog = QApplication::activeModalWidget();
    if (Dialog == nullptr || Dialog == Before || !Dialog->isVisible()) return;
    Look->stop();
    Look->deleteLater();
    QTest::qWait(Settle);
    Do(*Dialog);
    --FExpected;
  });
  Look->start(Settle);
}

void Driver::answerFileDialog(QWidget& Dialog, const QString& Path) {
  auto* Name = Dialog.findChild<QLineEdit*>("fileNameEdit");
  if (Name == nullptr) Fail("this is no dialog for files");
  Name->setText(Path);
  QTest::keyClick(Name, Qt::Key_Return);
}

void Driver::choose(const QString& Box, const QString& Entry) {
  auto& Combo = named<QComboBox>(Box);
  const int Index = Combo.findText(Entry);
  if (Index < 0) Fail(Box + " does not offer " + Entry);
  Combo.setFocus();
  while (Combo.currentIndex() != Index)
    key(Combo.currentIndex() < Index ? Qt::Key_Down : Qt::Key_Up);
}

void Driver::picture(const QString& Name, QWidget& Of, QRect Part) {
  QTest::qWait(BeforePicture);
  if (Part.isEmpty()) Part = Of.rect();
  const QRect Screen(Of.mapToGlobal(Part.topLeft()), Part.size());
  const QPixmap Shot =
      Of.screen()->grabWindow(0, Screen.x(), Screen.y(), Screen.width(), Screen.height());
  if (Shot.size() != Part.size()) Fail("the screen is too small for " + Name);
  if (!Shot.save(FPictures.filePath(Name + ".png"))) Fail("the picture cannot be written: " + Name);
  ++FCount;
}

}  // namespace zav::tour
