// headless_qt.h - the application object that fonts need, without a display.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_ZAVGEO_HEADLESS_QT_H
#define ZAV_APPS_ZAVGEO_HEADLESS_QT_H

#include <QGuiApplication>

namespace zav {

// One at a time. QT_QPA_PLATFORM chooses another platform than the one that always works.
class THeadlessQt {
 public:
  THeadlessQt() = default;

 private:
  // Before the application object, which keeps references to what follows.
  const bool FPlatformChosen =
      qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || qputenv("QT_QPA_PLATFORM", "offscreen");
  int FCount = 1;
  char FName[7] = "zavgeo";
  char* FArguments[2] = {FName, nullptr};
  QGuiApplication FApplication{FCount, FArguments};
};

}  // namespace zav

#endif
