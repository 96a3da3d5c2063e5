// main.cpp - zavgeo-viewer: shows calibrated maps and reads positions off them.
// SPDX-License-Identifier: MIT
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <QApplication>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>

#include "command_line.h"
#include "icons.h"
#include "language.h"
#include "main_window.h"

namespace {

constexpr int ExitBadInput = 1;
constexpr int ExitUsage = 2;

void Complain(const QString& Text) {
  std::fprintf(stderr, "zavgeo-viewer: %s\n", Text.toLocal8Bit().constData());
}

constexpr const char* NoDisplayText =
    "zavgeo-viewer: there is no display to open a window on. Start it in a desktop session, or let "
    "it write a "
    "picture: zavgeo-viewer --screenshot FILE.png MAP.xml\n";

bool IsSet(const char* Variable) {
  const char* Value = std::getenv(Variable);
  return Value != nullptr && *Value != '\0';
}

bool HasDisplay(int Count, char** Arguments) {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
  for (int i = 1; i < Count; ++i)
    if (std::strcmp(Arguments[i], "-platform") == 0) return true;
  return IsSet("QT_QPA_PLATFORM") || IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY");
#else
  static_cast<void>(Count);
  static_cast<void>(Arguments);
  return true;
#endif
}

// Qt ends the process by a signal when it cannot reach the display; an exit status is kinder.
void WhileStarting(QtMsgType Type, const QMessageLogContext&, const QString& Text) {
  if (Type == QtFatalMsg) {
    std::fputs(NoDisplayText, stderr);
    std::_Exit(ExitBadInput);
  }
  if (Type == QtCriticalMsg) Complain(Text);
}

// The off-screen platform tells of each thing that windows on a screen have and it has not.
void WithoutScreen(QtMsgType Type, const QMessageLogContext&, const QString& Text) {
  if (Type != QtDebugMsg && Type != QtInfoMsg &&
      !Text.startsWith(QLatin1String("This plugin does not support")))
    Complain(Text);
}

int WriteScreenshot(const zav::ViewerOptions& Options) {
  if (QGuiApplication::platformName() == QLatin1String("offscreen"))
    qInstallMessageHandler(WithoutScreen);
  // No settings: the picture depends on the arguments alone.
  zav::ApplyTheme(Options.Theme.value_or(zav::Theme::System));
  zav::MainWindow Window(nullptr);
  Window.resize(Options.Size.value_or(QSize(1280, 800)));
  Window.show();
  QCoreApplication::processEvents();
  QString Error = Window.openAll(Options.Paths);
  if (Error.isEmpty()) Error = Window.applyView(Options);
  QCoreApplication::processEvents();
  if (Error.isEmpty()) Error = Window.saveScreenshot(Options.Screenshot);
  if (Error.isEmpty()) return 0;
  Complain(Error);
  return ExitBadInput;
}

int RunWindow(const zav::ViewerOptions& Options) {
  QSettings Settings;
  zav::ApplyTheme(Options.Theme.value_or(zav::ThemeIn(Settings)));
  zav::MainWindow Window(&Settings);
  if (Options.Size) Window.resize(*Options.Size);
  Window.show();
  // Once the event loop runs, the window has the size that the desktop lets it have.
  QTimer::singleShot(0, &Window, [&Window, &Options] {
    if (Window.openAll(Options.Paths).isEmpty()) Window.applyView(Options);
    Window.keepWork(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
                    QStringLiteral("/unsaved"));
  });
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  if (zav::NeedsNoDisplay(argc, argv)) {
    if (!IsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  } else if (!HasDisplay(argc, argv)) {
    std::fputs(NoDisplayText, stderr);
    return ExitBadInput;
  }
  QCoreApplication::setOrganizationName(QStringLiteral("zavgeo"));
  QCoreApplication::setApplicationName(QStringLiteral("zavgeo-viewer"));
  QCoreApplication::setApplicationVersion(QStringLiteral(ZAVGEO_VERSION));
  qInstallMessageHandler(WhileStarting);
  QApplication Application(argc, argv);
  qInstallMessageHandler(nullptr);
  QApplication::setDesktopFileName(QStringLiteral("zavgeo-viewer"));
  QApplication::setWindowIcon(zav::MakeIcon(zav::ViewerIcon::Application));

  zav::UseLanguage(zav::LanguageArgument(QApplication::arguments()));
  const zav::CommandLine Line = zav::ParseCommandLine(QApplication::arguments());
  if (!Line.Error.isEmpty()) {
    Complain(Line.Error);
    return ExitUsage;
  }
  if (!Line.Text.isEmpty()) {
    std::fputs(Line.Text.toLocal8Bit().constData(), stdout);
    return 0;
  }
  return Line.Options.Screenshot.isEmpty() ? RunWindow(Line.Options)
                                           : WriteScreenshot(Line.Options);
}
